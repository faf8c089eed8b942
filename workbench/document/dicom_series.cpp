#include "workbench/document/dicom_series.h"

#include "workbench/document/input_file.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace document {

namespace {

constexpr double same_place = 1e-3; // millimetres

/// What frames of one stack have in common. A file with several frames is a stack of its own.
auto key_of(const DicomHeader& header)
{
    std::array<long, 6> orientation;
    std::transform(header.orientation.begin(), header.orientation.end(), orientation.begin(),
        [](double component) { return std::lround(component * 1000); });
    return std::tuple(header.series_uid, header.rows, header.columns, orientation,
        header.frames > 1 ? header.path.string() : std::string());
}

bool all_placed(const Stack& stack)
{
    return std::all_of(stack.begin(), stack.end(), [](const auto& header) { return header.position.has_value(); });
}

void sort_frames(Stack& stack)
{
    const bool placed = all_placed(stack);
    std::sort(stack.begin(), stack.end(), [placed](const DicomHeader& a, const DicomHeader& b) {
        const double x = placed ? std::round(a.along_normal() / same_place) : 0;
        const double y = placed ? std::round(b.along_normal() / same_place) : 0;
        return std::tie(x, a.instance, a.path) < std::tie(y, b.instance, b.path);
    });
}

int frames_of(const Stack& stack)
{
    return stack.size() == 1 ? stack[0].frames : int(stack.size());
}

}

Result<std::vector<std::filesystem::path>> files_in(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (std::error_code unknown; entry->is_regular_file(unknown))
            files.push_back(entry->path());
    if (error)
        return Failure{"The folder " + quoted(folder) + " cannot be read: " + error.message() +
                       ". Change its permissions, or choose another one."};
    std::sort(files.begin(), files.end());
    return files;
}

Result<std::vector<DicomHeader>> read_headers(const std::vector<std::filesystem::path>& files, const Progress& progress)
{
    std::vector<DicomHeader> headers;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (progress.stop())
            return Failure{"Reading was stopped.", true};
        progress.at(double(i) / double(files.size()));
        if (auto header = read_dicom_header(files[i]))
            headers.push_back(std::move(*header));
    }
    return headers;
}

std::vector<Stack> stacks_of(std::vector<DicomHeader> headers)
{
    std::map<decltype(key_of(headers[0])), Stack> by_key;
    for (auto& header : headers)
        by_key[key_of(header)].push_back(std::move(header));
    std::vector<Stack> stacks;
    for (auto& [key, stack] : by_key) {
        sort_frames(stack);
        stacks.push_back(std::move(stack));
    }
    std::stable_sort(stacks.begin(), stacks.end(), [](const Stack& a, const Stack& b) {
        const int more = frames_of(b), less = frames_of(a);
        return std::tie(more, a[0].series) < std::tie(less, b[0].series);
    });
    return stacks;
}

void keep_first_volume(Stack& stack, std::vector<std::string>& notices)
{
    if (!all_placed(stack) || stack.size() < 2)
        return;
    Stack kept;
    for (const auto& header : stack)
        if (kept.empty() || std::abs(header.along_normal() - kept.back().along_normal()) > same_place)
            kept.push_back(header);
    // All at one place are a sequence in time, which is shown whole.
    if (kept.size() == 1 || kept.size() == stack.size())
        return;
    notices.push_back("The series has " + std::to_string(stack.size()) + " frames at " + std::to_string(kept.size()) +
                      " places; the first frame of each place is shown.");
    stack = std::move(kept);
}

}
