#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace document {

/// The pieces that messages are made of.
std::string quoted(const std::filesystem::path& path); ///< the name without its folder, in quotes
std::string number_text(double value);                 ///< the shortest text that is right to 6 digits
std::string bytes_text(std::uint64_t bytes);           ///< "7.1 MB"; below 10,000 exactly: "512 bytes"
std::string size_text(const std::array<int, 3>& size); ///< "181 x 217 x 181"

/// Lower-case extension with its dot; ".nii.gz", ".hdr.gz" and ".img.gz" count as one.
std::string extension_of(const std::filesystem::path& path);

/// Without blanks and line ends at both sides.
std::string trimmed(std::string_view text);
std::string lower_case(std::string_view text);

}
