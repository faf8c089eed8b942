#pragma once

#include "workbench/document/label_map.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace document {

/// A step of undo for a label map: what changed in a box, compressed. Applying it to the state before makes the state
/// after and the other way round; steps must be taken back in the reverse order of their making.
class MaskDifference {
public:
    /// From the bytes of a box (as LabelMap::copy gives them) before and after; nothing when they are equal. The box
    /// may be larger than what changed, it is cut down. Throws std::bad_alloc.
    static std::optional<MaskDifference> between(
        const Box& box, std::span<const std::uint8_t> before, std::span<const std::uint8_t> after);

    /// The same, with the state after as it is in the map now.
    static std::optional<MaskDifference> since(
        const Box& box, std::span<const std::uint8_t> before, const LabelMap& now);

    void undo(LabelMap& labels) const { apply(labels); }
    void redo(LabelMap& labels) const { apply(labels); }

    const Box& box() const { return box_; } ///< the smallest that holds every changed voxel
    std::size_t voxels_changed() const { return changed_; }
    std::size_t memory() const { return sizeof(*this) + packed_.capacity(); } ///< in bytes

private:
    void apply(LabelMap& labels) const;

    Box box_;
    std::size_t changed_ = 0;
    std::vector<std::uint8_t> packed_; ///< before XOR after, deflated
};

}
