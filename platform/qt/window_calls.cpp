#include "platform/qt/key_table.h"
#include "platform/qt/window.h"

#include <QApplication>
#include <QScreen>

#include <cstring>
#include <map>
#include <string>

// Window classes, and the calls on windows.

namespace {

struct Window_Class {
    WNDPROC procedure;
    HBRUSH background;
};

std::map<std::string, Window_Class>& window_classes()
{
    static auto& classes = *new std::map<std::string, Window_Class>;
    return classes;
}

ATOM add_class(LPCSTR name, const Window_Class& added)
{
    static ATOM last = 0xC000;
    if (!name || !added.procedure)
        return 0;
    return window_classes().emplace(name, added).second ? ++last : ATOM{0};
}

bool no_display()
{
    return qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
           qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// A menu-like window of its owner's.
void make_popup(Window& window)
{
    window.setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
}

void place_new(Window& window, bool child, int x, int y, int width, int height)
{
    constexpr QSize usual(640, 480);
    if (width == CW_USEDEFAULT)
        window.resize(usual);
    else
        window.resize(std::max(width, 0), std::max(height, 0));
    if (child || x != CW_USEDEFAULT)
        window.move(x == CW_USEDEFAULT ? 0 : x, x == CW_USEDEFAULT ? 0 : y);
}

}

void ensure_application()
{
    static bool watched = false;
    if (!QCoreApplication::instance()) {
        static int argument_count = 1;
        static char name[] = "vetra";
        static char* arguments[] = {name, nullptr};
        if (no_display())
            qputenv("QT_QPA_PLATFORM", "offscreen");
        (new QApplication(argument_count, arguments))->setQuitOnLastWindowClosed(false);
        watched = false;
    }
    if (!std::exchange(watched, true))
        QCoreApplication::instance()->installEventFilter(&Key_Table::get());
}

HMODULE GetModuleHandleA(LPCSTR)
{
    static char program;
    return reinterpret_cast<HMODULE>(&program);
}

ATOM RegisterClassA(const WNDCLASSA* description)
{
    return description ? add_class(description->lpszClassName, {description->lpfnWndProc, description->hbrBackground})
                       : ATOM{0};
}

ATOM RegisterClassExA(const WNDCLASSEXA* description)
{
    if (!description || description->cbSize != sizeof *description)
        return 0;
    return add_class(description->lpszClassName, {description->lpfnWndProc, description->hbrBackground});
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE)
{
    const auto found = window_classes().find(name ? name : "");
    if (found == window_classes().end() || Window::exists(name))
        return FALSE;
    DeleteObject(found->second.background); // it is the class's own
    window_classes().erase(found);
    return TRUE;
}

HWND CreateWindowExA(DWORD extended_style, LPCSTR class_name, LPCSTR title, DWORD style, int x, int y, int width,
    int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter)
{
    const auto found = window_classes().find(class_name ? class_name : "");
    Window* owner = Window::of(parent);
    if (found == window_classes().end() || (parent && !owner))
        return nullptr;
    ensure_application();
    const bool child = (style & WS_CHILD) != 0;
    const bool popup = !child && (style & WS_POPUP) != 0;
    auto* window =
        new Window(child || popup ? owner : nullptr, found->first, found->second.procedure, found->second.background);
    window->instance = instance;
    if (popup)
        make_popup(*window);
    window->setWindowTitle(QString::fromUtf8(title));
    place_new(*window, child, x, y, width, height);

    const HWND handle = window->handle();
    CREATESTRUCTA create{parameter, instance, menu, parent, window->height(), window->width(), window->y(), window->x(),
        static_cast<LONG>(style), title, class_name, extended_style};
    if (window->send(WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        DestroyWindow(handle);
        return nullptr;
    }
    if (Window::of(handle))
        window->tell_size();
    if (Window::of(handle) && (style & WS_VISIBLE))
        window->show();
    return Window::of(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND window)
{
    Window* found = Window::of(window);
    if (!found)
        return FALSE;
    found->destroy();
    return TRUE;
}

BOOL IsWindow(HWND window)
{
    return Window::of(window) != nullptr;
}

HWND GetParent(HWND window)
{
    const Window* found = Window::of(window);
    auto* parent = found ? dynamic_cast<Window*>(found->parentWidget()) : nullptr;
    return parent ? parent->handle() : nullptr;
}

BOOL GetClientRect(HWND window, RECT* client)
{
    const Window* found = Window::of(window);
    if (!found || !client)
        return FALSE;
    *client = {0, 0, found->width(), found->height()};
    return TRUE;
}

BOOL ClientToScreen(HWND window, POINT* point)
{
    const Window* found = Window::of(window);
    if (!found || !point)
        return FALSE;
    const QPoint place = found->mapToGlobal(QPoint(point->x, point->y));
    *point = {place.x(), place.y()};
    return TRUE;
}

BOOL ScreenToClient(HWND window, POINT* point)
{
    const Window* found = Window::of(window);
    if (!found || !point)
        return FALSE;
    const QPoint place = found->mapFromGlobal(QPoint(point->x, point->y));
    *point = {place.x(), place.y()};
    return TRUE;
}

BOOL SetWindowTextA(HWND window, LPCSTR text)
{
    Window* found = Window::of(window);
    if (!found)
        return FALSE;
    found->setWindowTitle(QString::fromUtf8(text));
    return TRUE;
}

int GetWindowTextA(HWND window, LPSTR text, int size)
{
    const Window* found = Window::of(window);
    if (!found || !text || size <= 0)
        return 0;
    const QByteArray title = found->windowTitle().toUtf8().left(size - 1);
    std::memcpy(text, title.constData(), static_cast<size_t>(title.size()) + 1);
    return static_cast<int>(title.size());
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value)
{
    Window* found = Window::of(window);
    if (!found || (index != GWLP_USERDATA && index != DWLP_MSGRESULT))
        return 0;
    return std::exchange(index == GWLP_USERDATA ? found->user_data : found->message_result, value);
}

LONG_PTR GetWindowLongPtrA(HWND window, int index)
{
    const Window* found = Window::of(window);
    if (!found)
        return 0;
    switch (index) {
    case GWLP_USERDATA:
        return found->user_data;
    case DWLP_MSGRESULT:
        return found->message_result;
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(found->instance);
    default:
        return 0;
    }
}

BOOL InvalidateRect(HWND window, const RECT* rectangle, BOOL erase)
{
    Window* found = Window::of(window);
    if (!found)
        return FALSE;
    found->invalidate(
        rectangle ? QRect(QPoint(rectangle->left, rectangle->top), QPoint(rectangle->right - 1, rectangle->bottom - 1))
                  : found->rect(),
        erase ? Window::Background::erased : Window::Background::kept);
    return TRUE;
}

BOOL UpdateWindow(HWND window)
{
    Window* found = Window::of(window);
    if (!found)
        return FALSE;
    found->paint_now();
    return TRUE;
}

HDC BeginPaint(HWND window, PAINTSTRUCT* paint)
{
    Window* found = Window::of(window);
    if (!found || !paint)
        return nullptr;
    const auto [part, under] = found->validate();
    *paint = {};
    paint->hdc = GetDC(window);
    IntersectClipRect(paint->hdc, part.left(), part.top(), part.left() + part.width(), part.top() + part.height());
    paint->rcPaint = {part.left(), part.top(), part.left() + part.width(), part.top() + part.height()};
    if (under == Window::Background::erased)
        paint->fErase = FillRect(paint->hdc, &paint->rcPaint, found->background) == 0;
    return paint->hdc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT* paint)
{
    return paint && ReleaseDC(window, paint->hdc) != 0;
}
