#include "workbench/document/codecs.h"

#include <algorithm>

namespace document {

namespace {

constexpr std::size_t header_size = 64;
constexpr std::size_t most_segments = 15;

std::size_t number(std::span<const std::byte> stream, std::size_t at)
{
    std::size_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number |= std::size_t(stream[at + i]) << (8 * i);
    return number;
}

/// Unpacks runs into every step-th byte from the first; false when they end before the target is full.
bool unpack(std::span<const std::byte> runs, std::byte* target, std::size_t step, std::size_t count)
{
    std::size_t done = 0;
    for (std::size_t at = 0; at < runs.size() && done < count;) {
        const int code = std::int8_t(runs[at++]);
        if (code == -128)
            continue;
        const auto length = std::min(count - done, std::size_t(code >= 0 ? code + 1 : 1 - code));
        const bool literal = code >= 0;
        if (runs.size() - at < (literal ? length : 1))
            return false;
        for (std::size_t i = 0; i < length; ++i)
            target[(done + i) * step] = runs[literal ? at + i : at];
        at += literal ? length : 1;
        done += length;
    }
    return done == count;
}

}

/// A table of segments, then the segments: the bytes of each sample, the highest first.
std::optional<Decoded> decode_rle(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target)
{
    const auto bytes = std::size_t(shape.bytes), samples = std::size_t(shape.samples);
    if (stream.size() < header_size || number(stream, 0) != bytes * samples || bytes * samples > most_segments)
        return {};
    for (std::size_t segment = 0; segment < bytes * samples; ++segment) {
        const auto begin = number(stream, 4 + 4 * segment);
        const auto next = segment + 1 < bytes * samples ? number(stream, 8 + 4 * segment) : stream.size();
        if (begin < header_size || begin > next || next > stream.size())
            return {};
        const auto place = segment / bytes * bytes + bytes - 1 - segment % bytes;
        if (!unpack(
                stream.subspan(begin, next - begin), target.data() + place, bytes * samples, shape.count() / samples))
            return {};
    }
    return Decoded{shape.bytes * 8, {}};
}

}
