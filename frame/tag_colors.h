#pragma once

#include "frame/colors.h"
#include "frame/registry.h"

namespace frame {

/// The three arrays of tag colours, 16-bit words per tag.
struct Tag_Colors {
    const unsigned short* red = nullptr;
    const unsigned short* green = nullptr;
    const unsigned short* blue = nullptr;

    /// Whether the host has all three.
    bool complete() const { return red && green && blue; }

    /// The colour of a tag; grey for tag 0 and when an array is missing.
    Colors of(int tag) const
    {
        return tag == 0 || !complete() ? no_tag_grey : from_tag_words(red[tag], green[tag], blue[tag]);
    }
};

/// The addresses of the three arrays, looked up until they are there and then kept. Each panel class has its own.
class Kept_Tag_Colors {
public:
    Tag_Colors get() { return {red_.value(), green_.value(), blue_.value()}; }

private:
    Kept_Address<const unsigned short*> red_{"$TAG_RED"};
    Kept_Address<const unsigned short*> green_{"$TAG_GRN"};
    Kept_Address<const unsigned short*> blue_{"$TAG_BLU"};
};

}
