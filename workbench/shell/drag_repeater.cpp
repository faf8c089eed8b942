#include "workbench/shell/drag_repeater.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>

namespace workbench {

namespace {

constexpr int pause = 16; // milliseconds

QPoint inside(const QRect& area, QPoint place)
{
    return {std::clamp(place.x(), area.left(), area.right()), std::clamp(place.y(), area.top(), area.bottom())};
}

}

DragRepeater::DragRepeater(QWidget& panel) : QObject(&panel), panel_(panel)
{
    panel.installEventFilter(this);
}

bool DragRepeater::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseMove) {
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        place_ = mouse.position().toPoint();
        if (mouse.buttons() == Qt::LeftButton)
            timer_.start(pause, this);
    } else if (type == QEvent::MouseButtonRelease) {
        timer_.stop();
    }
    return QObject::eventFilter(watched, event);
}

// The places where a drag scrolls end at the panel's edge; a pointer that has gone further is taken as on it.
void DragRepeater::timerEvent(QTimerEvent*)
{
    if (QGuiApplication::mouseButtons() != Qt::LeftButton)
        return timer_.stop();
    const QPoint place = inside(panel_.rect(), place_);
    QMouseEvent again(QEvent::MouseMove, place, panel_.mapToGlobal(QPointF(place)), Qt::NoButton, Qt::LeftButton,
        QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(&panel_, &again);
}

}
