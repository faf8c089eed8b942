#include "host/basics.h"
#include "host/gadgets.h"

#include <array>
#include <cstddef>

HDC Y_DC = nullptr;
HWND Y_Window = nullptr;
int YCursor_X = 0;
int YCursor_Y = 0;
COLORREF Current_Color = 0;
CRITICAL_SECTION Critical;
unsigned char Critical_Flag = 0;
short SPACE = 0;
short BORDER = 0;

namespace {

struct Bracket {
    HDC context;
    HWND window;
    int depth;
};

// The brackets that are open: the last one is the one being drawn in. Room for a window within a window many times
// over, and no memory to be asked for; what is nested deeper gets no context.
constexpr std::size_t most_brackets = 32;
std::array<Bracket, most_brackets> brackets;
std::size_t open_brackets = 0;

Bracket* innermost()
{
    static Bracket without_context;
    if (open_brackets == 0)
        return nullptr;
    if (open_brackets <= most_brackets)
        return &brackets[open_brackets - 1];
    without_context = {nullptr, nullptr, 1};
    return &without_context;
}

void show_innermost()
{
    const Bracket* bracket = innermost();
    Y_DC = bracket ? bracket->context : nullptr;
    Y_Window = bracket ? bracket->window : nullptr;
}

// y grows upward from the lower-left corner.
void map_upward(HDC context, HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowExtEx(context, client.right, client.bottom, nullptr);
    SetViewportExtEx(context, client.right, -client.bottom, nullptr);
    SetViewportOrgEx(context, 0, client.bottom - 1, nullptr);
}

}

int Y_setup(HWND window, const char* caller)
{
    if (!Critical_Flag) {
        InitializeCriticalSection(&Critical);
        Critical_Flag = 1;
    }
    EnterCriticalSection(&Critical);
    if (Bracket* open = innermost(); open && window && open->window == window) {
        ++open->depth;
        return open->context != nullptr;
    }
    // On Windows a null window would give the whole screen.
    const bool can_open = window && open_brackets < most_brackets;
    const HDC context = can_open ? GetDC(window) : nullptr;
    ++open_brackets;
    *innermost() = {context, window, 1};
    show_innermost();
    if (!context) {
        Error_Fct(hwnd, 11, "Y_setup(%s) GetDC failed", caller ? caller : "---");
        return 0;
    }
    map_upward(context, window);
    return 1;
}

void Y_release()
{
    Bracket* open = innermost();
    if (!open) {
        Error_Fct(hwnd, 11, "Y_release() Failed!");
        return;
    }
    if (--open->depth == 0) {
        if (!open->context || !ReleaseDC(open->window, open->context))
            Error_Fct(hwnd, 11, "Y_release() Failed!");
        --open_brackets;
        show_innermost();
    }
    LeaveCriticalSection(&Critical);
}

void Y_Cursor(HWND window, int x, int y)
{
    POINT point{x, y};
    if (x == 0 && y == 0)
        GetCursorPos(&point);
    else
        ClientToScreen(window, &point);
    YCursor_X = point.x;
    YCursor_Y = point.y;
}

HFONT Y_Create_Font(const char* name, short scale, const char* weight)
{
    constexpr int pixels_per_inch = 96;
    constexpr int points_per_inch = 72;
    const int height = (scale * pixels_per_inch + points_per_inch / 2) / points_per_inch;
    const bool bold = weight && *weight == 'b';
    return CreateFontA(-height, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
        OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, name ? name : "");
}
