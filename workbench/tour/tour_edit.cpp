#include "workbench/shell/class_rows.h"
#include "workbench/shell/class_trees.h"
#include "workbench/shell/database_dock.h"
#include "workbench/shell/database_editor.h"
#include "workbench/shell/main_window.h"
#include "workbench/tour/database_rows.h"
#include "workbench/tour/tour_steps.h"

#include <QToolButton>

// The database as diagrams: moving and deleting classes, and bringing them back.

namespace workbench {

namespace {

constexpr int seriesLevel = 2, frameLevel = 3;

// The series furthest down that is in sight and has slices, other than this one; -1 when there is none.
int otherSeries(const Tool_DB_Class& diagram, const QWidget& widget, int than)
{
    int found = -1;
    for (int row = 0; (row = rowOfLevel(diagram, seriesLevel, row)) >= 0;) {
        const bool isInSight = diagramPlace(diagram, widget, row, db::children_handle).y() < widget.height() * 3 / 4;
        if (row != than && diagram.list_pt[row].nb_child > 0 && isInSight)
            found = row;
    }
    return found;
}

QString lastStep(Session& session)
{
    if (!session.databaseEdits().steps().canUndo())
        throw StepFailed(QStringLiteral("nothing was changed"));
    return session.databaseEdits().steps().undoText();
}

}

DatabaseEditor& TourSteps::editor() const
{
    DatabaseEditor* const editor = window_.database().editor();
    if (!editor)
        throw StepFailed(QStringLiteral("the window that edits the database is not open"));
    return *editor;
}

QString TourSteps::editDatabase()
{
    const QWidget& images = window_.database().chooser().button(2);
    driver_.click(images, images.rect().center());
    driver_.key(Qt::Key_D, Qt::ShiftModifier);
    editor().activateWindow();
    Driver::waitFor([this] { return editor().isActiveWindow(); });
    return QStringLiteral("%1 classes").arg(editor().trees().panel().nb);
}

QString TourSteps::moveSlice()
{
    const Tool_DB_Class& diagram = editor().trees().panel();
    const QWidget& widget = editor().trees().panelWidget();
    const int slice = rowOfLevel(diagram, frameLevel);
    const int own = diagram.list_pt[slice].parent;
    const int other = otherSeries(diagram, widget, own);
    const QPoint from = diagramPlace(diagram, widget, slice, db::parent_handle);
    const QPoint to = diagramPlace(diagram, widget, other < 0 ? own : other, db::children_handle);
    Driver(editor()).drag(widget, {from, (from + to) / 2, to});
    return other < 0 ? QStringLiteral("there is no other series") : lastStep(session_);
}

QString TourSteps::deleteSeries()
{
    const Tool_DB_Class& diagram = editor().trees().panel();
    const QWidget& widget = editor().trees().panelWidget();
    const QPoint series = diagramPlace(diagram, widget, rowOfLevel(diagram, seriesLevel), db::box_body);
    Driver hand(editor());
    hand.moveTo(widget, series);
    hand.key(Qt::Key_Delete);
    return lastStep(session_);
}

QString TourSteps::updateDatabase()
{
    for (const auto* button : editor().findChildren<QToolButton*>())
        if (button->text() == QLatin1String("Update DB"))
            Driver(editor()).click(*button, button->rect().center());
    if (session_.databaseEdits().updateDatabase())
        throw StepFailed(QStringLiteral("the database is not as it was"));
    return lastStep(session_);
}

}
