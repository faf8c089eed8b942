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
    const auto& pixels = header.pixels;
    const auto kind = std::tuple(pixels.element(), pixels.samples, pixels.is_colour(), pixels.is_inverted());
    return std::tuple(header.series_uid, pixels.rows, pixels.columns, kind, orientation,
        pixels.frames > 1 ? header.path.string() : std::string());
}

/// A place as it is compared: in steps, so that noise in the last digits does not order frames.
double step_of(double place)
{
    return std::round(place / same_place);
}

void sort_files(Stack& stack)
{
    const bool placed =
        std::all_of(stack.begin(), stack.end(), [](const auto& header) { return header.position.has_value(); });
    std::sort(stack.begin(), stack.end(), [placed](const DicomHeader& a, const DicomHeader& b) {
        const double x = placed ? step_of(a.along_normal()) : 0;
        const double y = placed ? step_of(b.along_normal()) : 0;
        return std::tie(x, a.instance, a.path) < std::tie(y, b.instance, b.path);
    });
}

int frame_count(const Stack& stack)
{
    return stack.size() == 1 ? stack[0].pixels.frames : int(stack.size());
}

bool is_turned(const std::array<double, 6>& a, const std::array<double, 6>& b)
{
    constexpr double tolerance = 1e-3;
    return !std::equal(a.begin(), a.end(), b.begin(), [](double x, double y) { return std::abs(x - y) <= tolerance; });
}

bool all_placed(const std::vector<StackFrame>& frames)
{
    return std::all_of(frames.begin(), frames.end(), [](const auto& frame) { return frame.place.has_value(); });
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
        sort_files(stack);
        stacks.push_back(std::move(stack));
    }
    std::stable_sort(stacks.begin(), stacks.end(), [](const Stack& a, const Stack& b) {
        const int more = frame_count(b), less = frame_count(a);
        return std::tie(more, a[0].series) < std::tie(less, b[0].series);
    });
    return stacks;
}

std::vector<StackFrame> frames_of(const Stack& stack)
{
    std::vector<StackFrame> frames;
    bool turned = false;
    for (const auto& header : stack)
        for (int i = 0; i < header.pixels.frames; ++i) {
            turned = turned || is_turned(header.orientation_of(i), stack[0].orientation);
            const auto position = header.position_of(i);
            frames.push_back({&header, i, position ? std::optional(stack[0].along_normal(*position)) : std::nullopt});
        }
    if (turned || !all_placed(frames)) {
        for (auto& frame : frames)
            frame.place.reset();
        return frames;
    }
    std::stable_sort(frames.begin(), frames.end(),
        [](const auto& a, const auto& b) { return step_of(*a.place) < step_of(*b.place); });
    return frames;
}

std::vector<StackFrame> keep_first_volume(std::vector<StackFrame>& frames, std::vector<std::string>& notices)
{
    if (frames.size() < 2 || !all_placed(frames))
        return {};
    std::vector<StackFrame> kept, left_out;
    for (const auto& frame : frames) {
        const bool elsewhere = kept.empty() || std::abs(*frame.place - *kept.back().place) > same_place;
        (elsewhere ? kept : left_out).push_back(frame);
    }
    // All at one place are a sequence in time, which is shown whole.
    if (kept.size() == 1 || left_out.empty())
        return {};
    notices.push_back("The series has " + std::to_string(frames.size()) + " frames at " + std::to_string(kept.size()) +
                      " places; the first frame of each place is shown.");
    frames = std::move(kept);
    return left_out;
}

}
