#include "workbench/document/label_table_text.h"
#include "workbench/document/text.h"

#include <algorithm>

namespace document {

namespace {

// Programs know the format by the second line.
constexpr const char* header = R"(################################################
# ITK-SnAP Label Description File
# File format:
# IDX   -R-  -G-  -B-  -A--  VIS MSH  LABEL
# Fields:
#    IDX:   Zero-based index
#    -R-:   Red color component (0..255)
#    -G-:   Green color component (0..255)
#    -B-:   Blue color component (0..255)
#    -A-:   Label opacity (0.00 .. 1.00)
#    VIS:   Label visibility (0 or 1)
#    MSH:   Label mesh visibility (0 or 1)
#  LABEL:   Label description
################################################
)";

std::string right(std::string text, std::size_t width)
{
    text.insert(0, width - std::min(width, text.size()), ' ');
    return text;
}

std::string right(int number, std::size_t width)
{
    return right(std::to_string(number), width);
}

std::string row(const LabelEntry& entry)
{
    return "  " + right(entry.tag, 3) + "   " + right(entry.red, 3) + "  " + right(entry.green, 3) + "  " +
           right(entry.blue, 3) + "  " + right(exact_text(entry.opacity), 7) + "  " + right(entry.visible, 1) + "  " +
           right(entry.mesh, 1) + "    \"" + entry.name + "\"\n";
}

std::string threshold_line(int tag, const Thresholds& thresholds)
{
    return "# vetra: threshold " + std::to_string(tag) + " " + exact_text(thresholds.lower) + " " +
           exact_text(thresholds.upper) + "\n";
}

bool is_control(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

std::string writable(const std::string& name)
{
    std::string result = is_utf8(name) ? name : from_latin1(name);
    std::replace(result.begin(), result.end(), '"', '\'');
    std::replace_if(result.begin(), result.end(), is_control, ' ');
    return result;
}

void make_writable(LabelTableText& table, LabelEntry& entry)
{
    auto name = writable(entry.name);
    if (name == entry.name)
        return;
    entry.name = std::move(name);
    table.notices.push_back("Quotes and line ends in names cannot be saved: tag " + std::to_string(entry.tag) +
                            " is called \"" + entry.name + "\" in the file.");
}

/// Some readers know only 1 and 0, and pass over a row without a word.
void tell_of_opacities(LabelTableText& table)
{
    std::string tags;
    for (const auto& entry : table.content)
        if (entry.opacity != 0 && entry.opacity != 1)
            tags += (tags.empty() ? "" : ", ") + std::to_string(entry.tag);
    if (!tags.empty())
        table.notices.push_back("Some programs skip tags that are partly transparent: " + tags + ".");
}

}

LabelTableText write_label_table(const LabelTable& table)
{
    LabelTableText result{header, table, {}};
    for (auto& entry : result.content) {
        make_writable(result, entry);
        result.text += row(entry);
        if (entry.thresholds)
            result.text += threshold_line(entry.tag, *entry.thresholds);
    }
    tell_of_opacities(result);
    return result;
}

}
