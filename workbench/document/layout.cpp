#include "workbench/document/layout.h"

#include "workbench/document/text.h"

#include <climits>

namespace document {

namespace {

std::string promise_of(const Layout& layout)
{
    auto text = size_text(layout.size) + " pixels";
    if (layout.volumes > 1)
        text += " in " + std::to_string(layout.volumes) + " volumes";
    return text + " (" + bytes_text(layout.total_bytes()) + ")";
}

}

std::uint64_t Layout::volume_bytes() const
{
    return bytes_of(element) * std::uint64_t(components) * std::uint64_t(size[0]) * std::uint64_t(size[1]) *
           std::uint64_t(size[2]);
}

std::optional<Failure> take_sizes(Layout& layout, std::span<const std::int64_t> size, const std::filesystem::path& path)
{
    std::int64_t bytes = std::int64_t(bytes_of(layout.element)) * layout.components;
    layout.size = {1, 1, 1};
    layout.volumes = 1;
    for (std::size_t axis = 0; axis < size.size(); ++axis) {
        if (size[axis] <= 0 || (axis < 3 && size[axis] > INT_MAX) || __builtin_mul_overflow(bytes, size[axis], &bytes))
            return Failure{quoted(path) + " cannot be read: its header gives " + std::to_string(size[axis]) +
                           " as the size along axis " + std::to_string(axis + 1) + ". It is damaged; get a new copy."};
        if (axis < 3)
            layout.size[axis] = int(size[axis]);
        else
            layout.volumes *= std::uint64_t(size[axis]);
    }
    return {};
}

Result<PixelMemory> allocate_volume(const Layout& layout, const std::filesystem::path& path)
{
    const auto bytes = layout.volume_bytes();
    const auto available = memory_available();
    auto memory = bytes <= available ? PixelMemory::allocate(bytes) : PixelMemory();
    if (memory)
        return memory;
    return Failure{quoted(path) + " needs " + bytes_text(bytes) + " of memory for " + size_text(layout.size) +
                   " pixels, but only " + bytes_text(available) +
                   " are free. Close other programs, or cut the image into smaller parts."};
}

Failure cut_off(const std::filesystem::path& path, const Layout& layout, std::uint64_t found)
{
    return Failure{quoted(path) + " is cut off: its header promises " + promise_of(layout) + ", but " +
                   bytes_text(found) + " of them are there. Get a complete copy of the file."};
}

}
