#include "hostkit/embedding/mouse_words.h"

namespace hostkit {

Mouse_Event Mouse_Event_Of(UINT message)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDOWN:
        return Mouse_Event::press;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        return Mouse_Event::release;
    case WM_MOUSEMOVE:
        return Mouse_Event::motion;
    default:
        return Mouse_Event::none;
    }
}

int Up_Down_Word(Mouse_Event event, WPARAM wparam)
{
    const int buttons =
        (wparam & MK_LBUTTON ? 16 : 0) | (wparam & MK_MBUTTON ? 32 : 0) | (wparam & MK_RBUTTON ? 64 : 0);
    if (event == Mouse_Event::press)
        return buttons | 2;
    if (event == Mouse_Event::motion && buttons != 0)
        return buttons | 1;
    return buttons;
}

}
