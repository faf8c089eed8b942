#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace document {

/// What a compressed frame must decode to: samples in this machine's byte order, those of a pixel side by side.
struct FrameShape {
    int columns = 0, rows = 0, samples = 1;
    int bytes = 1; ///< of a sample: 1, 2, 4 or 8

    std::size_t count() const { return std::size_t(columns) * std::size_t(rows) * std::size_t(samples); }
};

/// What else a compressed frame tells.
struct Decoded {
    int bits = 0;               ///< of a sample that count; the rest is 0, or repeats the sign
    std::optional<bool> is_ybr; ///< brightness and chroma instead of red, green and blue
};

/// Each decodes one frame; the target holds exactly its samples. Nothing when the stream is damaged, is cut off or does
/// not fit to the shape. They print nothing; what they throw is std::bad_alloc.
std::optional<Decoded> decode_rle(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target);
std::optional<Decoded> decode_jpeg(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target);
std::optional<Decoded> decode_jpeg_ls(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target);
std::optional<Decoded> decode_jpeg_2000(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target);

}
