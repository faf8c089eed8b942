#pragma once

#include "workbench/document/input_file.h"
#include "workbench/document/layout.h"

namespace document {

/// Decodes a JPEG file: grey or colour, 8 bits a channel. ITK's reader ends the program on some damaged files, so
/// another decoder is used. Sets element, components and size of the layout. A file that ends before its picture does
/// is refused; the decoder would make up the rest.
Result<PixelMemory> read_jpeg(const InputFile& file, Layout& layout);

}
