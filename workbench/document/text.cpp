#include "workbench/document/text.h"

#include <algorithm>
#include <charconv>

namespace document {

std::string quoted(const std::filesystem::path& path)
{
    const auto name = path.has_filename() ? path.filename() : path;
    return "\"" + name.string() + "\"";
}

std::string number_text(double value)
{
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr;
    return {text, end};
}

std::string bytes_text(std::uint64_t bytes)
{
    if (bytes < 10'000)
        return std::to_string(bytes) + " bytes";
    const char* const units[] = {" kB", " MB", " GB", " TB", " PB", " EB"};
    double value = double(bytes) / 1000;
    int unit = 0;
    for (; value >= 1000; value /= 1000)
        ++unit;
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, value < 100 ? 1 : 0).ptr;
    return std::string(text, end) + units[unit];
}

std::string size_text(const std::array<int, 3>& size)
{
    return std::to_string(size[0]) + " x " + std::to_string(size[1]) + " x " + std::to_string(size[2]);
}

std::string extension_of(const std::filesystem::path& path)
{
    const auto last = lower_case(path.extension().string());
    if (last != ".gz")
        return last;
    const auto inner = lower_case(path.stem().extension().string());
    return inner == ".nii" || inner == ".hdr" || inner == ".img" ? inner + last : last;
}

std::string trimmed(std::string_view text)
{
    const std::string_view blank(" \t\r\n\0", 5);
    const auto first = text.find_first_not_of(blank);
    if (first == text.npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(blank) - first + 1));
}

std::string lower_case(std::string_view text)
{
    std::string lower(text);
    std::transform(
        lower.begin(), lower.end(), lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return lower;
}

}
