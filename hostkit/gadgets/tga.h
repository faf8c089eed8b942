#pragma once

#include "host/gadgets.h"

#include <optional>
#include <string_view>
#include <vector>

namespace hostkit {

/// A picture with alpha: the top row first, blue in the low byte, alpha in the high one, which the colours are
/// multiplied by.
struct Alpha_Picture {
    int width = 0;
    int height = 0;
    std::vector<unsigned> pixels;
};

/// Reads a TGA file of at most 256 x 256 pixels.
/// @param bytes the whole file @return nothing when it is another kind of file, or its plain pixels are cut off
GADGETS_API std::optional<Alpha_Picture> read_tga(std::string_view bytes);

}
