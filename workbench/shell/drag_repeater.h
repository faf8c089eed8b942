#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>

class QWidget;

namespace workbench {

/// Lets a list go on scrolling while the pointer rests beyond its edge in a drag: a panel scrolls by one step with each
/// motion, and a pointer at rest makes none. Belongs to the panel's widget.
class DragRepeater final : public QObject {
public:
    explicit DragRepeater(QWidget& panel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QWidget& panel_;
    QBasicTimer timer_;
    QPoint place_; // of the pointer, in the panel
};

}
