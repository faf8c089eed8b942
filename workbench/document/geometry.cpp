#include "workbench/document/geometry.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

constexpr double place_tolerance = 0.005; // voxels: far above what 32-bit floats in a header lose
constexpr double turn_tolerance = 1e-3;   // of a direction's components

std::string triple(const std::array<double, 3>& v)
{
    return "(" + number_text(v[0]) + ", " + number_text(v[1]) + ", " + number_text(v[2]) + ")";
}

// Of the body that three edges span; negative when they turn the other way round.
double volume_of(const std::array<double, 3>& a, const std::array<double, 3>& b, const std::array<double, 3>& c)
{
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) + a[2] * (b[0] * c[1] - b[1] * c[0]);
}

bool far(double a, double b, double tolerance)
{
    return !(std::abs(a - b) <= tolerance);
}

}

std::array<double, 3> Geometry::position(double x, double y, double z) const
{
    const std::array<double, 3> along = {x * spacing[0], y * spacing[1], z * spacing[2]};
    std::array<double, 3> place = origin;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t axis = 0; axis < 3; ++axis)
            place[row] += direction[row * 3 + axis] * along[axis];
    return place;
}

// Files round their directions, so that these are not exactly at right angles: Cramer's rule, not the transpose.
std::array<double, 3> Geometry::index(const std::array<double, 3>& position) const
{
    const auto axis = [&](std::size_t a) { return std::array{direction[a], direction[3 + a], direction[6 + a]}; };
    const std::array<double, 3> way = {position[0] - origin[0], position[1] - origin[1], position[2] - origin[2]};
    const double whole = volume_of(axis(0), axis(1), axis(2));
    return {volume_of(way, axis(1), axis(2)) / whole / spacing[0],
        volume_of(axis(0), way, axis(2)) / whole / spacing[1], volume_of(axis(0), axis(1), way) / whole / spacing[2]};
}

std::string difference(const Geometry& found, const Geometry& expected)
{
    if (found.size != expected.size)
        return "its size is " + size_text(found.size) + " instead of " + size_text(expected.size);
    // The spacing is held to what it makes at the far end of the volume.
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double steps = std::max(1, expected.size[axis] - 1);
        if (far(found.spacing[axis] * steps, expected.spacing[axis] * steps, place_tolerance * expected.spacing[axis]))
            return "its spacing is " + triple(found.spacing) + " mm instead of " + triple(expected.spacing) + " mm";
    }
    const double voxel = *std::min_element(expected.spacing.begin(), expected.spacing.end());
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (far(found.origin[axis], expected.origin[axis], place_tolerance * voxel))
            return "its origin is " + triple(found.origin) + " mm instead of " + triple(expected.origin) + " mm";
    for (std::size_t i = 0; i < 9; ++i)
        if (far(found.direction[i], expected.direction[i], turn_tolerance))
            return "its axes point elsewhere (component " + std::to_string(i + 1) + " of the direction is " +
                   number_text(found.direction[i]) + " instead of " + number_text(expected.direction[i]) + ")";
    return {};
}

}
