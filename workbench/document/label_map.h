#pragma once

#include "workbench/document/geometry.h"
#include "workbench/document/pixels.h"
#include "workbench/document/progress.h"
#include "workbench/document/result.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace document {

/// A part of a volume, in voxels: its corner and its size.
struct Box {
    int x = 0, y = 0, z = 0;
    int width = 0, height = 0, depth = 0;
    bool operator==(const Box&) const = default;
    std::size_t voxels() const { return std::size_t(width) * std::size_t(height) * std::size_t(depth); }
};

/// The tags of an image: one contiguous volume with one byte a voxel, in the order and geometry of the image.
/// Movable, never copied; the bytes never move while it lives.
class LabelMap {
public:
    LabelMap() = default;

    /// A map of zeros. Fails when memory does not allow it.
    static Result<LabelMap> create(const Geometry& geometry);

    /// Takes over memory that holds geometry.voxels() bytes.
    LabelMap(const Geometry& geometry, PixelMemory memory) : geometry_(geometry), memory_(std::move(memory)) {}

    const Geometry& geometry() const { return geometry_; }
    std::span<std::uint8_t> tags();
    std::span<const std::uint8_t> tags() const;
    std::span<std::uint8_t> frame(int z);
    std::span<const std::uint8_t> frame(int z) const;
    std::uint8_t at(int x, int y, int z) const { return tags()[index(x, y, z)]; }
    void set(int x, int y, int z, std::uint8_t tag) { tags()[index(x, y, z)] = tag; }

    /// The bytes of a box, one after the other, x fastest. The box must lie inside. Throws std::bad_alloc.
    std::vector<std::uint8_t> copy(const Box& box) const;

    std::size_t index(int x, int y, int z) const
    {
        return (std::size_t(z) * std::size_t(geometry_.size[1]) + std::size_t(y)) * std::size_t(geometry_.size[0]) +
               std::size_t(x);
    }

private:
    Geometry geometry_;
    PixelMemory memory_;
};

/// Saves a label map with its geometry; the extension chooses the format: .nii, .nii.gz, .nrrd, .mha.
///
/// It is written beside the target, read back and compared, flushed to the disk and only then takes the target's place:
/// whatever fails, a file that was there stays whole and nothing is left beside it. A symbolic link is followed and the
/// file it names replaced. A target that is no regular file is refused. Returns what went wrong, or nothing.
/// The map must not change meanwhile. Never throws.
std::optional<Failure> save_labels(const std::filesystem::path& path, const LabelMap& labels);

/// Loads a label map for an image of this geometry, from any of the volume formats that open() reads. Refused, with
/// what differs: another geometry, values that are not whole numbers from 0 to 255, colours, a damaged file. Never
/// throws.
Result<LabelMap> load_labels(
    const std::filesystem::path& path, const Geometry& geometry, const Progress& progress = {});

}
