#pragma once

#include "workbench/document/result.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace document {

/// Grey values from `lower` to `upper`, both of them included. Both are finite, lower <= upper.
struct Thresholds {
    double lower = 0, upper = 0;
    bool operator==(const Thresholds&) const = default;
};

/// What is known of one tag.
struct LabelEntry {
    int tag = 0; ///< 0 to 65534
    std::uint8_t red = 0, green = 0, blue = 0;
    float opacity = 1;                ///< 0 to 1
    bool visible = true, mesh = true; ///< shown at all, and in three dimensions; kept for other programs
    std::string name;                 ///< UTF-8; may be empty
    std::optional<Thresholds> thresholds;
    bool operator==(const LabelEntry&) const = default;
};

/// Names, colours and thresholds of tags, each tag once, in any order.
using LabelTable = std::vector<LabelEntry>;

/// Saves a table as the label description that ITK-SNAP reads; thresholds are comments in it, which other programs
/// skip. The name must end in ".label" or ".txt". Written the way that save_labels() writes a label map.
///
/// The format has no place for quotes and line ends in names: an apostrophe and a blank are written instead. Returns
/// what the user should know of that, ready to be shown; mostly nothing. Never throws.
Result<std::vector<std::string>> save_label_table(const std::filesystem::path& path, const LabelTable& table);

/// Loads a table, in the order of its file: also without header, with line ends of Windows, names in Latin-1, and tags
/// that no label map here can hold. A file with a line that cannot be understood, or with a tag described twice, is
/// refused with the number of the line. Never throws.
Result<LabelTable> load_label_table(const std::filesystem::path& path);

/// The file beside a label map that describes its tags: "a/liver.nii.gz" has "a/liver.label".
std::filesystem::path label_table_path(const std::filesystem::path& labels);

}
