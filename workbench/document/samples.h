#pragma once

#include "workbench/document/codecs.h"
#include "workbench/document/element.h"

namespace document {

/// Makes samples of 1 or 2 bytes each those of the shape, which are as wide or wider.
void widen(std::span<const std::byte> narrow, int narrow_bytes, const FrameShape& shape, std::span<std::byte> target);

/// From the first sample of all pixels, then the second... to those of a pixel side by side.
void interleave(std::span<const std::byte> planes, const FrameShape& shape, std::span<std::byte> target);

/// Turns the byte order of elements of this width around.
void swap_bytes(std::span<std::byte> bytes, std::size_t width);

/// Keeps `bits` bits of each sample, from bit `lowest` up; of a signed type, the highest of them is the sign.
void keep_bits(std::span<std::byte> samples, Element type, int lowest, int bits);

}
