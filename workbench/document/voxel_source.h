#pragma once

#include "workbench/document/layout.h"
#include "workbench/document/progress.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace document {

/// Where the elements that a header promises lie.
struct VoxelSource {
    enum class Encoding { raw, deflated, text }; ///< deflated: gzip or zlib

    std::filesystem::path header;             ///< for messages
    std::vector<std::filesystem::path> files; ///< each with an equal part of the elements
    Encoding encoding = Encoding::raw;
    std::uint64_t offset = 0; ///< in each file, bytes before the data
    std::uint64_t skip = 0;   ///< bytes before the elements after decoding
    bool at_end = false;      ///< raw elements are the last bytes of the file; `offset` and `skip` do not count
};

/// Reads the first volume in this machine's byte order. Fails when the files do not hold all that the layout promises,
/// or when a compressed stream does not end as it should. Each byte is read and decoded once.
Result<PixelMemory> read_elements(const VoxelSource& source, const Layout& layout, const Progress& progress);

}
