#pragma once

#include <cstddef>
#include <vector>

namespace document {

/// A rectangle of numbers, x fastest.
struct Plane {
    int width = 0, height = 0;
    std::vector<float> values;

    Plane() = default;
    Plane(int w, int h) : width(w), height(h), values(std::size_t(w) * std::size_t(h)) {}
    float& at(int x, int y) { return values[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }
    float at(int x, int y) const { return values[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }
};

/// The four pixels around a place between pixels, and how far it is from the first to the last, 0 to 1. Beyond the rim
/// the nearest pixels count.
struct Corners {
    int left, top, right, bottom;
    float across, down;
};
Corners corners_at(int width, int height, float x, float y);

/// Where each pixel of one plane is found in another: at (x + dx, y + dy).
struct Displacement {
    Plane dx, dy;
};

/// Finds how `moving` has to be deformed to look like `fixed`: demons with symmetric forces, from coarse to fine. Both
/// have the same size and finite values, of which 0 to 1 are the usual ones. The field is smooth. Throws
/// std::bad_alloc.
Displacement register_planes(const Plane& fixed, const Plane& moving);

}
