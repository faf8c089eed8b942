#include "hostkit/gadgets/paint.h"

#include <algorithm>
#include <cmath>

using hostkit::Area;
using hostkit::blend;
using hostkit::Paint;

// Positions are counted along the slider from its left or lower end, in pixels.

namespace {

constexpr unsigned vertical_bit = 1u << 2;
constexpr unsigned minimum_at_top_bit = 1u << 26;
constexpr int question = 4;
constexpr int shortest_thumb = 8;

bool has_minimum_at_far_end(unsigned state)
{
    constexpr unsigned both = vertical_bit | minimum_at_top_bit;
    return (state & both) == both;
}

}

void Sliders::Init(HWND owner)
{
    Set_Window(owner);
}

bool Sliders::Vertical() const
{
    return (state & vertical_bit) != 0;
}

int Sliders::Length() const
{
    return Vertical() ? height : width;
}

int Sliders::Thumb_Length() const
{
    if (!Has_Range())
        return Length();
    const int proportional = static_cast<int>(std::lround(thumb * static_cast<float>(Length())));
    return std::min(std::max(proportional, shortest_thumb), Length());
}

float Sliders::Thumb_Start() const
{
    if (!Has_Range())
        return 0;
    const float share = std::clamp((value - minimum) / (maximum - minimum), 0.0f, 1.0f);
    const auto travel = static_cast<float>(Length() - Thumb_Length());
    return travel * (has_minimum_at_far_end(state) ? 1 - share : share);
}

// The pixel that the thumb is drawn from.
int Sliders::Shown_Start() const
{
    return static_cast<int>(std::lround(Thumb_Start()));
}

float Sliders::Value_At(float thumb_start) const
{
    const auto travel = static_cast<float>(Length() - Thumb_Length());
    if (!Has_Range() || travel <= 0)
        return value;
    float share = std::clamp(thumb_start / travel, 0.0f, 1.0f);
    if (has_minimum_at_far_end(state))
        share = 1 - share;
    return minimum + share * (maximum - minimum);
}

float Sliders::Pointer_Position() const
{
    POINT pointer{YCursor_X, YCursor_Y};
    RECT client{};
    ScreenToClient(window, &pointer);
    GetClientRect(window, &client);
    return static_cast<float>(Vertical() ? client.bottom - 1 - pointer.y - y : pointer.x - x);
}

void Sliders::Larg_Adjust(float visible, float total)
{
    thumb = total > 0 ? std::clamp(visible / total, 0.0f, 1.0f) : 1.0f;
}

void Sliders::Draw()
{
    if (!window)
        return;
    const Paint paint(window, "Sliders::Draw");
    const Area area = hostkit::area_of(*this);
    if (!Shown()) {
        if (drawn_)
            paint.fill(area, back);
        drawn_ = 0;
        return;
    }
    drawn_ = 1;
    paint.fill(area, blend(text, back, 10));
    const int start = Shown_Start();
    const Area handle =
        Vertical() ? Area{x, y + start, width, Thumb_Length()} : Area{x + start, y, Thumb_Length(), height};
    const int lift = !Active() ? 20 : grabbed_ ? 130 : highlight_ ? 100 : 72;
    paint.fill(handle.inset(2), blend(text, back, lift));
}

int Sliders::Select(int up_down)
{
    const bool inside = Active() && Pointer_Inside();
    if (up_down == question)
        return inside;
    if (!Active()) {
        grabbed_ = highlight_ = 0; // it may come back under another pointer
        return 0;
    }
    if ((up_down & 2) != 0 && inside && Has_Range()) {
        grabbed_ = 2;
        return 1;
    }
    if ((up_down & 3) == 1 && grabbed_)
        return 1;
    const bool changes = grabbed_ != 0 || (highlight_ != 0) != inside;
    grabbed_ = 0;
    highlight_ = inside;
    if (changes)
        Draw();
    return 0;
}

float Sliders::Read()
{
    if (!grabbed_)
        return value;
    const float pointer = Pointer_Position();
    if (grabbed_ == 2) {
        const float along = pointer - static_cast<float>(Shown_Start());
        const auto length = static_cast<float>(Thumb_Length());
        const bool on_thumb = along >= 0 && along < length;
        grip_ = on_thumb ? pointer - Thumb_Start() : length / 2;
        grabbed_ = 1;
    }
    // A thumb that is held still keeps its value to the last digit.
    const float start = pointer - grip_;
    if (std::abs(start - Thumb_Start()) >= 0.5f)
        value = Value_At(start);
    return value;
}

int Sliders::Scroll(int amount)
{
    if (!Active() || !Has_Range())
        return 0;
    const bool grows_downward = !Vertical() || has_minimum_at_far_end(state);
    const float change = static_cast<float>(amount) * step;
    const float before = value;
    value = std::clamp(grows_downward ? value + change : value - change, minimum, maximum);
    if (value == before)
        return 0;
    Draw();
    return 1;
}

void Sliders::Deselect()
{
    if (!grabbed_ && !highlight_)
        return;
    grabbed_ = 0;
    highlight_ = 0;
    Draw();
}
