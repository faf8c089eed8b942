#include "workbench/shell/class_names.h"

#include "host/structures.h"
#include "workbench/model/session.h"

#include <QCoreApplication>
#include <QInputDialog>

namespace workbench {

void chooseClassName(QWidget& window, Session& session, const Strato* object)
{
    const auto translate = [](const char* text) { return QCoreApplication::translate("ClassName", text); };
    const QString label = session.databaseEdits().label(object);
    if (label.isEmpty()) {
        emit session.message(translate("No class is chosen. Click the one to rename in the database."));
        return;
    }
    auto* dialog = new QInputDialog(&window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(translate("Rename %1").arg(label));
    dialog->setLabelText(translate("Name:"));
    dialog->setTextValue(QString::fromUtf8(object->Name_Get()));
    const QString shown = dialog->textValue(); // what a line cannot show stays as it is when nothing is typed
    QObject::connect(
        dialog, &QInputDialog::textValueSelected, &session, [&session, object, shown](const QString& text) {
            if (text != shown)
                session.databaseEdits().rename(object, text);
        });
    constexpr int usualWidth = 420; // names are long
    dialog->resize(usualWidth, dialog->sizeHint().height());
    dialog->open();
}

}
