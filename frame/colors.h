#pragma once

#include "host/gadgets.h"

/// The orders in which colours are kept.
namespace frame {

/// Tag 0 stands for "nothing": it is always this grey.
constexpr Colors no_tag_grey{170, 170, 170};

/// From the 16-bit words of `"$TAG_RED"`, `"$TAG_GRN"` and `"$TAG_BLU"`: the channel is the high byte.
constexpr Colors from_tag_words(unsigned short red, unsigned short green, unsigned short blue)
{
    return {static_cast<unsigned char>(red >> 8), static_cast<unsigned char>(green >> 8),
        static_cast<unsigned char>(blue >> 8)};
}

/// From a word of `"$MARKER_COLOR"`: red in the low byte, then green, then blue.
constexpr Colors from_marker_word(unsigned word)
{
    return {static_cast<unsigned char>(word), static_cast<unsigned char>(word >> 8),
        static_cast<unsigned char>(word >> 16)};
}

/// To a pixel of a button picture: blue in the low byte.
constexpr unsigned to_picture_pixel(Colors color)
{
    return unsigned{color.red} << 16 | unsigned{color.green} << 8 | color.blue;
}

}
