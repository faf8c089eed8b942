#include "hostkit/gadgets/input.h"

int YKey = 0;

int getkey(int key)
{
    return GetKeyState(key) < 0;
}

int getbutton(int button)
{
    return GetKeyState(button) < 0;
}

void hostkit::Record_Pointer(HWND window, POINT client)
{
    ClientToScreen(window, &client);
    YCursor_X = client.x;
    YCursor_Y = client.y;
}
