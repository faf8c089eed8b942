#pragma once

#include "workbench/document/dicom_header.h"
#include "workbench/document/open.h"

namespace document {

/// The headers of the DICOM images among some files.
Result<std::vector<DicomHeader>> read_headers(
    const std::vector<std::filesystem::path>& files, const Progress& progress);

/// The regular files directly inside a folder, by name.
Result<std::vector<std::filesystem::path>> files_in(const std::filesystem::path& folder);

/// Headers that make one stack of frames: one series, size and orientation, in the order of the frames.
using Stack = std::vector<DicomHeader>;

/// Sorts headers into stacks, each in the order of its frames; the largest stack first, of equals the first by name.
std::vector<Stack> stacks_of(std::vector<DicomHeader> headers);

/// Leaves one volume of a stack with several frames at each place, and says so.
void keep_first_volume(Stack& stack, std::vector<std::string>& notices);

/// Reads the frames of a stack.
Result<Opened> read_stack(Stack stack, const Progress& progress);

}
