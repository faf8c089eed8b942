#include "platform/qt/window.h"

#include <QApplication>
#include <QWindow>

#include <algorithm>

// Where windows are and in which order, and whether they are shown, enabled and active.

namespace {

// A window whose parent is disabled may be enabled all the same.
bool is_disabled(const Window& window)
{
    return window.testAttribute(Qt::WA_ForceDisabled);
}

// Setting the widget's flags would hide it and make it a new native window.
void keep_above_all(Window& window)
{
    window.overrideWindowFlags(window.windowFlags() | Qt::WindowStaysOnTopHint);
    if (QWindow* native = window.windowHandle())
        native->setFlag(Qt::WindowStaysOnTopHint);
}

}

BOOL IsWindowVisible(HWND window)
{
    const Window* found = Window::of(window);
    return found && found->isVisible();
}

BOOL ShowWindow(HWND window, int command)
{
    Window* found = Window::of(window);
    if (!found)
        return FALSE;
    const bool was_visible = !found->isHidden();
    found->setVisible(command != SW_HIDE);
    return was_visible;
}

BOOL IsWindowEnabled(HWND window)
{
    const Window* found = Window::of(window);
    return found && !is_disabled(*found);
}

BOOL EnableWindow(HWND window, BOOL enable)
{
    Window* found = Window::of(window);
    if (!found)
        return FALSE;
    const bool was_disabled = is_disabled(*found);
    const bool disable = !enable;
    if (disable == was_disabled)
        return was_disabled;
    if (disable)
        release_capture_of(found);
    found->setDisabled(disable);
    SendMessageA(window, WM_ENABLE, !disable, 0);
    return was_disabled;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint)
{
    const BOOL moved = SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    if (Window* found = repaint ? Window::of(window) : nullptr)
        found->invalidate(found->rect(), Window::Background::erased);
    return moved;
}

// Whatever is told of it may destroy the window.
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    Window* found = Window::of(window);
    const bool reorder = (flags & SWP_NOZORDER) == 0;
    if (!found || (reorder && after != HWND_TOP && after != HWND_TOPMOST))
        return FALSE;
    const QPoint corner = flags & SWP_NOMOVE ? found->geometry().topLeft() : QPoint(x, y);
    const QSize size = flags & SWP_NOSIZE ? found->size() : QSize(std::max(width, 0), std::max(height, 0));
    if ((flags & SWP_NOMOVE) == 0 || (flags & SWP_NOSIZE) == 0)
        found->setGeometry(QRect(corner, size));
    found->tell_size();
    if (reorder && Window::of(window)) {
        if (after == HWND_TOPMOST && found->isWindow())
            keep_above_all(*found);
        found->raise();
    }
    if ((flags & SWP_SHOWWINDOW) != 0 && Window::of(window))
        found->show();
    if ((flags & SWP_NOACTIVATE) == 0 && Window::of(window) && found->isWindow())
        found->activateWindow();
    return TRUE;
}

BOOL BringWindowToTop(HWND window)
{
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

HWND GetActiveWindow()
{
    auto* active = dynamic_cast<Window*>(QApplication::activeWindow());
    return active && Window::of(active->handle()) ? active->handle() : nullptr;
}

// The desktop's frame is not ours to know: every window seems to have the same one.
BOOL GetWindowRect(HWND window, RECT* rectangle)
{
    const Window* found = Window::of(window);
    if (!found || !rectangle)
        return FALSE;
    const QPoint corner = found->mapToGlobal(QPoint(0, 0));
    *rectangle = {corner.x(), corner.y(), corner.x() + found->width(), corner.y() + found->height()};
    if (!found->isWindow() || (found->windowFlags() & Qt::FramelessWindowHint))
        return TRUE;
    constexpr int padding = 4;
    const int beside = GetSystemMetrics(SM_CXFRAME) + padding;
    const int below = GetSystemMetrics(SM_CYFRAME) + padding;
    rectangle->left -= beside;
    rectangle->right += beside;
    rectangle->top -= below + GetSystemMetrics(SM_CYCAPTION);
    rectangle->bottom += below;
    return TRUE;
}
