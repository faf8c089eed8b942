#include "workbench/document/mask_difference.h"

#include <algorithm>
#include <functional>
#include <new>
#include <zlib.h>

namespace document {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Calls function(x, y, z, index) for each voxel of the box whose bytes differ.
template <class Function>
void for_each_change(
    const Box& box, std::span<const std::uint8_t> before, std::span<const std::uint8_t> after, Function&& function)
{
    std::size_t row = 0;
    for (int z = 0; z < box.depth; ++z)
        for (int y = 0; y < box.height; ++y, row += std::size_t(box.width))
            for (int x = 0; x < box.width; ++x)
                if (before[row + std::size_t(x)] != after[row + std::size_t(x)])
                    function(x, y, z);
}

struct Extent {
    int low[3] = {INT32_MAX, INT32_MAX, INT32_MAX};
    int high[3] = {-1, -1, -1};
    std::size_t count = 0;

    void add(int x, int y, int z)
    {
        const int at[3] = {x, y, z};
        for (int i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], at[i]);
            high[i] = std::max(high[i], at[i]);
        }
        ++count;
    }
    Box box() const
    {
        return {low[0], low[1], low[2], high[0] - low[0] + 1, high[1] - low[1] + 1, high[2] - low[2] + 1};
    }
};

Bytes deflated(const Bytes& plain)
{
    uLongf size = compressBound(plain.size());
    Bytes packed(size);
    // The bound always suffices; what can fail is memory.
    if (compress2(packed.data(), &size, plain.data(), plain.size(), 6) != Z_OK)
        throw std::bad_alloc();
    packed.resize(size);
    packed.shrink_to_fit();
    return packed;
}

/// Gives the plain bytes back, a row at a time.
class Inflater {
public:
    explicit Inflater(const Bytes& packed)
    {
        stream_.next_in = const_cast<Bytef*>(packed.data());
        stream_.avail_in = uInt(packed.size());
        if (inflateInit(&stream_) != Z_OK)
            throw std::bad_alloc();
    }
    ~Inflater() { inflateEnd(&stream_); }

    void read(Bytes& row)
    {
        stream_.next_out = row.data();
        stream_.avail_out = uInt(row.size());
        inflate(&stream_, Z_SYNC_FLUSH);
    }

private:
    z_stream stream_ = {};
};

}

std::optional<MaskDifference> MaskDifference::between(
    const Box& box, std::span<const std::uint8_t> before, std::span<const std::uint8_t> after)
{
    Extent extent;
    for_each_change(box, before, after, [&](int x, int y, int z) { extent.add(x, y, z); });
    if (extent.count == 0)
        return {};
    const Box inner = extent.box();
    Bytes plain;
    plain.reserve(inner.voxels());
    for (int z = inner.z; z < inner.z + inner.depth; ++z)
        for (int y = inner.y; y < inner.y + inner.height; ++y) {
            const auto row = (std::size_t(z) * std::size_t(box.height) + std::size_t(y)) * std::size_t(box.width);
            for (int x = inner.x; x < inner.x + inner.width; ++x)
                plain.push_back(before[row + std::size_t(x)] ^ after[row + std::size_t(x)]);
        }
    MaskDifference step;
    step.box_ = {box.x + inner.x, box.y + inner.y, box.z + inner.z, inner.width, inner.height, inner.depth};
    step.changed_ = extent.count;
    step.packed_ = deflated(plain);
    return step;
}

std::optional<MaskDifference> MaskDifference::since(
    const Box& box, std::span<const std::uint8_t> before, const LabelMap& now)
{
    return between(box, before, now.copy(box));
}

void MaskDifference::apply(LabelMap& labels) const
{
    Inflater inflater(packed_);
    Bytes row(std::size_t(box_.width));
    for (int z = box_.z; z < box_.z + box_.depth; ++z)
        for (int y = box_.y; y < box_.y + box_.height; ++y) {
            inflater.read(row);
            const auto tags = labels.tags().subspan(labels.index(box_.x, y, z), row.size());
            std::transform(row.begin(), row.end(), tags.begin(), tags.begin(), std::bit_xor());
        }
}

}
