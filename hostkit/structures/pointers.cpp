#include "host/structures.h"

#include <algorithm>
#include <cmath>
#include <iterator>

// Pen and touch: what the platform's records mean to a panel.

namespace {

int buttons_of(UINT32 flags)
{
    return (flags & POINTER_FLAG_FIRSTBUTTON ? 16 : 0) | (flags & POINTER_FLAG_THIRDBUTTON ? 32 : 0) |
           (flags & POINTER_FLAG_SECONDBUTTON ? 64 : 0);
}

struct Finger {
    DWORD id;
    float x; // pixels
    float y;
};

// The two fingers that make a gesture: the first ones to come down.
struct Fingers {
    HWND window = nullptr;
    Finger finger[2] = {};
    int count = 0;

    Finger* find(DWORD id)
    {
        return std::find_if(finger, finger + count, [=](const Finger& one) { return one.id == id; });
    }

    bool same_as(const Fingers& other) const
    {
        return window == other.window && count == 2 && other.count == 2 && finger[0].id == other.finger[0].id &&
               finger[1].id == other.finger[1].id;
    }

    void follow(const TOUCHINPUT& input);
};

void Fingers::follow(const TOUCHINPUT& input)
{
    Finger* const known = find(input.dwID);
    Finger* const end = finger + count;
    if (input.dwFlags & TOUCHEVENTF_UP) {
        if (known != end)
            count = static_cast<int>(std::copy(known + 1, end, known) - finger);
        return;
    }
    if (known == std::end(finger))
        return; // a third one
    constexpr float hundredths = 100;
    *known = {input.dwID, static_cast<float>(input.x) / hundredths, static_cast<float>(input.y) / hundredths};
    count = std::max(count, static_cast<int>(known - finger) + 1);
}

// Fingers side by side have no distance up and down to speak of: its growth is noise.
float growth(float before, float now)
{
    constexpr float telling = 32;
    return std::min(std::abs(before), std::abs(now)) < telling ? 1 : std::abs(now / before);
}

Gesture_Record gesture_between(const Fingers& before, const Fingers& now)
{
    const Finger& one = now.finger[0];
    const Finger& other = now.finger[1];
    const Finger& old_one = before.finger[0];
    const Finger& old_other = before.finger[1];
    return {(one.x + other.x - old_one.x - old_other.x) / 2, (one.y + other.y - old_one.y - old_other.y) / 2,
        growth(old_other.x - old_one.x, other.x - one.x), growth(old_other.y - old_one.y, other.y - one.y)};
}

}

int Fct_Pointer_Pen(HWND, UINT message, WPARAM wparam, LPARAM, Pen_Record* pen)
{
    POINTER_PEN_INFO said{};
    if (!pen || !GetPointerPenInfo(GET_POINTERID_WPARAM(wparam), &said))
        return 0;
    const int buttons = buttons_of(said.pointerInfo.pointerFlags);
    const bool drags = message == WM_POINTERUPDATE && buttons != 0;
    *pen = {buttons | (drags ? 1 : 0), said.pointerInfo.ptPixelLocation.x, said.pointerInfo.ptPixelLocation.y};
    return 1;
}

int Fct_Pointer_Touch(HWND window, UINT, WPARAM wparam, LPARAM lparam, Gesture_Record* gesture)
{
    static Fingers fingers;
    TOUCHINPUT inputs[16];
    const UINT count = std::min<UINT>(LOWORD(wparam), std::size(inputs));
    const auto touch = reinterpret_cast<HTOUCHINPUT>(lparam);
    if (!gesture || !GetTouchInputInfo(touch, count, inputs, sizeof(TOUCHINPUT)))
        return 0;
    const Fingers before = fingers;
    if (window != fingers.window)
        fingers = {window};
    for (UINT index = 0; index < count; ++index)
        fingers.follow(inputs[index]);
    if (fingers.count < 2)
        return 0;
    *gesture = fingers.same_as(before) ? gesture_between(before, fingers) : Gesture_Record{0, 0, 1, 1};
    CloseTouchInputHandle(touch);
    return 1;
}
