#include "workbench/shell/database_editor.h"

#include "workbench/model/session.h"
#include "workbench/shell/class_names.h"
#include "workbench/shell/class_trees.h"
#include "workbench/shell/quiet_row.h"
#include "workbench/shell/tree_chooser.h"

#include <QAction>
#include <QToolButton>
#include <QVBoxLayout>

namespace workbench {

DatabaseEditor::DatabaseEditor(Session& session, int dimension, QWidget* parent)
    : QWidget(parent, Qt::Window), session_(session), chooser_(new TreeChooser),
      trees_(new ClassTrees(ClassTrees::As::diagrams, [] {}))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Edit database"));
    resize(1300, 780); // four levels side by side
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, theme::smallSpacing, 0);
    row->setSpacing(theme::smallSpacing);
    row->addWidget(chooser_, 1);
    addActions(*row);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(row);
    layout->addWidget(trees_, 1);
    connect(chooser_, &TreeChooser::chosen, trees_, &ClassTrees::setDimension);
    chooser_->setDimension(dimension);
    trees_->setDimension(dimension);
}

void DatabaseEditor::addActions(QHBoxLayout& row)
{
    addStepActions(row);
    auto* rename = new QAction(tr("Rename the class under the pointer, or the one that was clicked"), this);
    rename->setShortcut(QKeySequence(tr("F2")));
    connect(rename, &QAction::triggered, this, &DatabaseEditor::rename);
    addButton(row, rename, tr("Rename..."));
    auto* update = new QAction(tr("Bring the trees back to what the files say"), this);
    connect(update, &QAction::triggered, this, [this] { updateDatabase(session_); });
    addButton(row, update, tr("Update DB"));
    auto* remove = new QAction(this);
    remove->setShortcut(QKeySequence(tr("Del")));
    connect(remove, &QAction::triggered, this, &DatabaseEditor::deleteUnderPointer);
    addAction(remove);
}

void DatabaseEditor::addStepActions(QHBoxLayout& row)
{
    QUndoStack& steps = session_.databaseEdits().steps();
    QAction* undo = steps.createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence(tr("Ctrl+Z")));
    addButton(row, undo, tr("Undo"));
    QAction* redo = steps.createRedoAction(this, tr("Redo"));
    redo->setShortcuts({QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))});
    addButton(row, redo, tr("Redo"));
}

// What it does in full is its tool tip.
void DatabaseEditor::addButton(QHBoxLayout& row, QAction* action, const QString& text)
{
    addAction(action);
    action->setIconText(text);
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::NoFocus);
    row.addWidget(button);
}

// Once, whatever the panel answers: of the diagram's keys it never says that it used them.
void DatabaseEditor::deleteUnderPointer()
{
    constexpr int deleteKey = 2048 + 0x2E;
    trees_->host().Keyboard(deleteKey);
}

void DatabaseEditor::rename()
{
    chooseClassName(*this, session_, trees_->chosen());
}

void DatabaseEditor::layOut()
{
    trees_->layOut();
}

void updateDatabase(Session& session)
{
    if (!session.databaseEdits().updateDatabase())
        emit session.message(DatabaseEditor::tr("The database is as the files say; there is nothing to bring back."));
}

}
