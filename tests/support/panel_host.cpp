#include "tests/support/panel_host.h"

#include "hostkit/structures/tree.h"

namespace test {

namespace {

// The client point of a place, as window messages carry it.
POINT client_point(HWND window, Place place)
{
    RECT client{};
    GetClientRect(window, &client);
    return {place.x, client.bottom - 1 - place.y};
}

LPARAM packed(HWND window, Place place)
{
    const POINT point = client_point(window, place);
    return MAKELPARAM(point.x, point.y);
}

struct Button_Codes {
    UINT down;
    WPARAM flag;
    int key;
};

Button_Codes codes(Button button)
{
    switch (button) {
    case Button::middle:
        return {WM_MBUTTONDOWN, MK_MBUTTON, VK_MBUTTON};
    case Button::right:
        return {WM_RBUTTONDOWN, MK_RBUTTON, VK_RBUTTON};
    default:
        return {WM_LBUTTONDOWN, MK_LBUTTON, VK_LBUTTON};
    }
}

// The thread's table of keys, with one button down or none.
void set_button_state(int key)
{
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    for (const int button : {VK_LBUTTON, VK_MBUTTON, VK_RBUTTON})
        keys[button] = button == key ? 0x80 : 0;
    SetKeyboardState(keys);
}

int held_button()
{
    for (const int button : {VK_LBUTTON, VK_MBUTTON, VK_RBUTTON}) {
        if (getbutton(button))
            return button;
    }
    return 0;
}

WPARAM held_flags()
{
    switch (held_button()) {
    case VK_LBUTTON:
        return MK_LBUTTON;
    case VK_MBUTTON:
        return MK_MBUTTON;
    case VK_RBUTTON:
        return MK_RBUTTON;
    default:
        return 0;
    }
}

LRESULT CALLBACK plain_window(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    return DefWindowProcA(window, message, wparam, lparam);
}

HWND make_main_window()
{
    WNDCLASSA description{};
    description.lpfnWndProc = plain_window;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "Vetra test";
    RegisterClassA(&description);
    const HWND window = CreateWindowExA(
        0, "Vetra test", "", WS_OVERLAPPEDWINDOW, 0, 0, 800, 800, nullptr, nullptr, description.hInstance, nullptr);
    ShowWindow(window, SW_SHOW);
    return window;
}

}

Panel_Host::Panel_Host() : main_window_(make_main_window())
{
    hostkit::Tree_Reset();
    hostkit::Registry_Reset();
    hostkit::Segmentation_Reset();
    hwnd = main_window_;
    set_button_state(0);
    subscription_ = hostkit::On_Update([this](unsigned long long flags) { broadcasts_.push_back(flags); });
}

Panel_Host::~Panel_Host()
{
    DestroyWindow(main_window_);
    hwnd = nullptr;
}

void press(HWND window, Place place, Button button)
{
    const Button_Codes code = codes(button);
    set_button_state(code.key);
    SendMessageA(window, code.down, code.flag, packed(window, place));
}

void release(HWND window, Place place)
{
    const int button = held_button();
    set_button_state(0);
    const UINT message = button == VK_RBUTTON ? WM_RBUTTONUP : button == VK_MBUTTON ? WM_MBUTTONUP : WM_LBUTTONUP;
    SendMessageA(window, message, 0, packed(window, place));
}

void click(HWND window, Place place, Button button)
{
    press(window, place, button);
    release(window, place);
}

void move(HWND window, Place place)
{
    SendMessageA(window, WM_MOUSEMOVE, held_flags(), packed(window, place));
}

void turn_wheel(HWND window, Place place, int delta)
{
    POINT point = client_point(window, place);
    ClientToScreen(window, &point);
    SendMessageA(window, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(point.x, point.y));
}

void type(HWND window, const std::string& text)
{
    for (const char letter : text)
        SendMessageA(window, WM_CHAR, static_cast<unsigned char>(letter), 0);
}

void key(HWND window, int virtual_key)
{
    SendMessageA(window, WM_KEYDOWN, static_cast<WPARAM>(virtual_key), 0);
}

void hold_keys(bool shift, bool control)
{
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    keys[VK_CONTROL] = control ? 0x80 : 0;
    SetKeyboardState(keys);
}

void point(HWND window, Place place)
{
    POINT point = client_point(window, place);
    ClientToScreen(window, &point);
    YCursor_X = point.x;
    YCursor_Y = point.y;
}

Colors pixel(HWND window, Place place)
{
    const HDC context = GetDC(window);
    const POINT point = client_point(window, place);
    const COLORREF color = GetPixel(context, point.x, point.y);
    ReleaseDC(window, context);
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

std::vector<COLORREF> pixels(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    std::vector<COLORREF> result;
    result.reserve(static_cast<size_t>(client.right) * static_cast<size_t>(client.bottom));
    const HDC context = GetDC(window);
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x)
            result.push_back(GetPixel(context, x, y));
    }
    ReleaseDC(window, context);
    return result;
}

}
