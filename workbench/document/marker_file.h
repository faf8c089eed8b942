#pragma once

#include "workbench/document/pixels.h"
#include "workbench/document/result.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace document {

constexpr std::size_t most_markers = 64;

/// A named point.
struct Marker {
    std::string label; ///< UTF-8 without zero bytes; may be empty
    /// Millimetres, in patient coordinates that grow to the left, to the back and to the head; nothing when the point
    /// is not set yet.
    std::optional<std::array<double, 3>> position;
    bool enabled = true;                  ///< is shown
    std::optional<Rgb> colour;            ///< nothing: the program's choice
    bool selected = true, locked = false; ///< these three are kept for other programs
    std::string description;
    bool operator==(const Marker&) const = default;
};

using MarkerList = std::vector<Marker>;

struct MarkerFile {
    MarkerList markers;
    std::vector<std::string> notices; ///< what of the file is not among them, ready to be shown; mostly nothing
};

/// Saves markers as a list of points in the markups format of 3D Slicer (".mrk.json", ".json") or as the table that
/// belongs to it (".csv"), which has no place for colours. Written the way that save_labels() writes a label map; texts
/// that are no UTF-8 are taken for Latin-1. Returns what the user should know of that, ready to be shown. Never throws.
Result<std::vector<std::string>> save_markers(const std::filesystem::path& path, const MarkerList& markers);

/// Loads the points of such a file, of all its lists; the extension tells which. At most 64 are taken; those that are
/// left out and markups that are no points are told of. Never throws.
Result<MarkerFile> load_markers(const std::filesystem::path& path);

}
