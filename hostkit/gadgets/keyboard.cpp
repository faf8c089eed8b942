#include "host/gadgets.h"

namespace {

int of_key(int key)
{
    constexpr int navigation = 2048;
    return key >= VK_PRIOR && key <= VK_DELETE ? navigation + key : 0;
}

int of_character(int character)
{
    constexpr int delete_character = 127; // comes as a key
    const bool control = character < 32 && character != VK_BACK && character != VK_TAB && character != VK_RETURN &&
                         character != VK_ESCAPE;
    return control || character == delete_character ? 0 : character;
}

}

int Parse_Keyboard(HWND, UINT message, WPARAM wparam, LPARAM)
{
    const int code = static_cast<int>(wparam);
    switch (message) {
    case WM_CHAR:
        return of_character(code);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return of_key(code);
    default:
        return 0;
    }
}

// What the key types waits behind it.
int Parse_Dialog(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (message != WM_KEYDOWN)
        return 0;
    MSG typed{};
    const bool types = PeekMessageA(&typed, window, WM_CHAR, WM_CHAR, PM_REMOVE);
    if (types && typed.message == WM_QUIT)
        PostQuitMessage(static_cast<int>(typed.wParam)); // no filter holds it back
    const int key = Parse_Keyboard(window, message, wparam, lparam);
    return key || !types ? key : Parse_Keyboard(window, typed.message, typed.wParam, typed.lParam);
}
