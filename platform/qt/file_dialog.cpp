#include "platform/qt/window.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>

#include <cstring>

// The system's dialog for the name of a file.

namespace {

// "Tables\0*.csv;*.txt\0\0" is "Tables (*.csv *.txt)".
QStringList name_filters(const char* filter)
{
    QStringList filters;
    while (filter && *filter) {
        const QString text = QString::fromUtf8(filter);
        filter += std::strlen(filter) + 1;
        const QString patterns = QString::fromUtf8(filter).replace(QLatin1Char(';'), QLatin1Char(' '));
        filter += std::strlen(filter) + 1;
        filters << QStringLiteral("%1 (%2)").arg(text, patterns);
    }
    return filters;
}

void offer_path(QFileDialog& dialog, const char* path)
{
    if (!path || !*path)
        return;
    const QString name = QFile::decodeName(path);
    const qsizetype separator = name.lastIndexOf(QLatin1Char('/'));
    dialog.setDirectory(separator < 0 ? QDir::currentPath() : name.left(separator + 1));
    dialog.selectFile(name.mid(separator + 1));
}

}

BOOL GetSaveFileNameA(OPENFILENAMEA* asked)
{
    if (!asked || asked->lStructSize != sizeof *asked || !asked->lpstrFile)
        return FALSE;
    ensure_application();
    QWidget* owner = Window::of(asked->hwndOwner);
    QFileDialog dialog(owner ? owner : QApplication::activeWindow(), QString::fromUtf8(asked->lpstrTitle));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (asked->Flags & OFN_OVERWRITEPROMPT) == 0);
    dialog.setDefaultSuffix(QString::fromUtf8(asked->lpstrDefExt));
    if (const QStringList filters = name_filters(asked->lpstrFilter); !filters.isEmpty())
        dialog.setNameFilters(filters);
    offer_path(dialog, asked->lpstrFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return FALSE;
    const QByteArray path = QFile::encodeName(dialog.selectedFiles().front());
    if (static_cast<DWORD>(path.size()) >= asked->nMaxFile)
        return FALSE;
    std::memcpy(asked->lpstrFile, path.constData(), static_cast<size_t>(path.size()) + 1);
    return TRUE;
}
