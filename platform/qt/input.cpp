#include "platform/qt/dialog.h"
#include "platform/qt/key_table.h"
#include "platform/qt/window.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>

#include <algorithm>
#include <cstring>
#include <iterator>

// Qt's mouse and keyboard events as window messages, and the state of keys, cursor and capture.

namespace {

Window* capture = nullptr;

struct Key_Pair {
    int qt;
    int windows;
};

constexpr Key_Pair key_pairs[] = {{Qt::Key_Backspace, VK_BACK}, {Qt::Key_Tab, VK_TAB}, {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN}, {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Space, VK_SPACE},
    {Qt::Key_PageUp, VK_PRIOR}, {Qt::Key_PageDown, VK_NEXT}, {Qt::Key_End, VK_END}, {Qt::Key_Home, VK_HOME},
    {Qt::Key_Left, VK_LEFT}, {Qt::Key_Up, VK_UP}, {Qt::Key_Right, VK_RIGHT}, {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Insert, VK_INSERT}, {Qt::Key_Delete, VK_DELETE}, {Qt::Key_Shift, VK_SHIFT}, {Qt::Key_Control, VK_CONTROL},
    {Qt::Key_Alt, VK_MENU}};

UINT button_message(Qt::MouseButton button, bool down)
{
    switch (button) {
    case Qt::LeftButton:
        return down ? WM_LBUTTONDOWN : WM_LBUTTONUP;
    case Qt::RightButton:
        return down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
    case Qt::MiddleButton:
        return down ? WM_MBUTTONDOWN : WM_MBUTTONUP;
    default:
        return WM_NULL;
    }
}

Qt::CursorShape cursor_shape(std::uintptr_t name)
{
    switch (name) {
    case 32513:
        return Qt::IBeamCursor;
    case 32514:
        return Qt::WaitCursor;
    case 32515:
        return Qt::CrossCursor;
    case 32649:
        return Qt::PointingHandCursor;
    default:
        return Qt::ArrowCursor;
    }
}

}

// ---------------------------------------------------------------------------------------------- state of the keys

Key_Table& Key_Table::get()
{
    static Key_Table& table = *new Key_Table;
    return table;
}

void Key_Table::set_all(const BYTE* keys)
{
    std::memcpy(keys_, keys, sizeof keys_);
}

void Key_Table::follow_buttons(Qt::MouseButtons buttons)
{
    set(VK_LBUTTON, buttons & Qt::LeftButton);
    set(VK_RBUTTON, buttons & Qt::RightButton);
    set(VK_MBUTTON, buttons & Qt::MiddleButton);
}

void Key_Table::follow_modifiers(Qt::KeyboardModifiers modifiers)
{
    set(VK_SHIFT, modifiers & Qt::ShiftModifier);
    set(VK_CONTROL, modifiers & Qt::ControlModifier);
    set(VK_MENU, modifiers & Qt::AltModifier);
}

bool Key_Table::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        follow_buttons(mouse->buttons());
        follow_modifiers(mouse->modifiers());
        break;
    }
    case QEvent::Wheel:
        follow_modifiers(static_cast<QWheelEvent*>(event)->modifiers());
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto* key = static_cast<QKeyEvent*>(event);
        set(virtual_key(*key), event->type() == QEvent::KeyPress);
        break;
    }
    default:
        break;
    }
    return false;
}

int virtual_key(const QKeyEvent& event)
{
    const int key = event.key();
    for (const auto& [qt, windows] : key_pairs) {
        if (qt == key)
            return windows;
    }
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return VK_F1 + key - Qt::Key_F1;
    return 0;
}

WPARAM mouse_flags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    return (buttons & Qt::LeftButton ? MK_LBUTTON : 0) | (buttons & Qt::RightButton ? MK_RBUTTON : 0) |
           (buttons & Qt::MiddleButton ? MK_MBUTTON : 0) | (modifiers & Qt::ShiftModifier ? MK_SHIFT : 0) |
           (modifiers & Qt::ControlModifier ? MK_CONTROL : 0);
}

