#include "platform/qt/key_table.h"
#include "platform/qt/window.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTabletEvent>
#include <QTouchEvent>

#include <algorithm>
#include <utility>
#include <vector>

// Qt's tablet and touch events as window messages.

namespace {

constexpr UINT32 pen_id = 1;

// Of the message that is being handled, or null.
const POINTER_PEN_INFO* handled_pen = nullptr;
const std::vector<TOUCHINPUT>* handled_touch = nullptr;

HTOUCHINPUT touch_handle()
{
    return reinterpret_cast<HTOUCHINPUT>(const_cast<std::vector<TOUCHINPUT>*>(handled_touch));
}

// For the time of one message.
template <class T>
class Handled {
public:
    Handled(const T*& place, const T& record) : place_(place), outer_(std::exchange(place, &record)) {}
    ~Handled() { place_ = outer_; }
    Handled(const Handled&) = delete;
    Handled& operator=(const Handled&) = delete;

private:
    const T*& place_;
    const T* outer_;
};

POINT to_point(const QPointF& place)
{
    const QPoint rounded = place.toPoint();
    return {rounded.x(), rounded.y()};
}

UINT32 pen_flags(Qt::MouseButtons buttons)
{
    if (!(buttons & Qt::LeftButton))
        return POINTER_FLAG_INRANGE;
    const UINT32 button = buttons & Qt::RightButton    ? POINTER_FLAG_SECONDBUTTON
                          : buttons & Qt::MiddleButton ? POINTER_FLAG_THIRDBUTTON
                                                       : POINTER_FLAG_FIRSTBUTTON;
    return POINTER_FLAG_INRANGE | POINTER_FLAG_INCONTACT | button;
}

// A button of the barrel is no news of its own.
UINT pen_message(const QTabletEvent& event)
{
    if (event.button() != Qt::LeftButton || event.type() == QEvent::TabletMove)
        return WM_POINTERUPDATE;
    return event.type() == QEvent::TabletPress ? WM_POINTERDOWN : WM_POINTERUP;
}

DWORD touch_flags(const QEventPoint& point, bool over)
{
    if (over || point.state() == QEventPoint::State::Released)
        return TOUCHEVENTF_UP;
    return point.state() == QEventPoint::State::Pressed ? TOUCHEVENTF_DOWN : TOUCHEVENTF_MOVE;
}

bool is_over(const QTouchEvent& event)
{
    return event.type() == QEvent::TouchEnd || event.type() == QEvent::TouchCancel;
}

// A touch that is taken away comes without its fingers: they are lifted where they were.
std::vector<TOUCHINPUT> touch_inputs(const QTouchEvent& event)
{
    constexpr double hundredths = 100;
    static std::vector<TOUCHINPUT> last;
    std::vector<TOUCHINPUT> inputs;
    for (const QEventPoint& point : event.points()) {
        const QPoint place = (point.globalPosition() * hundredths).toPoint();
        inputs.push_back({place.x(), place.y(), static_cast<DWORD>(point.id()), touch_flags(point, is_over(event))});
    }
    if (inputs.empty()) {
        inputs = last;
        for (TOUCHINPUT& input : inputs)
            input.dwFlags = TOUCHEVENTF_UP;
    }
    return last = inputs;
}

}

void Window::tabletEvent(QTabletEvent* event)
{
    constexpr double most_pressure = 1024;
    const POINT place = to_point(event->globalPosition());
    const UINT32 flags = pen_flags(event->buttons());
    const POINTER_PEN_INFO pen{
        {PT_PEN, pen_id, flags, handle(), place}, static_cast<UINT32>(event->pressure() * most_pressure)};
    const Handled handled(handled_pen, pen);
    event->setAccepted(
        offer(pen_message(*event), MAKEWPARAM(pen_id, static_cast<int>(flags)), MAKELPARAM(place.x, place.y)));
}

// Whoever leaves the first touch to Qt does not hear of the second: so the mouse that one finger is, is made here.
void Window::touch(const QTouchEvent& event)
{
    const bool over = is_over(event);
    if (event.points().size() >= 2)
        pinched_ = true;
    if (pinched_)
        tell_touch(event);
    else if (!over && !event.points().isEmpty())
        finger(finger_ ? QEvent::MouseMove : QEvent::MouseButtonPress, event.points().front().position());
    else if (finger_)
        finger(QEvent::MouseButtonRelease, *finger_);
    if (over)
        pinched_ = false;
}

void Window::finger(QEvent::Type type, const QPointF& place)
{
    const bool release = type == QEvent::MouseButtonRelease;
    finger_ = release ? std::nullopt : std::optional(place);
    QMouseEvent event(type, place, mapToGlobal(place), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
        release ? Qt::NoButton : Qt::LeftButton, QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(this, &event);
}

// The press that the first finger was ends only afterwards: whoever drags has heard by then that this is no drag.
void Window::tell_touch(const QTouchEvent& event)
{
    const std::vector<TOUCHINPUT> inputs = touch_inputs(event);
    {
        const Handled handled(handled_touch, inputs);
        send(WM_TOUCH, MAKEWPARAM(static_cast<int>(inputs.size()), 0), reinterpret_cast<LPARAM>(&inputs));
    }
    if (finger_ && !destroyed())
        finger(QEvent::MouseButtonRelease, *finger_);
}

// ----------------------------------------------------------------------------------------------------- the calls

BOOL GetPointerPenInfo(UINT32 pointer, POINTER_PEN_INFO* pen)
{
    if (!pen || !handled_pen || pointer != pen_id)
        return FALSE;
    *pen = *handled_pen;
    return TRUE;
}

BOOL GetTouchInputInfo(HTOUCHINPUT touch, UINT count, TOUCHINPUT* inputs, int size)
{
    if (!touch || touch != touch_handle() || !inputs || size != sizeof *inputs)
        return FALSE;
    std::copy_n(handled_touch->begin(), std::min<size_t>(count, handled_touch->size()), inputs);
    return TRUE;
}

BOOL CloseTouchInputHandle(HTOUCHINPUT touch)
{
    if (!touch || touch != touch_handle())
        return FALSE;
    handled_touch = nullptr;
    return TRUE;
}

BOOL RegisterTouchWindow(HWND window, ULONG)
{
    Window* found = Window::of(window);
    if (found)
        found->setAttribute(Qt::WA_AcceptTouchEvents);
    return found != nullptr;
}
