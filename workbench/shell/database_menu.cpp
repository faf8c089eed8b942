#include "workbench/shell/database_menu.h"

#include "workbench/model/session.h"
#include "workbench/shell/database_dock.h"
#include "workbench/shell/database_editor.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>

namespace workbench {

// Its keys are those of the lists: they are taken while the pointer is there.
DatabaseMenu::DatabaseMenu(QMainWindow& window, Session& session, DatabaseDock& database, QObject* parent)
    : QObject(parent)
{
    QMenu& menu = *window.menuBar()->addMenu(tr("&Database"));
    menu.addAction(database.toggleAction());
    menu.addAction(database.editAction());
    menu.addSeparator();
    QAction* rename = menu.addAction(QString(), this, [&database] { database.rename(); });
    menu.addAction(tr("&Update DB"), this, [&session] { updateDatabase(session); });
    menu.addSeparator();
    QUndoStack& steps = session.databaseEdits().steps();
    menu.addAction(steps.createUndoAction(this, tr("U&ndo")));
    menu.addAction(steps.createRedoAction(this, tr("Re&do")));
    const auto nameClass = [&database, &session, rename] {
        QString label = session.databaseEdits().label(database.chosen());
        label.replace(QLatin1Char('&'), QLatin1String("&&"));
        rename->setEnabled(!label.isEmpty());
        rename->setText(label.isEmpty() ? tr("&Rename...") : tr("&Rename \"%1\"...").arg(label));
    };
    connect(&menu, &QMenu::aboutToShow, this, nameClass);
    nameClass();
}

}
