#pragma once

namespace workbench {

/// A voxel of the open image, in the order of its volume; y grows downward on the screen.
struct Voxel {
    int x = 0, y = 0, z = 0;
    bool operator==(const Voxel&) const = default;
};

}
