#pragma once

#include "workbench/document/input_file.h"
#include "workbench/document/itk_files.h"

namespace document {

/// Whether a PNG, TIFF or BMP file is all there, by its own structure: the libraries that decode them show what
/// is missing as black or grey. Returns what is wrong, or nothing.
std::optional<Failure> check_picture(Format format, const InputFile& file);

}
