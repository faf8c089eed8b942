#include "workbench/shell/database_dock.h"
#include "workbench/shell/main_window.h"
#include "workbench/tour/database_rows.h"
#include "workbench/tour/tour_steps.h"

#include <QAction>

// The database: folding it, and choosing a slice in it.

namespace workbench {

namespace {

constexpr int seriesLevel = 2, frameLevel = 3;

int require(int row, const char* what)
{
    if (row < 0)
        throw StepFailed(QStringLiteral("the database has no row for %1").arg(QLatin1String(what)));
    return row;
}

}

QString TourSteps::browse()
{
    DatabaseDock& database = window_.database();
    if (!database.toggleAction()->isChecked())
        driver_.key(Qt::Key_D);
    const Tool_DB_Class& list = database.classes();
    const QWidget& widget = database.classWidget();
    const int series = require(rowOfLevel(list, seriesLevel), "a series");
    const int frame = require(rowOfLevel(list, frameLevel, series), "a slice");
    driver_.click(widget, foldPlace(list, widget, series));
    if (list.list_pt[series].state & 1)
        throw StepFailed(QStringLiteral("the series did not fold"));
    driver_.click(widget, foldPlace(list, widget, series));
    driver_.click(widget, rowPlace(list, widget, frame));
    if (session_.frame() != 0 || session_.selection().count() != 1)
        throw StepFailed(QStringLiteral("the first slice of the list is not shown"));
    return QStringLiteral("%1 rows, \"%2\" is shown").arg(list.nb).arg(QString::fromUtf8(list.list_pt[frame].name));
}

QString TourSteps::selectAll()
{
    DatabaseDock& database = window_.database();
    database.showFiles();
    Driver::settle();
    const QWidget& widget = database.fileWidget();
    driver_.click(widget, buttonPlace(database.files().select_all, widget));
    const int selected = session_.selection().count();
    if (selected < session_.frameCount())
        throw StepFailed(QStringLiteral("only %1 slices are selected").arg(selected));
    return QStringLiteral("%1 slices are selected").arg(selected);
}

}
