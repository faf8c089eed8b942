#include "workbench/shell/colour_dialog.h"

#include <QColorDialog>

#include <utility>

namespace workbench {

void chooseColour(QWidget& parent, const QString& title, const QColor& now, std::function<void(const QColor&)> chosen)
{
    auto* dialog = new QColorDialog(now, &parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::DontUseNativeDialog); // it would not have the program's look
    dialog->setWindowTitle(title);
    QObject::connect(dialog, &QColorDialog::colorSelected, &parent, std::move(chosen));
    dialog->open();
}

}
