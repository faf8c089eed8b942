#include "workbench/document/render.h"

#include "workbench/document/volume.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace document {

namespace {

/// The grey level (0 to 255) of a stored value, as a straight line that is then clamped.
struct Ramp {
    double factor, offset;

    Ramp(const Volume& volume, Window window)
    {
        const double width = window.width > 0 ? window.width : 1e-9;
        const double low = window.centre - width / 2;
        factor = volume.slope * 255 / width;
        offset = (volume.intercept - low) * 255 / width;
        if (volume.inverted) {
            factor = -factor;
            offset = 255 - offset;
        }
    }

    std::uint32_t operator()(double stored) const
    {
        // In this order NaN fails the comparison and becomes 0.
        const double level = stored * factor + offset + 0.5;
        const double floored = level > 0 ? level : 0;
        return std::uint32_t(std::int32_t(floored < 255 ? floored : 255));
    }
};

std::uint32_t grey_word(std::uint32_t level)
{
    return 0xFF000000u | level * 0x010101u;
}

/// Grey levels by stored value. One byte each, so that the table of 16 bits stays in the processor's nearest caches.
template <class Pixel>
auto lookup_table(const Ramp& ramp)
{
    using Index = std::make_unsigned_t<Pixel>;
    std::vector<std::uint8_t> levels(std::size_t(1) << (8 * sizeof(Pixel)));
    for (std::size_t i = 0; i < levels.size(); ++i)
        levels[i] = std::uint8_t(ramp(Pixel(Index(i))));
    return [levels = std::move(levels)](Pixel stored) { return std::uint32_t(levels[Index(stored)]); };
}

template <class Pixel>
auto word_of(const Ramp& ramp)
{
    if constexpr (std::is_same_v<Pixel, Rgb>) {
        return [level = lookup_table<std::uint8_t>(ramp)](
                   Rgb c) { return 0xFF000000u | level(c.red) << 16 | level(c.green) << 8 | level(c.blue); };
    } else if constexpr (sizeof(Pixel) <= 2) {
        return [level = lookup_table<Pixel>(ramp)](Pixel stored) { return grey_word(level(stored)); };
    } else {
        return [ramp](Pixel stored) { return grey_word(ramp(double(stored))); };
    }
}

}

void render_frame(
    const Volume& volume, int z, Window window, const Region& region, std::uint32_t* argb, std::ptrdiff_t stride)
{
    const Ramp ramp(volume, window);
    with_type(volume.type, [&](auto type) {
        using Pixel = typename decltype(type)::type;
        const auto word = word_of<Pixel>(ramp);
        const auto frame = volume.frame_as<Pixel>(z);
        for (int y = 0; y < region.height; ++y) {
            const Pixel* row = frame.data() + std::ptrdiff_t(region.y + y) * volume.width() + region.x;
            std::transform(row, row + region.width, argb + y * stride, std::cref(word));
        }
    });
}

}
