#include "hostkit/gadgets/track.h"

#include <algorithm>
#include <cmath>

using hostkit::along;
using hostkit::Area;
using hostkit::blend;
using hostkit::is_vertical;
using hostkit::Paint;
using hostkit::track_length;

// Positions are counted along the slider from its left or lower end, in pixels.

namespace {

constexpr unsigned vertical_bit = 1u << 2;
constexpr unsigned shows_number_bit = 1u << 25;
constexpr unsigned minimum_at_top_bit = 1u << 26;
constexpr int question = 4;
constexpr int shortest_thumb = 8, shortest_position = 16; // of long lists, too, one sees where one is
constexpr float notches = 20;                             // of a travel whose step is left to the widget

bool has_minimum_at_far_end(unsigned state)
{
    constexpr unsigned both = vertical_bit | minimum_at_top_bit;
    return (state & both) == both;
}

}

bool hostkit::is_vertical(const Tools& slider)
{
    return (slider.state & vertical_bit) != 0;
}

int hostkit::track_length(const Tools& slider)
{
    return is_vertical(slider) ? slider.height : slider.width;
}

Area hostkit::along(const Tools& slider, int from, int length)
{
    return is_vertical(slider) ? Area{slider.x, slider.y + from, slider.width, length}
                               : Area{slider.x + from, slider.y, length, slider.height};
}

void Sliders::Init(HWND owner)
{
    Set_Window(owner);
    drawn_start_ = -1; // what is on the screen may be elsewhere
}

// Where there is nothing to scroll, the thumb fills the track.
int Sliders::Thumb_Length() const
{
    if (!Has_Range() || (meaning_ == Meaning::position && !Active()))
        return track_length(*this);
    const int proportional = static_cast<int>(std::lround(thumb * static_cast<float>(track_length(*this))));
    const int shortest = meaning_ == Meaning::position ? shortest_position : shortest_thumb;
    return std::min(std::max(proportional, shortest), track_length(*this));
}

float Sliders::Thumb_Start() const
{
    if (!Has_Range())
        return 0;
    const float share = Share();
    const auto travel = static_cast<float>(track_length(*this) - Thumb_Length());
    return travel * (has_minimum_at_far_end(state) ? 1 - share : share);
}

// How far the value is from the minimum, 0 to 1; 0 also for what is no number.
float Sliders::Share() const
{
    if (!(value > minimum))
        return 0;
    if (value >= maximum)
        return 1;
    return By_Decades() ? std::log(value / minimum) / std::log(maximum / minimum)
                        : (value - minimum) / (maximum - minimum);
}

float Sliders::Value_Of(float share) const
{
    if (share <= 0 || share >= 1)
        return share <= 0 ? minimum : maximum;
    const float between =
        By_Decades() ? minimum * std::pow(maximum / minimum, share) : minimum + share * (maximum - minimum);
    return std::clamp(between, minimum, maximum);
}

bool Sliders::By_Decades() const
{
    return meaning_ == Meaning::level && minimum > 0 && maximum >= 100 * minimum;
}

// The pixel that the thumb is drawn from.
int Sliders::Shown_Start() const
{
    return static_cast<int>(std::lround(Thumb_Start()));
}

float Sliders::Value_At(float thumb_start) const
{
    const auto travel = static_cast<float>(track_length(*this) - Thumb_Length());
    if (!Has_Range() || travel <= 0)
        return value;
    const float share = std::clamp(thumb_start / travel, 0.0f, 1.0f);
    return Value_Of(has_minimum_at_far_end(state) ? 1 - share : share);
}

float Sliders::Pointer_Position() const
{
    POINT pointer{YCursor_X, YCursor_Y};
    RECT client{};
    ScreenToClient(window, &pointer);
    GetClientRect(window, &client);
    return static_cast<float>(is_vertical(*this) ? client.bottom - 1 - pointer.y - y : pointer.x - x);
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
    drawn_lift_ = Thumb_Lift();
    drawn_start_ = Shown_Start();
    drawn_length_ = Thumb_Length();
    drawn_value_ = value;
    paint.fill(area, blend(text, back, 10));
    if (meaning_ == Meaning::level) {
        const int middle = drawn_start_ + Thumb_Length() / 2;
        const Area level = has_minimum_at_far_end(state) ? along(*this, middle, track_length(*this) - middle)
                                                         : along(*this, 0, middle);
        paint.fill(level.inset(2), blend(text, back, Active() ? 34 : 15));
    }
    paint.fill(along(*this, drawn_start_, Thumb_Length()).inset(2), blend(text, back, drawn_lift_));
    if (meaning_ == Meaning::level && (state & shows_number_bit) != 0)
        hostkit::draw_number(paint, *this, drawn_start_, drawn_start_ + Thumb_Length(), value);
}

// How far the thumb stands out from the background, of 255.
unsigned char Sliders::Thumb_Lift() const
{
    return !Active() ? 20 : grabbed_ ? 130 : highlight_ ? 100 : 72;
}

// Whether the screen shows the slider as it is now.
bool Sliders::Up_To_Date() const
{
    const bool shows_number = meaning_ == Meaning::level && (state & shows_number_bit) != 0;
    return drawn_ && Shown() && drawn_lift_ == Thumb_Lift() && drawn_start_ == Shown_Start() &&
           drawn_length_ == Thumb_Length() &&
           (!shows_number || hostkit::short_number(drawn_value_) == hostkit::short_number(value));
}

void Sliders::Adjust()
{
    if (!Up_To_Date())
        Draw();
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
        const float held_at = pointer - static_cast<float>(Shown_Start());
        const auto length = static_cast<float>(Thumb_Length());
        const bool on_thumb = held_at >= 0 && held_at < length;
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
    const bool grows_downward = !is_vertical(*this) || has_minimum_at_far_end(state);
    const float before = value;
    value = Stepped(grows_downward ? static_cast<float>(amount) : -static_cast<float>(amount));
    if (value == before)
        return 0;
    Draw();
    return 1;
}

float Sliders::Stepped(float steps) const
{
    if (meaning_ == Meaning::position || step != 0)
        return std::clamp(value + steps * step, minimum, maximum);
    return steps == 0 ? value : Value_Of(std::round(Share() * notches + steps) / notches);
}

void Sliders::Deselect()
{
    if (!grabbed_ && !highlight_)
        return;
    grabbed_ = 0;
    highlight_ = 0;
    Draw();
}
