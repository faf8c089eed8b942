#pragma once

#include "workbench/document/window.h"

#include <cstddef>
#include <cstdint>

namespace document {

class Volume;

/// A rectangle of a frame, in pixels; y grows downward.
struct Region {
    int x = 0, y = 0, width = 0, height = 0;
};

/// Makes the picture of a region of frame z: opaque 0xFFRRGGBB words, pixel (region.x, region.y) at argb[0], each next
/// row `stride` words further. Grey values are spread linearly over `window` and clamped; each channel of a colour is
/// taken as a grey value. NaN is black. The region must lie inside the frame.
void render_frame(
    const Volume& volume, int z, Window window, const Region& region, std::uint32_t* argb, std::ptrdiff_t stride);

}
