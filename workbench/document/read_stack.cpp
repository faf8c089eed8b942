#include "workbench/document/dicom_series.h"
#include "workbench/document/elements.h"
#include "workbench/document/itk_files.h"
#include "workbench/document/stored_values.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

/// Reads the frames of a stack one after the other into one block.
class StackReader {
public:
    StackReader(const Stack& stack, const ItkHeader& first, const Progress& progress)
        : stack_(stack), first_(first), progress_(progress)
    {
        layout_.components = first.components;
        layout_.element = *first.element;
        if (first.components == 1 && first.stored)
            layout_.element = *first.stored;
    }

    /// Reads stored values; where the files' scales differ, or cannot be undone, the values that scaling leads to.
    Result<PixelMemory> read()
    {
        auto memory = read_all();
        if (memory || !scales_differ_)
            return memory;
        as_grey_ = true;
        layout_.element = Element::f32;
        return read_all();
    }

    const Layout& layout() const { return layout_; }
    bool as_grey() const { return as_grey_; }

private:
    Result<PixelMemory> read_all()
    {
        auto sizes = first_.size;
        if (stack_.size() > 1)
            sizes = {sizes[0], sizes[1], std::int64_t(stack_.size())};
        if (const auto failure = take_sizes(layout_, sizes, stack_[0].path))
            return *failure;
        auto memory = allocate_volume(layout_, stack_[0].path);
        if (!memory)
            return memory;
        const std::size_t frame = memory->size() / stack_.size();
        for (std::size_t i = 0; i < stack_.size(); ++i) {
            if (progress_.stop())
                return Failure{"Reading was stopped.", true};
            progress_.at(double(i) / double(stack_.size()));
            if (const auto failure = read_frame(stack_[i], memory->bytes().subspan(i * frame, frame)))
                return *failure;
        }
        return memory;
    }

    std::optional<Failure> read_frame(const DicomHeader& dicom, std::span<std::byte> target)
    {
        auto file = ItkFile::open(Format::dicom, dicom.path);
        if (!file)
            return file.failure();
        const auto& header = file->header();
        if (!header.element || header.components != first_.components || header.size[0] != first_.size[0] ||
            header.size[1] != first_.size[1])
            return Failure{quoted(dicom.path) + " does not fit to the other frames of its series. Open it alone."};
        if (!as_grey_ && !same_scale(header)) {
            scales_differ_ = true;
            return Failure{quoted(dicom.path) + " has a scale of its own."};
        }
        const bool plain = as_grey_ || (header.slope == 1 && header.intercept == 0);
        const auto failure =
            *header.element == layout_.element && plain ? file->read(target) : read_scaled(*file, target);
        if (!failure && dicom.inverted && header.components == 1)
            turn_back(dicom, header, target);
        return failure;
    }

    /// ITK hands an inverted image over with its stored values mirrored in their range.
    void turn_back(const DicomHeader& dicom, const ItkHeader& header, std::span<std::byte> target) const
    {
        const double mirror = dicom.is_signed ? -1 : std::exp2(dicom.bits_stored) - 1;
        mirror_stored(target, layout_.element, as_grey_ ? mirror * header.slope + 2 * header.intercept : mirror);
    }

    bool same_scale(const ItkHeader& header) const
    {
        return header.stored == first_.stored && header.slope == first_.slope && header.intercept == first_.intercept;
    }

    std::optional<Failure> read_scaled(ItkFile& file, std::span<std::byte> target)
    {
        const auto& header = file.header();
        const std::size_t count = target.size() / bytes_of(layout_.element);
        auto scaled = PixelMemory::allocate(count * bytes_of(*header.element));
        if (!scaled)
            return Failure{"There is not enough memory to read the series. Close other programs first."};
        if (const auto failure = file.read(scaled.bytes()))
            return failure;
        if (as_grey_) {
            to_float(scaled.bytes(), *header.element, {reinterpret_cast<float*>(target.data()), count});
        } else if (!recover_stored(
                       scaled.bytes(), *header.element, target, layout_.element, header.slope, header.intercept)) {
            scales_differ_ = true;
            return Failure{"The stored values of the series cannot be recovered."};
        }
        return {};
    }

    const Stack& stack_;
    const ItkHeader& first_;
    const Progress& progress_;
    Layout layout_;
    bool as_grey_ = false, scales_differ_ = false;
};

void take_texts(Volume& volume, const DicomHeader& header)
{
    volume.modality = header.modality;
    volume.patient = header.patient;
    volume.study = header.study;
    volume.series = header.series;
    volume.unit = header.unit;
    volume.inverted = header.inverted && !volume.is_colour();
    if (header.window_width > 0 && !volume.is_colour())
        volume.header_window = {header.window_centre, header.window_width};
}

void take_frames(Volume& volume, const Stack& stack)
{
    if (stack.size() == 1 && stack[0].frames > 1)
        return; // counted by whoever completes the volume
    for (const auto& header : stack)
        volume.frames.push_back({header.along_normal(), header.instance, header.path.string()});
}

/// The distance of the frames from their positions; tells when they are not evenly spaced.
void take_spacing(Volume& volume, std::vector<std::string>& notices, const Stack& stack)
{
    auto& spacing = volume.geometry.spacing[2];
    if (stack.size() < 2)
        return;
    const double length = stack.back().along_normal() - stack.front().along_normal();
    if (!(length > 0)) {
        spacing = stack[0].thickness > 0 ? stack[0].thickness : 1;
        return;
    }
    spacing = length / double(stack.size() - 1);
    for (std::size_t i = 1; i < stack.size(); ++i) {
        const double step = stack[i].along_normal() - stack[i - 1].along_normal();
        if (std::abs(step - spacing) > 0.05 * spacing) {
            notices.push_back("Its frames are not evenly spaced (" + number_text(step) + " mm instead of " +
                              number_text(spacing) + " mm before frame " + std::to_string(i + 1) +
                              "); one may be missing.");
            return;
        }
    }
}

}

Result<Opened> read_stack(Stack stack, const Progress& progress)
{
    for (const auto& header : stack)
        if (!header.damage.empty())
            return Failure{quoted(header.path) + " " + header.damage};
    Opened opened;
    keep_first_volume(stack, opened.notices);
    const auto first = ItkFile::open(Format::dicom, stack[0].path);
    if (!first)
        return first.failure();
    const auto& header = first->header();
    if (!header.element || header.size.size() < 2)
        return Failure{quoted(stack[0].path) + " has pixels of a kind that cannot be shown. Convert it first."};

    auto& volume = opened.volume;
    StackReader reader(stack, header, progress);
    auto elements = reader.read();
    if (!elements)
        return elements.failure();
    volume.geometry = header.geometry;
    if (const auto failure =
            take_elements(volume, opened.notices, std::move(*elements), reader.layout(), stack[0].path))
        return *failure;
    if (reader.as_grey())
        opened.notices.push_back("Its frames have scales of their own; their scaled values are kept.");
    else if (!volume.is_colour() && header.slope != 0) {
        volume.slope = header.slope;
        volume.intercept = header.intercept;
    }
    take_texts(volume, stack[0]);
    take_spacing(volume, opened.notices, stack);
    take_frames(volume, stack);
    progress.at(1);
    return opened;
}

}
