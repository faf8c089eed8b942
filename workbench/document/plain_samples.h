#pragma once

#include "workbench/document/dicom_pixels.h"

#include <span>

namespace document {

/// Reads a frame of a DICOM file that is not compressed: samples of the width of their element in this machine's byte
/// order, those of a pixel side by side. False when the file has not got all of them.
bool read_plain(const InputFile& file, const DicomPixels& pixels, int frame, std::span<std::byte> target);

}
