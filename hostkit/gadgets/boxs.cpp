#include "hostkit/gadgets/paint.h"

void Boxs::Init(HWND owner)
{
    Set_Window(owner);
}

void Boxs::Draw()
{
    constexpr unsigned sunken = 1u << 4;
    constexpr unsigned filled = 1u << 6;
    const hostkit::Paint paint(window, "Boxs::Draw");
    const hostkit::Area area = hostkit::area_of(*this);
    if (state & filled)
        paint.fill(area, back);
    paint.frame(area, border > 0 ? 1 : 0, state & sunken ? hostkit::blend(frame, back, 128) : frame);
}

int Boxs::Select(int)
{
    return Pointer_Inside();
}
