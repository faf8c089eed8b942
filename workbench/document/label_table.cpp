#include "workbench/document/label_table.h"

#include "workbench/document/guarded.h"
#include "workbench/document/label_table_text.h"
#include "workbench/document/text_file.h"

namespace document {

namespace {

Result<LabelTable> load(const std::filesystem::path& path)
{
    const auto text = content_of(path, "a label table");
    return text ? read_label_table(*text, path) : text.failure();
}

std::optional<Failure> check(const std::filesystem::path& path, const LabelTable& content)
{
    const auto written = load(path);
    if (!written)
        return Failure{"what was written could not be read back (" + written.failure().message + ")"};
    if (*written != content)
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
        if (auto failure = save_text(
                path, text.text, [&](const std::filesystem::path& written) { return check(written, text.content); }))
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
