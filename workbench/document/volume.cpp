#include "workbench/document/volume.h"

#include "workbench/document/text.h"

namespace document {

bool Volume::contains(int x, int y, int z) const
{
    return x >= 0 && y >= 0 && z >= 0 && x < width() && y < height() && z < frame_count();
}

namespace {

std::size_t offset(const Geometry& geometry, int x, int y, int z)
{
    return (std::size_t(z) * std::size_t(geometry.size[1]) + std::size_t(y)) * std::size_t(geometry.size[0]) +
           std::size_t(x);
}

double value(double stored)
{
    return stored;
}

double value(Rgb c)
{
    return (299 * c.red + 587 * c.green + 114 * c.blue) / 1000.0;
}

}

double Volume::stored(int x, int y, int z) const
{
    return with_type(
        type, [&](auto pixel) { return value(as<typename decltype(pixel)::type>()[offset(geometry, x, y, z)]); });
}

Rgb Volume::colour(int x, int y, int z) const
{
    return as<Rgb>()[offset(geometry, x, y, z)];
}

std::string value_text(const Volume& volume, int x, int y, int z)
{
    if (volume.is_colour()) {
        const Rgb c = volume.colour(x, y, z);
        return "R " + std::to_string(c.red) + " G " + std::to_string(c.green) + " B " + std::to_string(c.blue);
    }
    const auto text = number_text(volume.grey(x, y, z));
    return volume.unit.empty() ? text : text + " " + volume.unit;
}

}
