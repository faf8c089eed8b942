#include "workbench/document/open.h"

#include "workbench/document/dicom_series.h"
#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <new>
#include <tuple>

namespace document {

namespace {

using Path = std::filesystem::path;
using Paths = std::vector<Path>;

/// Runs the reading of something; no exception leaves it.
template <class Value, class Action>
Result<Value> guarded(const Path& path, Action&& action)
{
    try {
        return action();
    } catch (const std::bad_alloc&) {
        return Failure{"There is not enough memory to read " + quoted(path) + ". Close other programs first."};
    } catch (const std::exception& error) {
        return Failure{quoted(path) + " cannot be read: " + error.what() + "."};
    }
}

std::string count_text(std::size_t count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::size_t frame_count(const Stack& stack)
{
    return stack.size() == 1 ? std::size_t(stack[0].pixels.frames) : stack.size();
}

/// By its description; one without is named by what it is, and by its first file.
std::string name_of(const DicomHeader& header)
{
    if (!header.series.empty())
        return "\"" + header.series + "\"";
    return (header.modality.empty() ? "" : header.modality + " in ") + quoted(header.path);
}

/// Names a few of the series that are not opened; a folder may hold dozens, in parts.
std::string names_of_others(const std::vector<Stack>& stacks, std::size_t chosen)
{
    constexpr std::size_t most = 3;
    std::vector<std::pair<std::string, std::size_t>> others; // and their frames
    for (std::size_t i = 0; i < stacks.size(); ++i) {
        if (i == chosen)
            continue;
        const auto name = name_of(stacks[i][0]);
        const auto same = std::find_if(others.begin(), others.end(), [&](const auto& o) { return o.first == name; });
        if (same != others.end())
            same->second += frame_count(stacks[i]);
        else
            others.emplace_back(name, frame_count(stacks[i]));
    }
    std::string names;
    for (std::size_t i = 0; i < std::min(most, others.size()); ++i)
        names += (i > 0 ? ", " : "") + others[i].first + " (" + count_text(others[i].second, "frame") + ")";
    return others.size() > most ? names + " and " + std::to_string(others.size() - most) + " more" : names;
}

Result<Opened> open_stack(const std::vector<Stack>& stacks, std::size_t chosen, const Progress& progress)
{
    auto opened = completed(read_stack(stacks[chosen], progress), stacks[chosen][0].path);
    if (opened && stacks.size() > 1)
        opened->notices.push_back("Not opened, but in the same place: " + names_of_others(stacks, chosen) + ".");
    return opened;
}

/// The series of one file, out of these.
Result<Opened> open_series_of(const Path& file, const Paths& files, const Progress& progress)
{
    const auto chosen = read_dicom_header(file);
    if (!chosen)
        return Failure{quoted(file) + " is a DICOM file without a picture. Choose an image."};
    if (!chosen->damage.empty())
        return Failure{chosen->damage};
    auto headers = read_headers(files, part_of(progress, 0, 0.2));
    if (!headers)
        return headers.failure();
    // Series of the same patient lie in one folder as a rule: that they are there needs no telling.
    std::erase_if(*headers, [&](const DicomHeader& header) { return header.series_uid != chosen->series_uid; });
    if (chosen->series_uid.empty())
        std::erase_if(*headers, [&](const DicomHeader& header) { return header.path != file; });
    auto stacks = stacks_of(std::move(*headers));
    const auto holds = [&](const Stack& stack) {
        return std::any_of(stack.begin(), stack.end(), [&](const auto& header) { return header.path == file; });
    };
    const auto found = std::find_if(stacks.begin(), stacks.end(), holds);
    if (found == stacks.end())
        return Failure{quoted(file) + " disappeared while it was read."};
    const auto index = std::size_t(found - stacks.begin());
    return open_stack(stacks, index, part_of(progress, 0.2, 1));
}

Result<Opened> open_first(const Paths& paths, const Progress& progress)
{
    auto opened = completed(read_file(paths[0], progress), paths[0]);
    if (opened && paths.size() > 1)
        opened->notices.push_back(
            "Only " + quoted(paths[0]) + " was opened, not the other " + count_text(paths.size() - 1, "file") + ".");
    return opened;
}

Result<Opened> open_folder(const Path& folder, const Progress& progress)
{
    auto files = files_in(folder);
    if (!files)
        return files.failure();
    auto headers = read_headers(*files, part_of(progress, 0, 0.2));
    if (!headers)
        return headers.failure();
    if (!headers->empty())
        return open_stack(stacks_of(std::move(*headers)), 0, part_of(progress, 0.2, 1));
    std::erase_if(*files, [](const Path& path) { return !is_image(path); });
    if (files->empty())
        return Failure{"The folder " + quoted(folder) +
                       " holds no image that can be read. Choose another folder,"
                       " or one of those inside it."};
    return open_first(*files, progress);
}

Result<Opened> open_file(const Paths& paths, const Progress& progress)
{
    const auto file = InputFile::open(paths[0]);
    if (!file)
        return file.failure();
    if (format_of(*file) != Format::dicom)
        return open_first(paths, progress);
    if (paths.size() > 1) {
        Paths files = paths;
        std::erase_if(files, [](const Path& path) { return !is_dicom(path); });
        return open_series_of(paths[0], files, progress);
    }
    const auto absolute = std::filesystem::absolute(paths[0]);
    const auto files = files_in(absolute.parent_path());
    // A folder that may not be listed still lets its files be read.
    return open_series_of(absolute, files ? *files : Paths{absolute}, progress);
}

}

Progress part_of(const Progress& whole, double begin, double end)
{
    Progress part;
    part.cancelled = whole.cancelled;
    if (whole.report)
        part.report = [&whole, begin, end](double done) { whole.at(begin + (end - begin) * done); };
    return part;
}

Result<Opened> completed(Result<Opened> opened, const Path& path)
{
    if (!opened)
        return opened;
    auto& volume = opened->volume;
    if (volume.series.empty())
        volume.series = path.filename().string();
    for (int z = int(volume.frames.size()); z < volume.frame_count(); ++z)
        volume.frames.push_back({z * volume.geometry.spacing[2], z + 1, path.string()});
    for (const auto& frame : volume.frames)
        if (volume.files.empty() || volume.files.back() != frame.file)
            volume.files.push_back(frame.file);
    return opened;
}

bool is_dicom(const Path& path)
{
    const auto file = InputFile::open(path);
    return file && format_of(*file) == Format::dicom;
}

bool is_image(const Path& path)
{
    const auto file = InputFile::open(path);
    return file && format_of(*file) != Format::unknown;
}

Result<Opened> open(const std::vector<Path>& paths, const Progress& progress)
{
    if (paths.empty())
        return Failure{"There is nothing to open. Choose a file or a folder."};
    return guarded<Opened>(paths[0], [&]() -> Result<Opened> {
        // A trailing slash would leave a folder without a name to speak of.
        const auto path = paths[0].has_filename() ? paths[0] : paths[0].parent_path();
        if (std::error_code error; std::filesystem::is_directory(path, error))
            return open_folder(path, progress);
        return open_file(paths, progress);
    });
}

Result<std::vector<Series>> list_series(const Path& folder, const Progress& progress)
{
    return guarded<std::vector<Series>>(folder, [&]() -> Result<std::vector<Series>> {
        const auto files = files_in(folder);
        if (!files)
            return files.failure();
        auto headers = read_headers(*files, progress);
        if (!headers)
            return headers.failure();
        std::vector<Series> list;
        for (const auto& stack : stacks_of(std::move(*headers))) {
            Series series{stack[0].series_uid, stack[0].series, stack[0].modality, stack[0].patient, {}};
            for (const auto& header : stack)
                series.files.push_back(header.path);
            list.push_back(std::move(series));
        }
        std::stable_sort(list.begin(), list.end(), [](const Series& a, const Series& b) {
            return std::tie(a.description, a.uid) < std::tie(b.description, b.uid);
        });
        return list;
    });
}

Result<Opened> open_series(const Series& series, const Progress& progress)
{
    if (series.files.empty())
        return Failure{"The series has no files."};
    return guarded<Opened>(series.files[0], [&] { return open_series_of(series.files[0], series.files, progress); });
}

}
