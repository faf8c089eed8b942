#include "workbench/document/dicom_frames.h"
#include "workbench/document/dicom_series.h"
#include "workbench/document/elements.h"
#include "workbench/document/stored_values.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

using Frames = std::vector<StackFrame>;

bool have_one_scale(const Frames& frames)
{
    const auto scale = [](const StackFrame& frame) {
        return std::pair(frame.header->slope_of(frame.index), frame.header->intercept_of(frame.index));
    };
    return std::all_of(
        frames.begin(), frames.end(), [&](const auto& frame) { return scale(frame) == scale(frames[0]); });
}

/// Reads the frames of a stack one after the other into one block: stored values; grey values where the frames' scales
/// differ.
class StackReader {
public:
    StackReader(const Frames& frames, const Layout& frame, const Progress& progress)
        : frames_(frames), stored_(frame), progress_(progress),
          as_grey_(!frames[0].header->pixels.is_colour() && !have_one_scale(frames))
    {
        layout_ = frame;
        if (as_grey_)
            layout_.element = Element::f32;
    }

    Result<PixelMemory> read()
    {
        const auto& path = frames_[0].header->path;
        const std::int64_t sizes[] = {stored_.size[0], stored_.size[1], std::int64_t(frames_.size())};
        if (const auto failure = take_sizes(layout_, sizes, path))
            return *failure;
        auto memory = allocate_volume(layout_, path);
        if (!memory)
            return memory;
        const std::size_t size = memory->size() / frames_.size();
        for (std::size_t i = 0; i < frames_.size(); ++i) {
            if (progress_.stop())
                return Failure{"Reading was stopped.", true};
            progress_.at(double(i) / double(frames_.size()));
            if (const auto failure = read_frame(frames_[i], memory->bytes().subspan(i * size, size)))
                return *failure;
        }
        return memory;
    }

    const Layout& layout() const { return layout_; }
    bool as_grey() const { return as_grey_; }

private:
    std::optional<Failure> read_frame(const StackFrame& frame, std::span<std::byte> target)
    {
        if (frame.header != open_header_) {
            auto file = DicomFrames::open(*frame.header);
            if (!file)
                return file.failure();
            open_.emplace(std::move(*file));
            open_header_ = frame.header;
        }
        if (!as_grey_)
            return open_->read(frame.index, target);
        std::vector<std::byte> stored(target.size() / sizeof(float) * bytes_of(stored_.element));
        if (const auto failure = open_->read(frame.index, stored))
            return failure;
        to_grey(stored, stored_.element, frame.header->slope_of(frame.index), frame.header->intercept_of(frame.index),
            {reinterpret_cast<float*>(target.data()), target.size() / sizeof(float)});
        return {};
    }

    const Frames& frames_;
    const Layout& stored_; // one frame
    const Progress& progress_;
    const bool as_grey_;
    Layout layout_; // all of them
    const DicomHeader* open_header_ = nullptr;
    std::optional<DicomFrames> open_;
};

void take_texts(Volume& volume, const DicomHeader& header)
{
    volume.modality = header.modality;
    volume.patient = header.patient;
    volume.study = header.study;
    volume.study_date = header.study_date;
    volume.study_uid = header.study_uid;
    volume.series_uid = header.series_uid;
    volume.series_number = header.series_number;
    volume.series = header.series;
    volume.unit = header.unit;
    volume.inverted = header.pixels.is_inverted() && !volume.is_colour();
    if (header.window_width > 0 && !volume.is_colour())
        volume.header_window = {header.window_centre, header.window_width};
}

std::vector<Frame> described(const Frames& frames)
{
    std::vector<Frame> descriptions;
    for (const auto& [header, index, place] : frames) {
        const bool one_file = header->pixels.frames > 1;
        if (one_file && !place)
            return {}; // counted by whoever completes the volume
        descriptions.push_back(
            {place.value_or(0), one_file ? index + 1 : header->instance, header->path.string(), header->is_scout});
    }
    return descriptions;
}

void take_geometry(Geometry& geometry, const Frames& frames)
{
    const auto& header = *frames[0].header;
    const auto& o = header.orientation_of(frames[0].index);
    const auto n = normal_of(o);
    geometry.direction = {o[0], o[3], n[0], o[1], o[4], n[1], o[2], o[5], n[2]};
    const auto place = header.position_of(frames[0].index);
    geometry.origin = place ? *place : header.position.value_or(std::array<double, 3>{});
    geometry.spacing = {header.column_distance, header.row_distance, 1};
}

/// The distance of the frames from their positions; tells when they are not evenly spaced.
void take_spacing(Geometry& geometry, std::vector<std::string>& notices, const Frames& frames)
{
    const auto& header = *frames[0].header;
    auto& spacing = geometry.spacing[2];
    spacing = header.frame_distance > 0 ? header.frame_distance : header.thickness > 0 ? header.thickness : 1;
    if (!frames.front().place || !(*frames.back().place > *frames.front().place))
        return;
    spacing = (*frames.back().place - *frames.front().place) / double(frames.size() - 1);
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const double step = *frames[i].place - *frames[i - 1].place;
        if (std::abs(step - spacing) > 0.05 * spacing) {
            notices.push_back("Its frames are not evenly spaced (" + number_text(step) + " mm instead of " +
                              number_text(spacing) + " mm before frame " + std::to_string(i + 1) +
                              "); one may be missing.");
            return;
        }
    }
}

void tell_of_colours(const DicomPixels& pixels, std::vector<std::string>& notices)
{
    if (pixels.is_colour() && !pixels.is_palette() && pixels.bits_stored > 8)
        notices.push_back(narrowed_notice(pixels.bits_stored));
    if (pixels.photometric == "PALETTE COLOR" && !pixels.is_palette())
        notices.push_back("Its table of colours cannot be read; the numbers that it has for them are shown as grey.");
}

}

Result<Opened> read_stack(const Stack& stack, const Progress& progress)
{
    for (const auto& header : stack)
        if (!header.damage.empty())
            return Failure{header.damage};
    const auto layout = layout_of(stack[0]);
    if (!layout)
        return layout.failure();
    Opened opened;
    auto frames = frames_of(stack);
    const auto left_out = keep_first_volume(frames, opened.notices);
    StackReader reader(frames, *layout, progress);
    auto elements = reader.read();
    if (!elements)
        return elements.failure();

    auto& volume = opened.volume;
    const auto& first = *frames[0].header;
    take_geometry(volume.geometry, frames);
    if (const auto failure = take_elements(volume, opened.notices, std::move(*elements), reader.layout(), first.path))
        return *failure;
    tell_of_colours(first.pixels, opened.notices);
    if (reader.as_grey()) {
        opened.notices.push_back("Its frames have scales of their own; their scaled values are kept.");
    } else if (!volume.is_colour()) {
        volume.slope = first.slope_of(frames[0].index);
        volume.intercept = first.intercept_of(frames[0].index);
    }
    take_texts(volume, first);
    take_spacing(volume.geometry, opened.notices, frames);
    volume.frames = described(frames);
    volume.left_out = described(left_out);
    progress.at(1);
    return opened;
}

}
