#include "host/gadgets.h"

int getkey(int key)
{
    return GetKeyState(key) < 0;
}

int getbutton(int button)
{
    return GetKeyState(button) < 0;
}
