#pragma once

#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "hostkit/embedding/panel_slot.h"
#include "workbench/shell/panel_keys.h"

#include <QWidget>

class QAction;
class QTabWidget;

namespace workbench {

class Session;

/// The database beside the image: what is open as studies, series and slices, and as folders, files and slices. What is
/// selected in either list is selected everywhere.
///
/// It is shown in windows that are wide enough, until the user says whether it should be.
class DatabaseDock final : public QWidget {
    Q_OBJECT
public:
    /// The session must outlive it.
    explicit DatabaseDock(Session& session, QWidget* parent = nullptr);

    static constexpr int usualWidth = 300;

    Tool_DB_Class& classes() { return classes_.panel(); }
    Tool_DB_File& files() { return files_.panel(); }
    QWidget& classWidget() const { return *classWidget_; }
    QWidget& fileWidget() const { return *fileWidget_; }
    void showFiles(); ///< the list of files in front

    /// "Database": shows and hides it.
    QAction* toggleAction() const { return toggle_; }
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
    void hostChanged(unsigned long long flags);

    Session& session_;
    hostkit::Panel_Slot<Tool_DB_Class> classes_;
    hostkit::Panel_Slot<Tool_DB_File> files_;
    QWidget* classWidget_;
    QWidget* fileWidget_;
    QTabWidget* tabs_;
    QAction* toggle_;
    PanelKeys keys_;
    bool isChosen_ = false; // by the user
    bool hasTold_ = false;
    hostkit::Subscription updates_;
};

}
