#pragma once

#include "workbench/shell/files.h"
#include "workbench/shell/graph_export.h"
#include "workbench/shell/reports.h"
#include "workbench/view/image_view.h"

#include <QMainWindow>

#include <memory>
#include <optional>

class QSlider;
class QSplitter;

namespace workbench {

class DatabaseDock;
class Menus;
class OpacityRow;
class StatusLine;
class ToolColumn;
class ToolPanels;

/// The workbench's window: it puts the parts side by side and connects them; what they do, they do themselves.
class MainWindow final : public QMainWindow {
    Q_OBJECT
public:
    /// The session must outlive the window.
    explicit MainWindow(Session& session);
    ~MainWindow() override;

    Files& files() { return files_; }
    ImageView& view() { return *view_; }
    ToolPanels& panels() { return *panels_; }
    StatusLine& statusLine() { return *status_; }
    DatabaseDock& database() { return *database_; }

    /// @param percent  100 to 200
    void setInterfaceSize(int percent);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeViewSide();
    void connectFiles();
    void connectSession();
    void connectDatabase();
    void showTitle();
    QString unsavedWork() const;
    void showFrames();
    void showVoxel();
    void editTag();
    void showReport(int level, const QString& text);
    void passToView(QKeyEvent* event);

    Session& session_;
    Files files_;
    Reports reports_;
    ImageView* view_;
    QSlider* slices_;
    QSplitter* splitter_;
    DatabaseDock* database_;
    ToolColumn* column_;
    OpacityRow* opacity_;
    StatusLine* status_;
    std::unique_ptr<ToolPanels> panels_;
    std::optional<GraphExport> graphExport_;
    std::unique_ptr<Menus> menus_;
    std::optional<Voxel> voxel_; // under the pointer
    bool mayClose_ = false;
};

}
