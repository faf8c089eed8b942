#include "host/gadgets.h"

#include "hostkit/gadgets/paint.h"

unsigned Colors::get() const
{
    return RGB(red, green, blue);
}

void Tools::Set_Name(const char* caption)
{
    name.set(caption);
}

void Tools::Set_Color(unsigned char red, unsigned char green, unsigned char blue)
{
    color = {red, green, blue};
}

void Tools::Clear(Colors fill)
{
    const hostkit::Paint paint(window, "Tools::Clear");
    paint.fill(hostkit::area_of(*this), fill);
}

void Tools::Set_Window(HWND owner)
{
    if (owner)
        window = owner;
}

bool Tools::Pointer_Inside(short dx, short dy) const
{
    POINT pointer{YCursor_X, YCursor_Y};
    RECT client;
    if (!window || !ScreenToClient(window, &pointer) || !GetClientRect(window, &client))
        return false;
    const int upward = client.bottom - 1 - pointer.y;
    return pointer.x >= x - dx && pointer.x < x + width + dx && upward >= y - dy && upward < y + height + dy;
}
