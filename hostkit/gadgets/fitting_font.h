#pragma once

#include "host/gadgets.h"

#include <algorithm>

namespace hostkit {

/// A font for a control that is only so broad, reading to the right or upward; none when it could not be read.
class Fitting_Font {
public:
    Fitting_Font(int breadth, bool upward)
    {
        constexpr int smallest_letters = 8, largest_letters = 14;
        const int height = std::min(breadth * 9 / 16, largest_letters);
        const int turned = upward ? 900 : 0;
        if (height >= smallest_letters)
            font_ = CreateFontA(-height, 0, turned, turned, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, "");
    }
    ~Fitting_Font()
    {
        if (font_)
            DeleteObject(font_);
    }
    Fitting_Font(const Fitting_Font&) = delete;
    Fitting_Font& operator=(const Fitting_Font&) = delete;

    HFONT get() const { return font_; }

private:
    HFONT font_ = nullptr;
};

}
