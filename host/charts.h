#pragma once

#include "host/gadgets.h"

#include <algorithm>

#ifdef CHARTS_BUILD
#define CHARTS_API VETRA_EXPORT
#else
#define CHARTS_API VETRA_IMPORT
#endif

// The host's plotting library, as far as the panels call it. A host supplies it as the library `Charts`.

/// Where a plot is drawn inside its box, pixels: lower-left corner and size. Without room the size is not positive.
struct Plot_Area {
    int x;
    int y;
    int width;
    int height;
};

/// The room that axes leave a plot: their lines, numbers and titles have the rest of the box.
inline Plot_Area Plot_Area_Of(const Boxs& box)
{
    const int margin = std::min(box.width / 50, box.height / 50);
    return {box.x + 2 * margin + 42, box.y + 3 * margin + 37, box.width - (2 * margin + 40) - (margin + 14),
        box.height - (3 * margin + 35) - (margin + 14)};
}

/// Draws an axis of a plot over what its box shows: its line with numbers at round steps, grid lines through the plot
/// area, the title with the unit behind it. A value v stands (v - from) / (to - from) of the area's width or height
/// from the area's corner, to the nearest pixel. Numbers and titles do not meet each other; what has no room is left
/// out. Nothing is drawn when the area is empty or the bounds are not finite and ascending.
///
/// @param box         its rectangle, window and colours: text for the writing, frame for the lines, back behind them
/// @param kind        144: with grid lines
/// @param font_scale  size in points; the font is the one of the `"$INTERFACE_TOOL_FONT_..."` variables
/// @param x_title     UTF-8; the titles and units of both axes may be null or empty
/// @param from        the value at the area's left or lower edge, in the unit that the title names
/// @param to          the value at the opposite edge
CHARTS_API void Plot_Window_Axes_X(Boxs* box, int kind, short font_scale, const char* x_title, const char* x_unit,
    const char* y_title, const char* y_unit, float from, float to);
CHARTS_API void Plot_Window_Axes_Y(Boxs* box, int kind, short font_scale, const char* x_title, const char* x_unit,
    const char* y_title, const char* y_unit, float from, float to);
