#include "workbench/view/image_view.h"

#include <cmath>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <utility>

namespace workbench {

namespace {

constexpr int notch = 120; // of a wheel, in the unit of its events
constexpr double zoom_of_a_notch = 1.25;
constexpr double drag_for_e = 200;     // pixels to the right that widen the window by the factor e
constexpr double drag_for_width = 300; // pixels up that move it by its width

}

// ---------------------------------------------------------------------------------------------------------- mouse

void ImageView::mousePressEvent(QMouseEvent* event)
{
    if (!session_.hasImage() || drag_ != Drag::none)
        return event->ignore();
    setFocus(Qt::MouseFocusReason);
    setPointer(event->position());
    if (event->button() == Qt::RightButton)
        begin(Drag::window, event);
    else if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && space_))
        begin(Drag::pan, event);
    else if (event->button() == Qt::LeftButton && (placing_ || event->modifiers() & Qt::AltModifier))
        beginMarking(event);
    else if (event->button() == Qt::LeftButton)
        beginPainting(event);
    else
        event->ignore();
}

void ImageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton && session_.hasImage())
        fit();
    else
        mousePressEvent(event); // two quick strokes
}

void ImageView::begin(Drag drag, QMouseEvent* event)
{
    drag_ = drag;
    dragButton_ = event->button();
    dragLast_ = dragStart_ = event->position();
    windowAtStart_ = session_.window();
    updateCursor();
    update();
}

void ImageView::beginPainting(QMouseEvent* event)
{
    const bool erase = event->modifiers() & Qt::ShiftModifier;
    const QString why = session_.beginStroke(pixelAt(event->position()), erase);
    if (!why.isEmpty()) {
        emit strokeRefused(why);
        return;
    }
    drag_ = Drag::paint;
    dragButton_ = event->button();
}

void ImageView::mouseMoveEvent(QMouseEvent* event)
{
    if (drag_ != Drag::none && !(event->buttons() & dragButton_))
        endDrag(); // the release went elsewhere
    setErasing(event->modifiers() & Qt::ShiftModifier);
    if (drag_ == Drag::window)
        dragWindow(event->position());
    else if (drag_ == Drag::pan)
        dragView(event->position());
    else if (drag_ == Drag::paint)
        session_.continueStroke(pixelAt(event->position()));
    else if (drag_ == Drag::marker)
        session_.markers().moveTo(place_.toPixel(event->position()) + grip_);
    setPointer(event->position());
    if (placing_)
        updateCursor();
}

void ImageView::mouseReleaseEvent(QMouseEvent* event)
{
    if (drag_ != Drag::none && event->button() == dragButton_)
        endDrag();
}

void ImageView::endDrag()
{
    if (drag_ == Drag::paint)
        session_.endStroke();
    else if (drag_ == Drag::marker)
        session_.markers().endMoving();
    drag_ = Drag::none;
    updateCursor();
    update();
}

void ImageView::dragWindow(QPointF position)
{
    const QPointF way = position - dragStart_;
    const double brighter = session_.volume().inverted ? -1 : 1;
    session_.setWindow({windowAtStart_.centre + brighter * way.y() / drag_for_width * windowAtStart_.width,
        windowAtStart_.width * std::exp(way.x() / drag_for_e)});
}

void ImageView::dragView(QPointF position)
{
    place_.pan(position - std::exchange(dragLast_, position));
    moveView();
}

void ImageView::wheelEvent(QWheelEvent* event)
{
    if (!session_.hasImage())
        return event->ignore();
    if (event->modifiers() & Qt::ControlModifier)
        zoomBy(std::pow(zoom_of_a_notch, double(event->angleDelta().y()) / notch), event->position());
    else
        turnFrames(event->angleDelta().y());
    event->accept();
}

// Turned towards the user: the next frames, as one reads on.
void ImageView::turnFrames(int angle)
{
    wheelRest_ += angle;
    const int notches = wheelRest_ / notch;
    wheelRest_ -= notches * notch;
    if (notches != 0 && !keepsFrame())
        session_.setFrame(session_.frame() - notches);
}

void ImageView::enterEvent(QEnterEvent* event)
{
    const bool typing = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (isActiveWindow() && !typing)
        setFocus(Qt::MouseFocusReason); // so that Space, Shift and the arrow keys arrive
    outline_ = {};
    setPointer(event->position());
}

void ImageView::leaveEvent(QEvent*)
{
    setPointer({});
}

void ImageView::setPointer(std::optional<QPointF> position)
{
    update(outlineRect());
    pointer_ = position;
    update(outlineRect());
    tellPointer();
}

void ImageView::tellPointer()
{
    const auto voxel = pointer_ ? voxelAt(*pointer_) : std::nullopt;
    session_.setPointer(voxel ? std::optional(place_.toPixel(*pointer_)) : std::nullopt);
    if (voxel == told_)
        return;
    told_ = voxel;
    emit pointerMoved(voxel);
}

// ----------------------------------------------------------------------------------------------------------- keys

void ImageView::keyPressEvent(QKeyEvent* event)
{
    if (!session_.hasImage())
        return event->ignore();
    switch (event->key()) {
    case Qt::Key_Space:
        return setSpace(true);
    case Qt::Key_Shift:
        return setErasing(true);
    case Qt::Key_0:
        return fit();
    case Qt::Key_Escape:
        return takeBack(event);
    default:
        if (!showFrameOfKey(event->key()))
            event->ignore();
    }
}

void ImageView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        setSpace(false);
    else if (event->key() == Qt::Key_Shift)
        setErasing(false);
    else
        event->ignore();
}

void ImageView::focusOutEvent(QFocusEvent* event)
{
    setSpace(false);
    setErasing(false);
    QWidget::focusOutEvent(event);
}

void ImageView::takeBack(QKeyEvent* event)
{
    if (drag_ == Drag::paint)
        session_.cancelStroke();
    else if (drag_ == Drag::marker)
        session_.markers().cancelMoving();
    else if (placing_)
        return setPlacing(false);
    else
        return event->ignore();
    endDrag();
}

bool ImageView::showFrameOfKey(int key)
{
    if (keepsFrame())
        return false;
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Left:
    case Qt::Key_PageUp:
        session_.setFrame(session_.frame() - 1);
        return true;
    case Qt::Key_Down:
    case Qt::Key_Right:
    case Qt::Key_PageDown:
        session_.setFrame(session_.frame() + 1);
        return true;
    case Qt::Key_Home:
        session_.setFrame(0);
        return true;
    case Qt::Key_End:
        session_.setFrame(session_.frameCount() - 1);
        return true;
    default:
        return false;
    }
}

void ImageView::setSpace(bool held)
{
    if (std::exchange(space_, held) == held)
        return;
    updateCursor();
    update(outlineRect());
}

void ImageView::setErasing(bool erasing)
{
    if (std::exchange(erasing_, erasing) != erasing)
        update(outlineRect());
}

void ImageView::updateCursor()
{
    if (!session_.hasImage())
        setCursor(Qt::ArrowCursor);
    else if (drag_ == Drag::pan || drag_ == Drag::marker)
        setCursor(Qt::ClosedHandCursor);
    else if (drag_ == Drag::window)
        setCursor(Qt::SizeAllCursor);
    else
        setCursor(space_ || (placing_ && markerUnderPointer()) ? Qt::OpenHandCursor : Qt::CrossCursor);
}

}
