#pragma once

#include "workbench/document/layout.h"
#include "workbench/document/volume.h"

#include <string>
#include <vector>

namespace document {

/// Takes the elements of a volume over as its pixels; what the types of a volume can hold is not copied. Three or four
/// components of 8 or 16 bits are a colour (a fourth is its transparency and dropped); of other pixels with several
/// values the first is taken. 64-bit integers become 32-bit ones, or doubles when they are too large.
/// Sets type, pixels and geometry.size, appends notices of what is not shown.
std::optional<Failure> take_elements(Volume& volume, std::vector<std::string>& notices, PixelMemory elements,
    const Layout& layout, const std::filesystem::path& path);

/// What is said of colours of more than 8 bits a channel.
std::string narrowed_notice(int bits);

}