SHORT GetKeyState(int key)
{
    return Key_Table::get().down(key) ? static_cast<SHORT>(-128) : SHORT{0};
}

BOOL GetKeyboardState(BYTE* keys)
{
    std::memcpy(keys, Key_Table::get().all(), 256);
    return TRUE;
}

BOOL SetKeyboardState(BYTE* keys)
{
    Key_Table::get().set_all(keys);
    return TRUE;
}

// ------------------------------------------------------------------------------------------------ mouse and keys

void Window::mouse(QMouseEvent* event, UINT message)
{
    Window* target = capture ? capture : this;
    const QPoint place =
        target == this ? event->position().toPoint() : target->mapFromGlobal(event->globalPosition().toPoint());
    if (message != WM_NULL)
        target->send(message, mouse_flags(event->buttons(), event->modifiers()), MAKELPARAM(place.x(), place.y()));
    event->accept(); // a child window's mouse is nobody else's
}

void Window::mousePressEvent(QMouseEvent* event)
{
    mouse(event, button_message(event->button(), true));
}

void Window::mouseDoubleClickEvent(QMouseEvent* event)
{
    mouse(event, button_message(event->button(), true));
}

void Window::mouseReleaseEvent(QMouseEvent* event)
{
    mouse(event, button_message(event->button(), false));
}

void Window::mouseMoveEvent(QMouseEvent* event)
{
    mouse(event, WM_MOUSEMOVE);
}

// With Alt held Qt turns the wheel on its side.
void Window::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const QPoint place = event->globalPosition().toPoint();
    const auto flags = static_cast<int>(mouse_flags(event->buttons(), event->modifiers()));
    event->setAccepted(offer(WM_MOUSEWHEEL, MAKEWPARAM(flags, delta), MAKELPARAM(place.x(), place.y())));
}

void Window::leaveEvent(QEvent*)
{
    if (std::exchange(tracks_leave, false))
        send(WM_MOUSELEAVE, 0, 0);
}

namespace {

// Alt makes it one of the system's keys; with Control it is a way to type.
bool is_system_key(const QKeyEvent& event)
{
    const bool alt = event.key() == Qt::Key_Alt || (event.modifiers() & Qt::AltModifier);
    return alt && !(event.modifiers() & Qt::ControlModifier);
}

LPARAM key_flags(const QKeyEvent& event)
{
    constexpr LPARAM once = 1;
    constexpr LPARAM alt_is_down = LPARAM{1} << 29;
    return once | (is_system_key(event) ? alt_is_down : 0);
}

// Whoever is told of the key can look at what it types, which comes next.
void post_characters(HWND window, const QString& text)
{
    const auto characters = text.toUcs4();
    for (const uint character : characters)
        PostMessageA(window, WM_CHAR, character, 1);
}

}

void Window::keyPressEvent(QKeyEvent* event)
{
    const bool system = is_system_key(*event);
    MSG message{};
    message.hwnd = handle();
    message.message = system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(virtual_key(*event));
    message.lParam = key_flags(*event);
    if (Dialog::takes_key(message))
        return event->accept();
    if (!system && event->key() != Qt::Key_Delete)
        post_characters(handle(), event->text());
    bool used = message.wParam != 0 && offer(message.message, message.wParam, message.lParam);
    while (take_posted(handle(), WM_CHAR, message))
        used = (!destroyed() && offer(message.message, message.wParam, message.lParam)) || used;
    event->setAccepted(used);
}

void Window::keyReleaseEvent(QKeyEvent* event)
{
    const int key = virtual_key(*event);
    const UINT message = is_system_key(*event) ? WM_SYSKEYUP : WM_KEYUP;
    event->setAccepted(key != 0 && offer(message, static_cast<WPARAM>(key), key_flags(*event)));
}

// ------------------------------------------------------------------------------- focus, capture, pointer, cursor

Window* captured_window()
{
    return capture;
}

void release_capture_of(Window* window)
{
    if (capture == window)
        capture = nullptr;
}

