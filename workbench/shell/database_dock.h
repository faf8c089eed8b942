#pragma once

#include "db/tool_db_file.h"
#include "hostkit/embedding/panel_slot.h"
#include "workbench/shell/class_trees.h"
#include "workbench/shell/database_editor.h"
#include "workbench/shell/panel_keys.h"
#include "workbench/shell/tree_chooser.h"

#include <QPointer>
#include <QWidget>

class QAction;
class QKeyEvent;
class QTabWidget;

namespace workbench {

class Session;

/// The database beside the image: what is open as studies, series and slices, or as volumes, or histograms; and as
/// folders, files and slices. What is selected in one list is selected everywhere.
///
/// It is shown in windows that are wide enough, until the user says whether it should be.
class DatabaseDock final : public QWidget {
    Q_OBJECT
public:
    /// The session must outlive it.
    explicit DatabaseDock(Session& session, QWidget* parent = nullptr);
    ~DatabaseDock() override;

    static constexpr int usualWidth = 300;

    ClassTrees& trees() { return *trees_; }
    TreeChooser& chooser() { return *chooser_; } ///< of the tree that is listed
    Tool_DB_Class& classes() { return trees_->panel(2); }
    Tool_DB_File& files() { return files_.panel(); }
    QWidget& classWidget() const { return trees_->panelWidget(); }
    QWidget& fileWidget() const { return *fileWidget_; }
    void showStudies(); ///< the trees in front
    void showFiles();   ///< the list of files in front

    /// "Show database": shows and hides it.
    QAction* toggleAction() const { return toggle_; }
    /// "Edit database": opens and closes the window for it.
    QAction* editAction() const { return edit_; }
    DatabaseEditor* editor() const { return editor_; } ///< null while it is closed

    /// The class that was clicked last in the tree that is listed, else the series that is shown; null for none.
    Strato* chosen() const;
    void rename(); ///< asks for its name
    /// The window has another width.
    void followWidth(int width);

    /// Lays the panels out again, after a change of the interface's size.
    void layOut();

    QSize sizeHint() const override { return {usualWidth, 400}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

signals:
    /// A list could not take in all that is open; told once.
    void rowsLeftOut(int count);

private:
    QWidget* makeStudies();
    void addActions();
    void showEditor(bool shown);
    bool takeKey(const QKeyEvent& event);
    void hostChanged(unsigned long long flags);

    Session& session_;
    TreeChooser* chooser_;
    ClassTrees* trees_;
    hostkit::Panel_Slot<Tool_DB_File> files_;
    QWidget* fileWidget_;
    QTabWidget* tabs_;
    QAction* toggle_;
    QAction* edit_;
    QPointer<DatabaseEditor> editor_;
    PanelKeys keys_;
    bool isChosen_ = false; // by the user
    bool hasTold_ = false;
    hostkit::Subscription updates_;
};

}
