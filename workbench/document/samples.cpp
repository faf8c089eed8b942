#include "workbench/document/samples.h"

#include <algorithm>
#include <type_traits>

namespace document {

namespace {

template <class Narrow, class Wide>
void widen_all(std::span<const std::byte> narrow, std::span<std::byte> target)
{
    const auto* const from = reinterpret_cast<const Narrow*>(narrow.data());
    std::copy_n(from, narrow.size() / sizeof(Narrow), reinterpret_cast<Wide*>(target.data()));
}

template <class Narrow>
void widen_to(std::span<const std::byte> narrow, int bytes, std::span<std::byte> target)
{
    if (bytes == 2)
        widen_all<Narrow, std::uint16_t>(narrow, target);
    else if (bytes == 4)
        widen_all<Narrow, std::uint32_t>(narrow, target);
    else
        widen_all<Narrow, std::uint64_t>(narrow, target);
}

/// Shifted up so that the highest kept bit is that of the type, and down again, which brings the sign or zeros in.
template <class Sample>
void keep_bits_of(std::span<std::byte> bytes, int lowest, int bits)
{
    using Unsigned = std::make_unsigned_t<Sample>;
    const int up = int(8 * sizeof(Sample)) - bits - lowest, down = int(8 * sizeof(Sample)) - bits;
    auto* const samples = reinterpret_cast<Sample*>(bytes.data());
    for (std::size_t i = 0; i < bytes.size() / sizeof(Sample); ++i)
        samples[i] = Sample(Sample(Unsigned(Unsigned(samples[i]) << up)) >> down);
}

}

void widen(std::span<const std::byte> narrow, int narrow_bytes, const FrameShape& shape, std::span<std::byte> target)
{
    if (narrow_bytes == shape.bytes)
        std::copy(narrow.begin(), narrow.end(), target.begin());
    else if (narrow_bytes == 1)
        widen_to<std::uint8_t>(narrow, shape.bytes, target);
    else
        widen_to<std::uint16_t>(narrow, shape.bytes, target);
}

void interleave(std::span<const std::byte> planes, const FrameShape& shape, std::span<std::byte> target)
{
    const auto bytes = std::size_t(shape.bytes), samples = std::size_t(shape.samples);
    const auto pixels = shape.count() / samples;
    for (std::size_t sample = 0; sample < samples; ++sample)
        for (std::size_t i = 0; i < pixels; ++i)
            std::copy_n(
                planes.data() + (sample * pixels + i) * bytes, bytes, target.data() + (i * samples + sample) * bytes);
}

void swap_bytes(std::span<std::byte> bytes, std::size_t width)
{
    for (std::size_t at = 0; at < bytes.size(); at += width)
        std::reverse(bytes.begin() + std::ptrdiff_t(at), bytes.begin() + std::ptrdiff_t(at + width));
}

void keep_bits(std::span<std::byte> samples, Element type, int lowest, int bits)
{
    switch (type) {
    case Element::u8:
        return keep_bits_of<std::uint8_t>(samples, lowest, bits);
    case Element::i8:
        return keep_bits_of<std::int8_t>(samples, lowest, bits);
    case Element::u16:
        return keep_bits_of<std::uint16_t>(samples, lowest, bits);
    case Element::i16:
        return keep_bits_of<std::int16_t>(samples, lowest, bits);
    case Element::u32:
        return keep_bits_of<std::uint32_t>(samples, lowest, bits);
    case Element::i32:
        return keep_bits_of<std::int32_t>(samples, lowest, bits);
    case Element::u64:
        return keep_bits_of<std::uint64_t>(samples, lowest, bits);
    case Element::i64:
        return keep_bits_of<std::int64_t>(samples, lowest, bits);
    default:
        return; // floating-point numbers are whole
    }
}

}
