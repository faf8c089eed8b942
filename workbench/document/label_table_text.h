#pragma once

#include "workbench/document/label_table.h"

#include <string_view>

namespace document {

/// A table as the text of its file.
struct LabelTableText {
    std::string text;
    LabelTable content;               ///< what the text says: the table, with names as they can be written
    std::vector<std::string> notices; ///< what of it is not as it was, for the user
};
LabelTableText write_label_table(const LabelTable& table);

/// The table that a text describes. @param path  what messages name
Result<LabelTable> read_label_table(std::string_view text, const std::filesystem::path& path);

}
