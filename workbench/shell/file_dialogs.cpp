#include "workbench/shell/file_dialogs.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <utility>

namespace workbench {

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("FileDialogs", source);
}

QString imageFilter()
{
    return text("Images") +
           QStringLiteral(" (*.nii *.nii.gz *.hdr *.img *.nrrd *.nhdr *.mha *.mhd *.dcm *.png *.jpg"
                          " *.jpeg *.tif *.tiff *.bmp);;") +
           text("All files") + QStringLiteral(" (*)");
}

QString labelFilter()
{
    return text("Label maps") + QStringLiteral(" (*.nii.gz *.nii *.nrrd *.mha)");
}

QString tableFilter()
{
    return text("Label tables") + QStringLiteral(" (*.label *.txt)");
}

QString markerFilter()
{
    return text("Markers") + QStringLiteral(" (*.mrk.json *.json *.csv)");
}

QFileDialog* makeDialog(QWidget& parent, const QString& title, const QString& folder, FilesChosen chosen)
{
    auto* dialog = new QFileDialog(&parent, title, folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::filesSelected, &parent, std::move(chosen));
    return dialog;
}

void chooseExisting(
    QWidget& parent, const QString& title, const QString& folder, const QString& filter, FilesChosen chosen)
{
    auto* dialog = makeDialog(parent, title, folder, std::move(chosen));
    dialog->setNameFilter(filter + QStringLiteral(";;") + text("All files") + QStringLiteral(" (*)"));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->open();
}

void chooseTarget(QWidget& parent, const QString& title, const QString& path, const QString& filter,
    const QString& ending, FilesChosen chosen)
{
    auto* dialog = makeDialog(parent, title, QFileInfo(path).absolutePath(), std::move(chosen));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilter(filter);
    dialog->setDefaultSuffix(ending);
    dialog->selectFile(QFileInfo(path).fileName());
    dialog->open();
}

}

void chooseImageFiles(QWidget& parent, const QString& folder, FilesChosen chosen)
{
    auto* dialog = makeDialog(parent, text("Open image"), folder, std::move(chosen));
    dialog->setNameFilter(imageFilter());
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->open();
}

void chooseImageFolder(QWidget& parent, const QString& folder, FilesChosen chosen)
{
    auto* dialog = makeDialog(parent, text("Open folder with a series"), folder, std::move(chosen));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->open();
}

void chooseLabelFile(QWidget& parent, const QString& folder, FilesChosen chosen)
{
    chooseExisting(parent, text("Open label map"), folder, labelFilter(), std::move(chosen));
}

void chooseTableFile(QWidget& parent, const QString& folder, FilesChosen chosen)
{
    chooseExisting(parent, text("Open label table"), folder, tableFilter(), std::move(chosen));
}

void chooseLabelTarget(QWidget& parent, const QString& path, FilesChosen chosen)
{
    chooseTarget(parent, text("Save label map"), path, labelFilter(), QStringLiteral("nii.gz"), std::move(chosen));
}

void chooseTableTarget(QWidget& parent, const QString& path, FilesChosen chosen)
{
    chooseTarget(parent, text("Save label table"), path, tableFilter(), QStringLiteral("label"), std::move(chosen));
}

void chooseMarkerFile(QWidget& parent, const QString& folder, FilesChosen chosen)
{
    chooseExisting(parent, text("Open markers"), folder, markerFilter(), std::move(chosen));
}

void chooseMarkerTarget(QWidget& parent, const QString& path, FilesChosen chosen)
{
    chooseTarget(parent, text("Save markers"), path, markerFilter(), QStringLiteral("mrk.json"), std::move(chosen));
}

void chooseHistogramTarget(QWidget& parent, const QString& path, FilesChosen chosen)
{
    chooseTarget(parent, text("Export histogram"), path, text("Tables") + QStringLiteral(" (*.csv *.txt)"),
        QStringLiteral("csv"), std::move(chosen));
}

}
