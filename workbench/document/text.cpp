#include "workbench/document/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace document {

namespace {

template <class Number>
std::string shortest(Number value)
{
    char text[40];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

}

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

std::string exact_text(double value)
{
    return shortest(value);
}

std::string exact_text(float value)
{
    return shortest(value);
}

template <class Number>
std::optional<Number> exact_number(std::string_view text)
{
    const auto plain = trimmed(text);
    Number number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    if (error != std::errc() || end != plain.data() + plain.size() || !std::isfinite(double(number)))
        return {};
    return number;
}

template std::optional<int> exact_number(std::string_view text);
template std::optional<float> exact_number(std::string_view text);
template std::optional<double> exact_number(std::string_view text);

std::string extension_of(const std::filesystem::path& path)
{
    const auto last = lower_case(path.extension().string());
    const auto inner = lower_case(path.stem().extension().string());
    if (last == ".json" && inner == ".mrk")
        return inner + last;
    if (last != ".gz")
        return last;
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

// By lead byte: how many bytes follow, and the least code that may be written with them.
bool is_utf8(std::string_view text)
{
    constexpr unsigned least[] = {0, 0x80, 0x800, 0x10000};
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i++]);
        const unsigned following = lead < 0x80 ? 0 : lead < 0xC0 ? 4 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        if (lead >= 0xF8 || following == 4 || text.size() - i < following)
            return false;
        unsigned code = following == 0 ? lead : lead & (0x3Fu >> following);
        for (unsigned n = 0; n < following; ++n, ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            if ((byte & 0xC0) != 0x80)
                return false;
            code = code << 6 | (byte & 0x3Fu);
        }
        if (code < least[following] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
            return false;
    }
    return true;
}

std::string from_latin1(std::string_view text)
{
    std::string converted;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80)
            converted += c;
        else
            converted += {char(0xC0 | code >> 6), char(0x80 | (code & 0x3F))};
    }
    return converted;
}

}
