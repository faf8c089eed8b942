#pragma once

#include <QWidget>

class QAction;
class QHBoxLayout;

namespace workbench {

class ClassTrees;
class Session;
class TreeChooser;

/// "Edit database": a window with the trees of the database as diagrams, in which classes are moved, deleted and
/// renamed, and what was done is undone.
class DatabaseEditor final : public QWidget {
    Q_OBJECT
public:
    /// @param dimension  of the tree that is seen first. The session must outlive the window.
    DatabaseEditor(Session& session, int dimension, QWidget* parent);

    ClassTrees& trees() { return *trees_; }
    TreeChooser& chooser() { return *chooser_; }

    /// Lays the panels out again, after a change of the interface's size.
    void layOut();

private:
    void addActions(QHBoxLayout& row);
    void addStepActions(QHBoxLayout& row);
    void addButton(QHBoxLayout& row, QAction* action, const QString& text);
    void deleteUnderPointer();
    void rename();

    Session& session_;
    TreeChooser* chooser_;
    ClassTrees* trees_;
};

/// Does what the command "Update DB" does, and says so when there is nothing to do.
void updateDatabase(Session& session);

}
