#include "workbench/document/dicom_series.h"
#include "workbench/document/guarded.h"
#include "workbench/document/open.h"
#include "workbench/document/readers.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace document {

namespace {

using Path = std::filesystem::path;
using Paths = std::vector<Path>;

/// What is to be opened: each entry becomes an image.
struct Wanted {
    std::vector<Stack> stacks;
    Paths others; // files and folders that open() knows what to do with
};

void sort_by_number(std::vector<Stack>& stacks)
{
    std::stable_sort(stacks.begin(), stacks.end(), [](const Stack& a, const Stack& b) {
        const auto key = [](const Stack& stack) {
            return std::tie(stack[0].study_date, stack[0].study_uid, stack[0].series_number, stack[0].series);
        };
        return key(a) < key(b);
    });
}

// Of a file that is named twice, by itself and with its folder for one, the frames would all be there twice.
Paths each_once(Paths paths)
{
    std::set<Path> seen;
    std::erase_if(paths, [&](const Path& path) {
        std::error_code error;
        const Path file = std::filesystem::canonical(path, error);
        return !seen.insert(error ? path : file).second;
    });
    return paths;
}

// A folder's table of contents, which every medium has.
bool is_directory_file(const Path& path)
{
    return path.filename() == "DICOMDIR";
}

// A patient's medium has its series in folders inside folders.
Paths dicom_below(const Path& folder, const Progress& progress)
{
    Paths found;
    std::error_code error;
    constexpr auto options = std::filesystem::directory_options::skip_permission_denied;
    for (std::filesystem::recursive_directory_iterator entry(folder, options, error), end;
         !error && entry != end && !progress.stop(); entry.increment(error)) {
        std::error_code unknown;
        if (entry->is_regular_file(unknown) && !is_directory_file(entry->path()) && is_dicom(entry->path()))
            found.push_back(entry->path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

Result<Wanted> wanted_of(const Paths& paths, const Progress& progress)
{
    Wanted wanted;
    Paths dicom;
    for (const Path& path : paths) {
        std::error_code error;
        if (!std::filesystem::is_directory(path, error)) {
            (paths.size() > 1 && is_dicom(path) ? dicom : wanted.others).push_back(path);
            continue;
        }
        auto files = files_in(path);
        if (!files)
            return files.failure();
        std::erase_if(*files, is_directory_file);
        if (std::ranges::none_of(*files, is_image))
            *files = dicom_below(path, progress);
        if (std::ranges::none_of(*files, is_dicom))
            wanted.others.push_back(path);
        else
            dicom.insert(dicom.end(), files->begin(), files->end());
    }
    auto headers = read_headers(each_once(std::move(dicom)), progress);
    if (!headers)
        return headers.failure();
    wanted.stacks = stacks_of(std::move(*headers));
    sort_by_number(wanted.stacks);
    return wanted;
}

/// Opens one after the other and keeps account of what cannot be.
class Opener {
public:
    Opener(const Progress& progress, std::size_t count) : progress_(progress), count_(double(count)) {}

    template <class Read>
    void open(const Path& path, Read read)
    {
        if (stopped_)
            return;
        const Progress part = part_of(progress_, done_ / count_, (done_ + 1) / count_);
        auto opened = guarded<Result<Opened>>(path, [&] { return read(part); });
        ++done_;
        if (opened)
            result_.images.push_back(std::move(*opened));
        else if (opened.failure().cancelled)
            stopped_ = true;
        else
            result_.unreadable.push_back(opened.failure().message);
    }

    Result<OpenedImages> result()
    {
        if (stopped_)
            return Failure{"Reading was stopped.", true};
        if (!result_.images.empty())
            return std::move(result_);
        std::string all;
        for (const auto& reason : result_.unreadable)
            all += (all.empty() ? "" : "\n") + reason;
        return Failure{all.empty() ? "There is no image in what was to be opened. Choose an image." : all};
    }

private:
    const Progress& progress_;
    double count_, done_ = 0;
    bool stopped_ = false;
    OpenedImages result_;
};

}

Result<OpenedImages> open_all(const Paths& paths, const Progress& progress)
{
    if (paths.empty())
        return Failure{"There is nothing to open. Choose a file or a folder."};
    return guarded<Result<OpenedImages>>(paths[0], [&]() -> Result<OpenedImages> {
        const auto wanted = wanted_of(each_once(paths), part_of(progress, 0, 0.2));
        if (!wanted)
            return wanted.failure();
        const Progress reading = part_of(progress, 0.2, 1);
        Opener opener(reading, wanted->stacks.size() + wanted->others.size());
        for (const Path& path : wanted->others)
            opener.open(path, [&](const Progress& part) { return document::open({path}, part); });
        for (const Stack& stack : wanted->stacks)
            opener.open(
                stack[0].path, [&](const Progress& part) { return completed(read_stack(stack, part), stack[0].path); });
        return opener.result();
    });
}

}
