#pragma once

#include "host/gadgets.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace frame {

/// A text as the platform draws it, in UTF-16. Needs no memory: what is longer than any screen is cut.
class Wide_Text {
public:
    /// @param text UTF-8; null is empty
    explicit Wide_Text(const char* text)
    {
        if (text && *text)
            length_ = MultiByteToWideChar(CP_UTF8, 0, text,
                static_cast<int>(std::min(std::strlen(text), units_.size())), units_.data(), capacity);
    }

    /// Pixels in the font that is selected into Y_DC.
    int width() const
    {
        SIZE size{};
        if (length_ > 0)
            GetTextExtentPoint32W(Y_DC, units_.data(), length_, &size);
        return size.cx;
    }

    void draw(int x, int y) const
    {
        if (length_ > 0)
            TextOutW(Y_DC, x, y, units_.data(), length_);
    }

private:
    static constexpr int capacity = 1024;

    std::array<WCHAR, capacity> units_;
    int length_ = 0;
};

}
