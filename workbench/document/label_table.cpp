#include "workbench/document/label_table.h"

#include "workbench/document/guarded.h"
#include "workbench/document/input_file.h"
#include "workbench/document/label_table_text.h"
#include "workbench/document/safe_file.h"

#include <fstream>

namespace document {

namespace {

Result<std::string> content_of(const std::filesystem::path& path)
{
    constexpr std::uint64_t most = 64 << 20; // what all tags there can be, with long names, do not reach
    if (std::error_code error; std::filesystem::is_directory(path, error))
        return Failure{quoted(path) + " is a folder. Choose a label table."};
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    if (file->size() > most)
        return Failure{
            quoted(path) + " is too large for a label table (" + bytes_text(file->size()) + "). Choose another file."};
    std::string text(file->size(), '\0');
    text.resize(file->read(0, std::as_writable_bytes(std::span(text))));
    if (text.size() < file->size())
        return Failure{quoted(path) + " could not be read to its end. Get a complete copy of the file."};
    return text;
}

Result<LabelTable> load(const std::filesystem::path& path)
{
    const auto text = content_of(path);
    return text ? read_label_table(*text, path) : text.failure();
}

std::optional<Failure> write_and_compare(const std::filesystem::path& path, const LabelTableText& table)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << table.text;
    file.close();
    if (!file)
        return Failure{"not all of it could be written"};
    const auto written = load(path);
    if (!written)
        return Failure{"what was written could not be read back (" + written.failure().message + ")"};
    if (*written != table.content)
        return Failure{"what was written reads back differently"};
    return {};
}

}

Result<std::vector<std::string>> save_label_table(const std::filesystem::path& path, const LabelTable& table)
{
    using Notices = std::vector<std::string>;
    return guarded<Result<Notices>>(path, [&]() -> Result<Notices> {
        if (const auto extension = extension_of(path); extension != ".label" && extension != ".txt")
            return Failure{quoted(path) + " is no name for a label table. Let it end in \".label\" or \".txt\"."};
        auto text = write_label_table(table);
        if (auto failure = replace_file(path, text.text.size(),
                [&](const std::filesystem::path& temporary) { return write_and_compare(temporary, text); }))
            return *failure;
        return std::move(text.notices);
    });
}

Result<LabelTable> load_label_table(const std::filesystem::path& path)
{
    return guarded<Result<LabelTable>>(path, [&] { return load(path); });
}

std::filesystem::path label_table_path(const std::filesystem::path& labels)
{
    auto name = labels.filename().string();
    name.resize(name.size() - extension_of(labels).size());
    return labels.parent_path() / (name + ".label");
}

}
