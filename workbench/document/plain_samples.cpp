#include "workbench/document/plain_samples.h"

#include "workbench/document/samples.h"

#include <algorithm>
#include <vector>

namespace document {

namespace {

/// Reads bytes from `begin` of the pixel data on and turns them to this machine's order, in whole units.
bool read_bytes(const InputFile& file, const DicomPixels& pixels, std::uint64_t begin, std::span<std::byte> target)
{
    const auto size = pixels.bits_allocated == 1 ? 1 : bytes_of(*pixels.element());
    const auto unit = pixels.big_endian ? std::max<std::size_t>(size, pixels.words ? 2 : 1) : 1;
    const auto lead = std::size_t(begin % unit);
    if (lead == 0 && target.size() % unit == 0) {
        const bool whole = file.read(pixels.offset + begin, target) == target.size();
        if (unit > 1)
            swap_bytes(target, unit);
        return whole;
    }
    std::vector<std::byte> units((lead + target.size() + unit - 1) / unit * unit);
    const bool whole = read_bytes(file, pixels, begin - lead, units);
    std::copy_n(units.begin() + std::ptrdiff_t(lead), target.size(), target.begin());
    return whole;
}

/// Bits, the lowest of a byte first, from bit `begin` on, to bytes.
void unpack_bits(std::span<const std::byte> packed, std::size_t begin, std::span<std::byte> target)
{
    for (std::size_t i = 0; i < target.size(); ++i)
        target[i] = packed[(begin + i) / 8] >> (begin + i) % 8 & std::byte(1);
}

/// Brightness, brightness, blue, red for two pixels to three samples for each.
void spread_chroma(std::span<const std::byte> shared, std::size_t bytes, std::span<std::byte> target)
{
    const auto copy = [&](std::size_t from, std::size_t to) {
        std::copy_n(shared.data() + from * bytes, bytes, target.data() + to * bytes);
    };
    for (std::size_t pair = 0; (pair + 1) * 4 * bytes <= shared.size(); ++pair)
        for (std::size_t pixel = 0; pixel < 2; ++pixel) {
            copy(4 * pair + pixel, 6 * pair + 3 * pixel);
            copy(4 * pair + 2, 6 * pair + 3 * pixel + 1);
            copy(4 * pair + 3, 6 * pair + 3 * pixel + 2);
        }
}

bool read_bits(const InputFile& file, const DicomPixels& pixels, std::uint64_t begin, std::span<std::byte> target)
{
    std::vector<std::byte> packed((begin % 8 + target.size() + 7) / 8);
    const bool whole = read_bytes(file, pixels, begin / 8, packed);
    unpack_bits(packed, begin % 8, target);
    return whole;
}

}

bool read_plain(const InputFile& file, const DicomPixels& pixels, int frame, std::span<std::byte> target)
{
    const auto begin = pixels.bits_of_frame() * std::uint64_t(frame);
    if (pixels.bits_allocated == 1)
        return read_bits(file, pixels, begin, target);
    const bool planar = pixels.planar && pixels.samples > 1;
    if (!planar && !pixels.has_shared_chroma())
        return read_bytes(file, pixels, begin / 8, target);
    std::vector<std::byte> stored(pixels.bits_of_frame() / 8);
    const bool whole = read_bytes(file, pixels, begin / 8, stored);
    const auto size = bytes_of(*pixels.element());
    if (pixels.has_shared_chroma())
        spread_chroma(stored, size, target);
    else
        interleave(stored, {pixels.columns, pixels.rows, pixels.samples, int(size)}, target);
    return whole;
}

}
