#pragma once

#include "workbench/document/volume.h"

#include <bitset>
#include <cstdint>
#include <span>
#include <vector>

namespace document {

/// How the tags of a frame are carried over to another one.
enum class CarryMode {
    add,     ///< only where nothing is painted
    replace, ///< pixels of the carried tags become exactly the carried ones
    adapt,   ///< as `add`, but deformed as the grey values are from the one frame to the other
};

using TagSet = std::bitset<256>;

/// The tags of frame `to` once those of frame `from` are carried over. A tag is carried when it is free and on the
/// frame; pixels whose tag is not free never change, nor does any pixel become such a tag. For the background, tag 0,
/// it means that nothing is painted on it and nothing erased.
///
/// A tag whose deformed region would be less than half or more than twice as large as it was is copied instead.
///
/// @param from, to      frames of the volume
/// @param source        the tags of `from`, all pixels of the frame
/// @param target        the tags of `to` as they are now
/// @return the tags of `to`, all pixels of the frame. Throws std::bad_alloc.
std::vector<std::uint8_t> carry(const Volume& volume, int from, int to, std::span<const std::uint8_t> source,
    std::span<const std::uint8_t> target, CarryMode mode, const TagSet& free);

}
