#include "workbench/document/elements.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace document {

namespace {

constexpr std::int64_t most_exact = std::int64_t(1) << 53; // a double holds every whole number up to it

bool is_colour(const Layout& layout)
{
    return (layout.components == 3 || layout.components == 4) &&
           (layout.element == Element::u8 || layout.element == Element::u16);
}

std::optional<PixelType> pixel_type(Element element)
{
    switch (element) {
    case Element::u8:
        return PixelType::u8;
    case Element::i8:
        return PixelType::i8;
    case Element::u16:
        return PixelType::u16;
    case Element::i16:
        return PixelType::i16;
    case Element::u32:
        return PixelType::u32;
    case Element::i32:
        return PixelType::i32;
    case Element::f32:
        return PixelType::f32;
    case Element::f64:
        return PixelType::f64;
    default:
        return {};
    }
}

/// Keeps the first `kept` of every `components` elements, in place.
void drop_components(
    std::byte* bytes, std::size_t pixels, std::size_t element, std::size_t components, std::size_t kept)
{
    for (std::size_t i = 1; i < pixels; ++i)
        std::memmove(bytes + i * kept * element, bytes + i * components * element, kept * element);
}

/// 16 bits a channel to 8, in place: 0 stays 0 and 65535 becomes 255.
void narrow_colours(std::byte* bytes, std::size_t channels)
{
    for (std::size_t i = 0; i < channels; ++i) {
        std::uint16_t wide;
        std::memcpy(&wide, bytes + 2 * i, 2);
        bytes[i] = std::byte((wide * 255u + 32767u) / 65535u);
    }
}

template <class Wide, class Narrow>
bool all_fit(const std::byte* bytes, std::size_t count)
{
    const auto* const wide = reinterpret_cast<const Wide*>(bytes);
    return std::all_of(wide, wide + count, [](Wide value) {
        if constexpr (std::is_same_v<Narrow, double>)
            return std::cmp_less_equal(value, most_exact) && std::cmp_greater_equal(value, -most_exact);
        else
            return std::in_range<Narrow>(value);
    });
}

template <class Wide, class Narrow>
void narrow(std::byte* bytes, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        Wide wide;
        std::memcpy(&wide, bytes + i * sizeof wide, sizeof wide);
        const auto value = Narrow(wide);
        std::memcpy(bytes + i * sizeof value, &value, sizeof value);
    }
}

/// Brings 64-bit integers into the smallest type of ours that holds them all, in place.
template <class Wide>
std::optional<PixelType> narrow_integers(std::byte* bytes, std::size_t count)
{
    if (all_fit<Wide, std::int32_t>(bytes, count)) {
        narrow<Wide, std::int32_t>(bytes, count);
        return PixelType::i32;
    }
    if (all_fit<Wide, std::uint32_t>(bytes, count)) {
        narrow<Wide, std::uint32_t>(bytes, count);
        return PixelType::u32;
    }
    if (!all_fit<Wide, double>(bytes, count))
        return {};
    narrow<Wide, double>(bytes, count);
    return PixelType::f64;
}

/// Memory of just the size needed, with the first bytes of the old.
PixelMemory shrunk(PixelMemory memory, std::size_t bytes)
{
    if (memory.size() == bytes)
        return memory;
    auto smaller = PixelMemory::allocate(bytes);
    if (!smaller)
        return memory; // larger than it need be, but right
    std::copy_n(memory.data(), bytes, smaller.data());
    return smaller;
}

void take_colours(Volume& volume, std::vector<std::string>& notices, std::byte* bytes, const Layout& layout)
{
    const std::size_t pixels = volume.geometry.voxels();
    if (layout.element == Element::u16) {
        narrow_colours(bytes, pixels * std::size_t(layout.components));
        notices.push_back(narrowed_notice(16));
    }
    if (layout.components == 4)
        drop_components(bytes, pixels, 1, 4, 3);
    volume.type = PixelType::rgb;
}

}

std::optional<Failure> take_elements(Volume& volume, std::vector<std::string>& notices, PixelMemory elements,
    const Layout& layout, const std::filesystem::path& path)
{
    volume.geometry.size = layout.size;
    const std::size_t pixels = volume.geometry.voxels();
    if (layout.volumes > 1)
        notices.push_back("It holds " + std::to_string(layout.volumes) + " volumes; the first is shown.");
    if (is_colour(layout)) {
        take_colours(volume, notices, elements.data(), layout);
    } else {
        if (layout.components > 1) {
            drop_components(elements.data(), pixels, bytes_of(layout.element), std::size_t(layout.components), 1);
            notices.push_back(
                "Its pixels have " + std::to_string(layout.components) + " values each; the first is shown.");
        }
        auto type = pixel_type(layout.element);
        if (!type)
            type = layout.element == Element::i64 ? narrow_integers<std::int64_t>(elements.data(), pixels)
                                                  : narrow_integers<std::uint64_t>(elements.data(), pixels);
        if (!type)
            return Failure{quoted(path) + " holds 64-bit integers beyond 2^53, which cannot be kept exactly."
                                          " Convert it to 32-bit integers or to floating-point numbers."};
        volume.type = *type;
    }
    volume.pixels = shrunk(std::move(elements), pixels * bytes_of(volume.type));
    return {};
}

std::string narrowed_notice(int bits)
{
    return "Its colours have " + std::to_string(bits) + " bits a channel; they are shown with 8.";
}

}
