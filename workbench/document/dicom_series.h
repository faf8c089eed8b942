#pragma once

#include "workbench/document/dicom_header.h"
#include "workbench/document/open.h"

namespace document {

/// The headers of the DICOM images among some files.
Result<std::vector<DicomHeader>> read_headers(
    const std::vector<std::filesystem::path>& files, const Progress& progress);

/// The regular files directly inside a folder, by name.
Result<std::vector<std::filesystem::path>> files_in(const std::filesystem::path& folder);

/// Headers that make one stack of frames: one series, size, kind of pixels and orientation, in the order of the frames.
using Stack = std::vector<DicomHeader>;

/// Sorts headers into stacks, each in the order of its frames; the largest stack first, of equals the first by name.
std::vector<Stack> stacks_of(std::vector<DicomHeader> headers);

/// One frame of a stack. The stack must outlive it.
struct StackFrame {
    const DicomHeader* header = nullptr;
    int index = 0;               ///< in its file
    std::optional<double> place; ///< along the normal of the stack, millimetres
};

/// The frames of a stack, in order: by place where all have one.
std::vector<StackFrame> frames_of(const Stack& stack);

/// Leaves one volume of frames of which several are at each place, and says so. @return those that were left out
std::vector<StackFrame> keep_first_volume(std::vector<StackFrame>& frames, std::vector<std::string>& notices);

/// Reads the frames of a stack.
Result<Opened> read_stack(const Stack& stack, const Progress& progress);

}
