#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace document {

/// Where the voxels of a volume lie: size in voxels, the rest in millimetres, in patient coordinates that grow to the
/// left, to the back and to the head.
struct Geometry {
    std::array<int, 3> size = {0, 0, 0};
    std::array<double, 3> spacing = {1, 1, 1}; ///< between the centres of neighbours, along each axis of the volume
    std::array<double, 3> origin = {0, 0, 0};  ///< the centre of voxel (0, 0, 0)
    /// Row by row; column a is the direction in which axis a runs, of length one.
    std::array<double, 9> direction = {1, 0, 0, 0, 1, 0, 0, 0, 1};

    std::size_t frame_voxels() const { return std::size_t(size[0]) * std::size_t(size[1]); }
    std::size_t voxels() const { return frame_voxels() * std::size_t(size[2]); }

    /// The centre of a voxel in millimetres; positions between voxels are allowed.
    std::array<double, 3> position(double x, double y, double z) const;

    /// The way back: which voxel lies at a position, with its fraction. No two axes may have the same direction.
    std::array<double, 3> index(const std::array<double, 3>& position) const;
};

/// What differs between two geometries, with numbers ("its size is 10 x 10 x 5 instead of 10 x 10 x 6"); empty when
/// they are equal as far as files tell: half a hundredth of a voxel in place and size, 1e-3 in direction.
std::string difference(const Geometry& found, const Geometry& expected);

}
