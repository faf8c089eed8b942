#pragma once

#include "host/gadgets.h"

namespace frame {

constexpr short to_short(int pixels)
{
    return static_cast<short>(pixels);
}

/// Gives a widget the colours and the font of the area that it lies in.
inline void take_look(Tools& widget, const Tools& area)
{
    widget.frame = area.frame;
    widget.back = area.back;
    widget.text = area.text;
    widget.font = area.font;
}

/// Puts a widget somewhere. @return whether it was somewhere else
inline bool take_place(Tools& widget, int x, int y, int width, int height)
{
    const short place[] = {to_short(x), to_short(y), to_short(width), to_short(height)};
    const bool moves =
        widget.x != place[0] || widget.y != place[1] || widget.width != place[2] || widget.height != place[3];
    widget.x = place[0];
    widget.y = place[1];
    widget.width = place[2];
    widget.height = place[3];
    return moves;
}

/// Makes `box` the panel box of an area: its place, look and frame width, and its window if it has one.
inline void take_area(Boxs& box, const Boxs& area, unsigned state)
{
    take_look(box, area);
    take_place(box, area.x, area.y, area.width, area.height);
    box.border = area.border;
    box.state = state;
    box.Init(area.window);
}

}
