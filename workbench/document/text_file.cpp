#include "workbench/document/text_file.h"

#include "workbench/document/input_file.h"
#include "workbench/document/safe_file.h"
#include "workbench/document/text.h"

#include <fstream>

namespace document {

Result<std::string> content_of(const std::filesystem::path& path, const std::string& kind)
{
    constexpr std::uint64_t most = 64 << 20; // what all tags or markers there can be, with long names, do not reach
    if (std::error_code error; std::filesystem::is_directory(path, error))
        return Failure{quoted(path) + " is a folder. Choose " + kind + "."};
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    if (file->size() > most)
        return Failure{
            quoted(path) + " is too large for " + kind + " (" + bytes_text(file->size()) + "). Choose another file."};
    std::string text(file->size(), '\0');
    text.resize(file->read(0, std::as_writable_bytes(std::span(text))));
    if (text.size() < file->size())
        return Failure{quoted(path) + " could not be read to its end. Get a complete copy of the file."};
    return text;
}

std::optional<Failure> save_text(const std::filesystem::path& path, const std::string& text,
    const std::function<std::optional<Failure>(const std::filesystem::path& written)>& check)
{
    return replace_file(path, text.size(), [&](const std::filesystem::path& temporary) -> std::optional<Failure> {
        std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
        file << text;
        file.close();
        if (!file)
            return Failure{"not all of it could be written"};
        return check(temporary);
    });
}

}
