#pragma once

#include <QStatusBar>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace workbench {

class ElidedLabel;

/// What the status bar says of the voxel under the pointer.
struct VoxelText {
    QString index;    ///< "90, 108, 90"
    QString position; ///< "0.5, -12.0, 18.0 mm"
    QString value;    ///< "132 HU"
    QString tag;      ///< "Liver"
};

/// The line below: at the left what the program has to say, or the work that is going on with its progress and a button
/// to stop it; at the right the voxel under the pointer.
class StatusLine final : public QStatusBar {
    Q_OBJECT
public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Says something for a while.
    void say(const QString& text);
    QString message() const;

    void showWork(const QString& title);
    void showProgress(int percent);
    void endWork();

    void showVoxel(const VoxelText& voxel);
    void clearVoxel() { showVoxel({}); }

signals:
    void cancelled();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void reserveWidths();
    void showPositionIfItFits();

    ElidedLabel* message_;
    QProgressBar* progress_;
    QPushButton* cancel_;
    QLabel* index_;
    QLabel* position_;
    QLabel* value_;
    QLabel* tag_;
    QTimer clearing_;
};

}
