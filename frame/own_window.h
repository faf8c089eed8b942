#pragma once

#include "frame/registry.h"
#include "host/gadgets.h"

#include <algorithm>
#include <cstdint>

/// What panels need for windows of their own.
namespace frame {

inline HINSTANCE instance_of_active_window()
{
    const HWND active = GetActiveWindow();
    const auto instance = active ? reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(active, GWLP_HINSTANCE)) : nullptr;
    return instance ? instance : GetModuleHandleA(nullptr);
}

/// The place of a mouse message in the client area (y downward), recorded for the widgets as well.
inline POINT record_pointer(HWND window, LPARAM lparam)
{
    const auto word = static_cast<std::uintptr_t>(lparam);
    const POINT place{static_cast<short>(LOWORD(word)), static_cast<short>(HIWORD(word))};
    Y_Cursor(window, place.x, place.y);
    return place;
}

/// The buttons that are down, as in an up-down word.
inline int held_buttons()
{
    constexpr int left = 1, right = 2, middle = 4;
    return (getbutton(left) ? 16 : 0) | (getbutton(middle) ? 32 : 0) | (getbutton(right) ? 64 : 0);
}

/// The variables of a font of the interface.
struct Interface_Font {
    const char* name;
    const char* scale;
    const char* weight;
};
constexpr Interface_Font tool_font{
    "$INTERFACE_TOOL_FONT_NAME", "$INTERFACE_TOOL_FONT_SCALE", "$INTERFACE_TOOL_FONT_WEIGHT"};
constexpr Interface_Font title_font{
    "$INTERFACE_TITLE_FONT_NAME", "$INTERFACE_TITLE_FONT_SCALE", "$INTERFACE_TITLE_FONT_WEIGHT"};

/// Puts a font of the interface in place of `font`, which may be null. @param larger points more than the interface's
inline void renew_font(HFONT& font, const Interface_Font& described, int larger)
{
    if (font)
        DeleteObject(font);
    const int points = std::max(dimension(described.scale) + larger, 1);
    font = Y_Create_Font(
        array<const char>(described.name), static_cast<short>(points), array<const char>(described.weight));
}

}
