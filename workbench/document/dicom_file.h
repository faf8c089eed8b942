#pragma once

#include "workbench/document/input_file.h"

namespace document {

/// Opens a DICOM file for a walker. One that is compressed as a whole (deflated) is inflated in memory.
Result<InputFile> open_dicom(const std::filesystem::path& path);

}
