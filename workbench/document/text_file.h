#pragma once

#include "workbench/document/result.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace document {

/// All bytes of a small file. Fails, with what can be done, when it is none, or larger than texts of its kind ever are.
/// @param kind  what it should be, for messages: "a label table"
Result<std::string> content_of(const std::filesystem::path& path, const std::string& kind);

/// Writes a text the way that save_labels() writes a label map. @param check  returns what is wrong with the file that
/// was written, having read it back
std::optional<Failure> save_text(const std::filesystem::path& path, const std::string& text,
    const std::function<std::optional<Failure>(const std::filesystem::path& written)>& check);

}
