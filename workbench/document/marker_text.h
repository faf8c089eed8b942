#pragma once

#include "workbench/document/marker_file.h"

#include <string_view>

namespace document {

/// The markers that the text of a file describes, all of them. @param path  what messages name. May throw.
Result<MarkerFile> read_markers_json(std::string_view text, const std::filesystem::path& path);
Result<MarkerFile> read_markers_csv(std::string_view text, const std::filesystem::path& path);

/// The text of a file. Labels must be UTF-8 and positions finite.
std::string write_markers_json(const MarkerList& markers);
std::string write_markers_csv(const MarkerList& markers);

/// A text of a file as it is kept: Latin-1 made UTF-8, zero bytes made blanks.
std::string marker_text(std::string_view text);

}
