#include "hostkit/gadgets/paint.h"

void Labels::Init(HWND owner)
{
    Set_Window(owner);
}

void Labels::Draw() {}
