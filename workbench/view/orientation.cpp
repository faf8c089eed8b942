#include "workbench/view/orientation.h"

#include <cmath>

namespace workbench {

EdgeLetters edge_letters(const std::array<double, 3>& axis)
{
    constexpr double nearly_along = 0.8;
    constexpr EdgeLetters letters[] = {{'L', 'R'}, {'P', 'A'}, {'S', 'I'}};
    for (std::size_t i = 0; i < 3; ++i) {
        if (axis[i] > nearly_along)
            return letters[i];
        if (axis[i] < -nearly_along)
            return {letters[i].away, letters[i].towards};
    }
    return {};
}

namespace {

// The component that an axis runs along most: 0 to the left, 1 to the back, 2 to the head.
std::size_t main_component(const std::array<double, 3>& axis)
{
    std::size_t main = 0;
    for (std::size_t i = 1; i < 3; ++i)
        if (std::abs(axis[i]) > std::abs(axis[main]))
            main = i;
    return main;
}

}

Mirror usual_view(const std::array<double, 3>& across, const std::array<double, 3>& down)
{
    constexpr std::size_t to_the_head = 2;
    const std::size_t x = main_component(across), y = main_component(down);
    // Rows run to the left or to the back, columns to the back or to the feet; what runs otherwise is left alone.
    return {x != to_the_head && across[x] < 0, y == to_the_head ? down[y] > 0 : y == 1 && down[y] < 0};
}

Mirror usual_view(const document::Geometry& geometry)
{
    return usual_view(axis_of(geometry, 0), axis_of(geometry, 1));
}

std::array<double, 3> axis_of(const document::Geometry& geometry, std::size_t axis)
{
    const auto& d = geometry.direction;
    return {d[axis], d[axis + 3], d[axis + 6]};
}

std::array<double, 3> shown_axis(const document::Geometry& geometry, std::size_t axis)
{
    const Mirror mirror = usual_view(geometry);
    std::array<double, 3> direction = axis_of(geometry, axis);
    if (axis == 0 ? mirror.x : mirror.y)
        for (double& component : direction)
            component = -component;
    return direction;
}

}
