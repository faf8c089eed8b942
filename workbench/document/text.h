#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace document {

/// The pieces that messages are made of.
std::string quoted(const std::filesystem::path& path); ///< the name without its folder, in quotes
std::string number_text(double value);                 ///< the shortest text that is right to 6 digits
std::string bytes_text(std::uint64_t bytes);           ///< "7.1 MB"; below 10,000 exactly: "512 bytes"
std::string size_text(const std::array<int, 3>& size); ///< "181 x 217 x 181"

/// The shortest text that reads back as the same number, with a point, whatever the user's language.
std::string exact_text(float value);
std::string exact_text(double value);

/// The number that a text is, blanks around it aside; nothing when it is something else, too large or not finite.
/// For int, float and double.
template <class Number>
std::optional<Number> exact_number(std::string_view text);

/// Lower-case extension with its dot; ".nii.gz", ".hdr.gz", ".img.gz" and ".mrk.json" count as one.
std::string extension_of(const std::filesystem::path& path);

/// Without blanks and line ends at both sides.
std::string trimmed(std::string_view text);
std::string lower_case(std::string_view text);

bool is_utf8(std::string_view text);
/// Latin-1 (ISO 8859-1) as UTF-8.
std::string from_latin1(std::string_view text);

}
