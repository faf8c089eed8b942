#include "hostkit/gadgets/fitting_font.h"
#include "hostkit/gadgets/track.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace hostkit {

namespace {

constexpr int most_characters = 5;
constexpr int gap = 3; // between the thumb and the number

// Below 1 two digits are enough.
int most_digits(float value)
{
    return std::abs(value) < 1 ? 2 : most_characters;
}

}

Short_Number short_number(float value)
{
    for (int digits = most_digits(value); digits > 0; --digits) {
        char text[32];
        const char* end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits).ptr;
        if (end - text > most_characters)
            continue;
        Short_Number number{};
        std::copy(static_cast<const char*>(text), end, number.begin());
        return number;
    }
    return {};
}

void draw_number(const Paint& paint, const Tools& valuator, int thumb_start, int thumb_end, float value)
{
    const bool upward = is_vertical(valuator);
    const Fitting_Font font(upward ? valuator.width : valuator.height, upward);
    if (!font.get())
        return;
    const Short_Number number = short_number(value);
    const int length = paint.text_width(number.data(), font.get());
    const int room_after = track_length(valuator) - thumb_end;
    const bool before = thumb_start >= room_after;
    if (length + 2 * gap > (before ? thumb_start : room_after))
        return;
    const Area area = along(valuator, before ? thumb_start - gap - length : thumb_end + gap, length);
    const Colors color = blend(valuator.text, valuator.back, valuator.Active() ? 205 : 90);
    if (upward)
        paint.upward_text(area, number.data(), font.get(), color);
    else
        paint.centred_text(area, number.data(), font.get(), color);
}

}
