#include "workbench/document/label_map.h"

#include "workbench/document/text.h"

#include <algorithm>

namespace document {

Result<LabelMap> LabelMap::create(const Geometry& geometry)
{
    const std::size_t bytes = geometry.voxels();
    auto memory = bytes <= memory_available() ? PixelMemory::allocate(bytes) : PixelMemory();
    if (!memory)
        return Failure{"There is not enough memory for a label map of " + size_text(geometry.size) + " voxels (" +
                       bytes_text(bytes) + "). Close other programs or open a smaller image."};
    std::fill(memory.bytes().begin(), memory.bytes().end(), std::byte(0));
    return LabelMap(geometry, std::move(memory));
}

std::span<std::uint8_t> LabelMap::tags()
{
    return {reinterpret_cast<std::uint8_t*>(memory_.data()), memory_.size()};
}

std::span<const std::uint8_t> LabelMap::tags() const
{
    return {reinterpret_cast<const std::uint8_t*>(memory_.data()), memory_.size()};
}

std::span<std::uint8_t> LabelMap::frame(int z)
{
    return tags().subspan(index(0, 0, z), geometry_.frame_voxels());
}

std::span<const std::uint8_t> LabelMap::frame(int z) const
{
    return tags().subspan(index(0, 0, z), geometry_.frame_voxels());
}

std::vector<std::uint8_t> LabelMap::copy(const Box& box) const
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(box.voxels());
    for (int z = box.z; z < box.z + box.depth; ++z)
        for (int y = box.y; y < box.y + box.height; ++y) {
            const auto row = tags().subspan(index(box.x, y, z), std::size_t(box.width));
            bytes.insert(bytes.end(), row.begin(), row.end());
        }
    return bytes;
}

}