HWND SetFocus(HWND window)
{
    const HWND before = GetFocus();
    if (Window* found = Window::of(window))
        found->setFocus();
    else if (Window* focused = Window::of(before); focused && !window)
        focused->clearFocus();
    return before;
}

HWND GetFocus()
{
    auto* focused = dynamic_cast<Window*>(QApplication::focusWidget());
    return focused ? focused->handle() : nullptr;
}

HWND SetCapture(HWND window)
{
    const HWND before = GetCapture();
    capture = Window::of(window);
    return before;
}

HWND GetCapture()
{
    return capture ? capture->handle() : nullptr;
}

BOOL ReleaseCapture()
{
    capture = nullptr;
    return TRUE;
}

BOOL TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    Window* window = track ? Window::of(track->hwndTrack) : nullptr;
    if (!window)
        return FALSE;
    window->tracks_leave = (track->dwFlags & TME_LEAVE) != 0;
    return TRUE;
}

BOOL GetCursorPos(POINT* point)
{
    const QPoint place = QCursor::pos();
    *point = {place.x(), place.y()};
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    QCursor::setPos(x, y);
    return TRUE;
}

HCURSOR LoadCursorA(HINSTANCE, LPCSTR name)
{
    return reinterpret_cast<HCURSOR>(const_cast<char*>(name)); // the system's cursors are known by number
}

HICON LoadIconA(HINSTANCE, LPCSTR)
{
    return nullptr;
}

namespace {

// The wait cursor is shown whatever window the pointer is over, the others by the window under it.
void show_cursor(HCURSOR cursor, HCURSOR before)
{
    const HCURSOR wait = LoadCursorA(nullptr, IDC_WAIT);
    if (cursor == wait && before != wait)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (cursor != wait && before == wait)
        QGuiApplication::restoreOverrideCursor();
    if (auto* window = dynamic_cast<Window*>(QApplication::widgetAt(QCursor::pos())); window && cursor != wait)
        window->setCursor(cursor_shape(reinterpret_cast<std::uintptr_t>(cursor)));
}

}

HCURSOR SetCursor(HCURSOR cursor)
{
    static HCURSOR shown = nullptr;
    if (QCoreApplication::instance())
        show_cursor(cursor, shown);
    return std::exchange(shown, cursor);
}

int GetSystemMetrics(int index)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    switch (index) {
    case SM_CXSCREEN:
        return screen ? screen->size().width() : 0;
    case SM_CYSCREEN:
        return screen ? screen->size().height() : 0;
    case SM_CXFRAME:
    case SM_CYFRAME:
        return 4;
    case SM_CYCAPTION:
        return 23;
    default:
        return 0;
    }
}

// A monitor is known by its number, counted from 1.
HMONITOR MonitorFromPoint(POINT point, DWORD)
{
    ensure_application();
    const auto screens = QGuiApplication::screens();
    const auto distance = [&](const QScreen* screen) {
        const QRect all = screen->geometry();
        const int dx = std::max({all.left() - point.x, 0, point.x - all.right()});
        const int dy = std::max({all.top() - point.y, 0, point.y - all.bottom()});
        return dx + dy;
    };
    const auto nearest = std::min_element(screens.begin(), screens.end(),
        [&](const QScreen* one, const QScreen* other) { return distance(one) < distance(other); });
    return reinterpret_cast<HMONITOR>(nearest - screens.begin() + 1);
}

BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFO* information)
{
    const auto screens = QGuiApplication::screens();
    const auto number = reinterpret_cast<std::uintptr_t>(monitor);
    if (!information || information->cbSize != sizeof *information || number < 1 ||
        number > static_cast<std::uintptr_t>(screens.size()))
        return FALSE;
    const auto rectangle = [](const QRect& area) {
        return RECT{area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
    };
    const QScreen* screen = screens[static_cast<qsizetype>(number - 1)];
    information->rcMonitor = rectangle(screen->geometry());
    information->rcWork = rectangle(screen->availableGeometry());
    information->dwFlags = screen == QGuiApplication::primaryScreen();
    return TRUE;
}
