#include "platform/qt/window.h"

#include "platform/qt/key_table.h"
#include "platform/qt/window_widget.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHash>
#include <QTouchEvent>

#include <algorithm>
#include <mutex>
#include <utility>

namespace {

const QEvent::Type paint_request = static_cast<QEvent::Type>(QEvent::registerEventType());

// By number. Locked, because messages are posted from any thread.
struct Live_Windows {
    std::mutex mutex;
    QHash<quintptr, Window*> by_handle;
    quintptr last = 0x10000;
};

Live_Windows& live()
{
    static Live_Windows& windows = *new Live_Windows;
    return windows;
}

HWND add_live(Window* window)
{
    const std::lock_guard lock(live().mutex);
    live().last += 2;
    live().by_handle.insert(live().last, window);
    return reinterpret_cast<HWND>(live().last);
}

void remove_live(HWND handle)
{
    const std::lock_guard lock(live().mutex);
    live().by_handle.remove(reinterpret_cast<quintptr>(handle));
}

}

Window::Window(QWidget* parent, std::string window_class, WNDPROC procedure, HBRUSH class_background)
    : QWidget(parent), background(class_background), handle_(add_live(this)), window_class_(std::move(window_class)),
      procedure_(procedure)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setTabletTracking(true);
    setFocusPolicy(Qt::ClickFocus);
}

// Also when a widget of Qt's takes its children with it.
Window::~Window()
{
    if (!destroyed())
        tell_destroyed();
}

Window* Window::of(HWND window)
{
    const std::lock_guard lock(live().mutex);
    return live().by_handle.value(reinterpret_cast<quintptr>(window), nullptr);
}

bool Window::exists(const std::string& window_class)
{
    const std::lock_guard lock(live().mutex);
    const auto& windows = live().by_handle;
    return std::any_of(
        windows.begin(), windows.end(), [&](const Window* window) { return window->window_class_ == window_class; });
}

bool Window::destroyed() const
{
    return of(handle_) != this;
}

// ---------------------------------------------------------------------------------------------------- messages

LRESULT Window::call(UINT message, WPARAM wparam, LPARAM lparam, bool* unused)
{
    const Procedure_Call on_stack;
    bool* const outer = std::exchange(unused_, unused);
    LRESULT result = 0;
    try {
        result = procedure_(handle_, message, wparam, lparam);
    } catch (const std::exception& error) {
        qWarning("The procedure of a window failed: %s", error.what());
        leave_unused();
    }
    unused_ = outer;
    return result;
}

LRESULT Window::send(UINT message, WPARAM wparam, LPARAM lparam)
{
    return call(message, wparam, lparam, nullptr);
}

bool Window::offer(UINT message, WPARAM wparam, LPARAM lparam)
{
    bool unused = false;
    const LRESULT result = call(message, wparam, lparam, &unused);
    return result == 0 && !unused;
}

void Window::leave_unused()
{
    if (unused_)
        *unused_ = true;
}

// The window hears of it first; its handle and its contexts are void from here on.
void Window::tell_destroyed()
{
    send(WM_DESTROY, 0, 0);
    forget_contexts_of(this);
    remove_live(handle_);
    release_capture_of(this);
}

void Window::destroy()
{
    tell_destroyed();
    const auto children_now = children();
    for (QObject* child : children_now) {
        if (auto* window = dynamic_cast<Window*>(child); window && !window->destroyed())
            window->destroy();
    }
    hide();
    if (Procedure_Call::any())
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
    invalidate(rect(), Background::erased);
}

// ---------------------------------------------------------------------------------------------------- painting

// One part that is to be erased has all of them erased.
void Window::invalidate(const QRect& rectangle, Background under)
{
    to_paint_ += rectangle & rect();
    if (under == Background::erased)
        under_ = under;
    if (paint_posted_ || to_paint_.isEmpty() || !isVisible())
        return;
    paint_posted_ = true;
    QCoreApplication::postEvent(this, new QEvent(paint_request), Qt::LowEventPriority);
}

Window::To_Paint Window::validate()
{
    const QRect area = std::exchange(to_paint_, {}).boundingRect();
    return {area, std::exchange(under_, Background::kept)};
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
    const bool touched = event->type() == QEvent::TouchBegin || event->type() == QEvent::TouchUpdate ||
                         event->type() == QEvent::TouchEnd || event->type() == QEvent::TouchCancel;
    if (touched && isEnabled() && testAttribute(Qt::WA_AcceptTouchEvents)) {
        event->accept();
        touch(*static_cast<QTouchEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

void Window::resizeEvent(QResizeEvent*)
{
    tell_size();
}

// Its picture stays while the desktop has put a window away.
void Window::showEvent(QShowEvent* event)
{
    tell_size();
    if (!event->spontaneous())
        invalidate(rect(), Background::erased);
}

// A window that is put away has no size; it has one again, and is told so, when it is back.
void Window::changeEvent(QEvent* event)
{
    if (event->type() != QEvent::WindowStateChange || destroyed())
        return QWidget::changeEvent(event);
    if (!isMinimized())
        return tell_size();
    told_size_ = {0, 0};
    send(WM_SIZE, SIZE_MINIMIZED, 0);
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
