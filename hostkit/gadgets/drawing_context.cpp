#include "host/basics.h"
#include "host/gadgets.h"

#include <vector>

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

// The brackets that are open: the last one is the one being drawn in.
std::vector<Bracket>& open_brackets()
{
    static auto& brackets = *new std::vector<Bracket>;
    return brackets;
}

void show_innermost()
{
    const auto& brackets = open_brackets();
    Y_DC = brackets.empty() ? nullptr : brackets.back().context;
    Y_Window = brackets.empty() ? nullptr : brackets.back().window;
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
    auto& brackets = open_brackets();
    if (!brackets.empty() && window && brackets.back().window == window) {
        ++brackets.back().depth;
        return brackets.back().context != nullptr;
    }
    // On Windows a null window would give the whole screen.
    const HDC context = window ? GetDC(window) : nullptr;
    brackets.push_back({context, window, 1});
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
    auto& brackets = open_brackets();
    if (brackets.empty()) {
        Error_Fct(hwnd, 11, "Y_release() Failed!");
        return;
    }
    if (--brackets.back().depth == 0) {
        const Bracket closed = brackets.back();
        if (!closed.context || !ReleaseDC(closed.window, closed.context))
            Error_Fct(hwnd, 11, "Y_release() Failed!");
        brackets.pop_back();
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
