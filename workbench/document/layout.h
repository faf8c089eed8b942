#pragma once

#include "workbench/document/element.h"
#include "workbench/document/pixels.h"
#include "workbench/document/result.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

namespace document {

/// What a header promises to follow it: elements, components of a pixel fastest, then x, y, z, then further volumes.
struct Layout {
    Element element = Element::u8;
    int components = 1;
    std::array<int, 3> size = {1, 1, 1};
    std::uint64_t volumes = 1;
    bool swapped = false; ///< the other byte order than this machine's

    std::uint64_t volume_bytes() const; ///< of one volume; only after take_sizes() succeeded
    std::uint64_t total_bytes() const { return volume_bytes() * volumes; }
};

/// Sets size and volumes from all dimensions of a file. Fails when one is not positive or when there are more bytes
/// than can be counted.
std::optional<Failure> take_sizes(
    Layout& layout, std::span<const std::int64_t> size, const std::filesystem::path& path);

/// Memory for one volume, checked against what is free.
Result<PixelMemory> allocate_volume(const Layout& layout, const std::filesystem::path& path);

/// "\"x.nii\" is cut off: its header promises 181 x 217 x 181 pixels (7.1 MB) but ..."
Failure cut_off(const std::filesystem::path& path, const Layout& layout, std::uint64_t found);

}
