#include "workbench/document/marker_file.h"

#include "workbench/document/guarded.h"
#include "workbench/document/marker_text.h"
#include "workbench/document/text_file.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

bool is_table(const std::filesystem::path& path)
{
    return extension_of(path) == ".csv";
}

void leave_out_too_many(MarkerFile& file, const std::filesystem::path& path)
{
    const auto count = file.markers.size();
    if (count <= most_markers)
        return;
    const auto left_out = count - most_markers;
    file.markers.resize(most_markers);
    file.notices.push_back(quoted(path) + " holds " + std::to_string(count) + " markers: the first " +
                           std::to_string(most_markers) + " are there, " + std::to_string(left_out) +
                           (left_out == 1 ? " is" : " are") + " left out.");
}

Result<MarkerFile> load(const std::filesystem::path& path)
{
    const auto text = content_of(path, "a file with markers");
    if (!text)
        return text.failure();
    auto file = is_table(path) ? read_markers_csv(*text, path) : read_markers_json(*text, path);
    if (file)
        leave_out_too_many(*file, path);
    return file;
}

std::optional<Failure> check(const std::filesystem::path& path, const MarkerList& content)
{
    const auto written = load(path);
    if (!written)
        return Failure{"what was written could not be read back (" + written.failure().message + ")"};
    if (written->markers != content)
        return Failure{"what was written reads back differently"};
    return {};
}

bool is_finite(const Marker& marker)
{
    return !marker.position || std::ranges::all_of(*marker.position, [](double value) { return std::isfinite(value); });
}

// What the file will say: texts as they can be written, and what the format has a place for.
MarkerList writable(const MarkerList& markers, bool table)
{
    MarkerList content = markers;
    for (auto& marker : content) {
        marker.label = marker_text(marker.label);
        marker.description = marker_text(marker.description);
        if (table)
            marker.colour.reset();
    }
    return content;
}

}

std::string marker_text(std::string_view text)
{
    std::string result = is_utf8(text) ? std::string(text) : from_latin1(text);
    std::ranges::replace(result, '\0', ' ');
    return result;
}

Result<std::vector<std::string>> save_markers(const std::filesystem::path& path, const MarkerList& markers)
{
    using Notices = std::vector<std::string>;
    return guarded<Result<Notices>>(path, [&]() -> Result<Notices> {
        const auto extension = extension_of(path);
        const bool table = is_table(path);
        if (!table && extension != ".mrk.json" && extension != ".json")
            return Failure{quoted(path) + " is no name for markers. Let it end in \".mrk.json\" or \".csv\"."};
        if (!std::ranges::all_of(markers, is_finite))
            return Failure{quoted(path) + " cannot be saved: a marker lies at no finite position. Set it again."};
        const auto content = writable(markers, table);
        const auto text = table ? write_markers_csv(content) : write_markers_json(content);
        if (auto failure =
                save_text(path, text, [&](const std::filesystem::path& written) { return check(written, content); }))
            return *failure;
        return content == markers || !table ? Notices() : Notices{"Colours have no place in a .csv file."};
    });
}

Result<MarkerFile> load_markers(const std::filesystem::path& path)
{
    return guarded<Result<MarkerFile>>(path, [&] { return load(path); });
}

}
