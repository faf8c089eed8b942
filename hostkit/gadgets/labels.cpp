#include "hostkit/gadgets/paint.h"

namespace {

constexpr unsigned at_the_left = 1u << 8;

// A label that has no colour of its own is black, as all widgets are at first: its text has the area's colour then.
Colors color_of_text(const Labels& label)
{
    const Colors color = label.color == Colors{} ? label.text : label.color;
    return label.Active() ? color : hostkit::blend(color, label.back, 90);
}

}

void Labels::Init(HWND owner)
{
    Set_Window(owner);
}

void Labels::Draw()
{
    if (!window || !Shown())
        return;
    const hostkit::Paint paint(window, "Labels::Draw");
    const hostkit::Area area = hostkit::area_of(*this);
    paint.fill(area, back);
    if (state & at_the_left)
        paint.text(area, name.get(), font, color_of_text(*this));
    else
        paint.centred_text(area, name.get(), font, color_of_text(*this));
}
