#include "platform/qt/window.h"

#include "platform/qt/key_table.h"
#include "platform/qt/window_widget.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QSet>

namespace {

const QEvent::Type paint_request = static_cast<QEvent::Type>(QEvent::registerEventType());

int procedures_on_stack = 0; // of any window: none may be deleted under a caller that is still in it

QSet<const Window*>& live_windows()
{
    static QSet<const Window*>& windows = *new QSet<const Window*>;
    return windows;
}

}

Window::Window(QWidget* parent, WNDPROC procedure, HBRUSH class_background)
    : QWidget(parent), background(class_background), procedure_(procedure)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    live_windows().insert(this);
}

Window::~Window()
{
    live_windows().remove(this);
    release_capture_of(this);
}

Window* Window::of(HWND window)
{
    auto* found = reinterpret_cast<Window*>(window);
    return found && live_windows().contains(found) ? found : nullptr;
}

bool Window::destroyed() const
{
    return !live_windows().contains(this);
}

// ---------------------------------------------------------------------------------------------------- messages

LRESULT Window::send(UINT message, WPARAM wparam, LPARAM lparam)
{
    ++procedures_on_stack;
    const LRESULT result = procedure_(handle(), message, wparam, lparam);
    --procedures_on_stack;
    return result;
}

bool Window::offer(UINT message, WPARAM wparam, LPARAM lparam)
{
    unused_ = false;
    send(message, wparam, lparam);
    return !unused_;
}

// The window hears of it first, then its children; their handles are void from here on.
void Window::destroy()
{
    send(WM_DESTROY, 0, 0);
    const auto children_now = children();
    for (QObject* child : children_now) {
        if (auto* window = dynamic_cast<Window*>(child))
            window->destroy();
    }
    live_windows().remove(this);
    release_capture_of(this);
    hide();
    if (procedures_on_stack > 0)
        deleteLater();
    else
        delete this;
}

void Window::tell_size()
{
    if (size() == told_size_)
        return;
    told_size_ = size();
    send(WM_SIZE, SIZE_RESTORED, MAKELPARAM(width(), height()));
    invalidate(rect());
}

// ---------------------------------------------------------------------------------------------------- painting

void Window::invalidate(const QRect& rectangle)
{
    to_paint_ += rectangle & rect();
    if (paint_posted_ || to_paint_.isEmpty() || !isVisible())
        return;
    paint_posted_ = true;
    QCoreApplication::postEvent(this, new QEvent(paint_request), Qt::LowEventPriority);
}

QRect Window::validate()
{
    const QRect result = to_paint_.boundingRect();
    to_paint_ = {};
    return result;
}

void Window::paint_now()
{
    if (to_paint_.isEmpty() || destroyed())
        return;
    send(WM_PAINT, 0, 0);
    validate(); // a procedure that painted nothing is not asked for ever
}

// The picture has the widget's size at the screen's scale, and keeps what it showed.
void Window::fit_picture()
{
    const qreal scale = devicePixelRatioF();
    const QSize wanted = (QSizeF(size()) * scale).toSize().expandedTo({1, 1});
    if (picture_.size() == wanted && picture_.devicePixelRatio() == scale)
        return;
    QImage larger(wanted, QImage::Format_RGB32);
    larger.setDevicePixelRatio(scale);
    larger.fill(Qt::black);
    if (!picture_.isNull())
        QPainter(&larger).drawImage(0, 0, picture_);
    picture_ = larger;
}

const QImage& Window::picture()
{
    if (contexts_ == 0)
        fit_picture();
    return picture_;
}

QPainter& Window::open_painter()
{
    if (contexts_++ == 0) {
        fit_picture();
        painter_ = std::make_unique<QPainter>(&picture_);
        painter_user = nullptr;
    }
    return *painter_;
}

void Window::close_painter(const QRect& drawn)
{
    if (--contexts_ == 0)
        painter_.reset();
    if (!drawn.isEmpty())
        update(drawn.adjusted(-1, -1, 1, 1));
}

void Window::paintEvent(QPaintEvent* event)
{
    paint_now();
    if (destroyed())
        return;
    const QImage& shown = picture();
    const qreal scale = shown.devicePixelRatio();
    QPainter painter(this);
    for (const QRect& part : event->region())
        painter.drawImage(QRectF(part), shown, QRectF(QPointF(part.topLeft()) * scale, QSizeF(part.size()) * scale));
}

// ------------------------------------------------------------------------------------------------ Qt's events

bool Window::event(QEvent* event)
{
    if (event->type() == paint_request) {
        paint_posted_ = false;
        paint_now();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && takes_keys) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void Window::resizeEvent(QResizeEvent*)
{
    tell_size();
}

void Window::showEvent(QShowEvent*)
{
    tell_size();
    invalidate(rect());
}

void Window::closeEvent(QCloseEvent* event)
{
    event->ignore(); // whether the window goes is the procedure's decision
    send(WM_CLOSE, 0, 0);
}

void Window::focusInEvent(QFocusEvent*)
{
    send(WM_SETFOCUS, 0, 0);
}

void Window::focusOutEvent(QFocusEvent*)
{
    if (!destroyed())
        send(WM_KILLFOCUS, 0, 0);
}

bool Window::focusNextPrevChild(bool next)
{
    return !takes_keys && QWidget::focusNextPrevChild(next);
}

// ------------------------------------------------------------------------------------------- for those who know Qt

QWidget* Widget_From_Window(HWND window)
{
    return Window::of(window);
}

HWND Window_From_Widget(const QWidget* widget)
{
    auto* window = dynamic_cast<Window*>(const_cast<QWidget*>(widget));
    return window ? window->handle() : nullptr;
}

QImage Window_Picture(HWND window)
{
    Window* found = Window::of(window);
    if (!found)
        return {};
    found->paint_now();
    return found->picture().copy();
}

void Window_Takes_Keys(HWND window, bool takes)
{
    if (Window* found = Window::of(window))
        found->takes_keys = takes;
}
