#include "workbench/model/image_tree.h"

#include "hostkit/structures/files.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/series_pixels.h"
#include "workbench/document/volume.h"
#include "workbench/model/host_words.h"
#include "workbench/model/tree_files.h"
#include "workbench/model/tree_names.h"

#include <algorithm>
#include <utility>

namespace workbench {

namespace {

constexpr unsigned signal_series_class = 0x1002, signal_study_class = 0x1003;
constexpr unsigned series_class = 0x2002, study_class = 0x2003;
constexpr unsigned volume_study_class = 0x3003;
constexpr unsigned long long pointer_moved = 1ull << 18;

// `"$MOUSE_FRM"`: x and y are its second and third float.
struct PointerCell {
    float unused, x, y, unused_too;
};

hostkit::Pixel_Type pixel_type(document::PixelType type)
{
    using From = document::PixelType;
    using To = hostkit::Pixel_Type;
    switch (type) {
    case From::u8:
        return To::u8;
    case From::i8:
        return To::i8;
    case From::u16:
        return To::u16;
    case From::i16:
        return To::i16;
    case From::u32:
        return To::u32;
    case From::i32:
        return To::i32;
    case From::f32:
        return To::f32;
    case From::f64:
        return To::f64;
    case From::rgb:
        break;
    }
    return To::rgb;
}

hostkit::Series_Pixels pixels_of(const document::Volume& volume)
{
    return {pixel_type(volume.type), volume.pixels.data(), volume.width(), volume.height(), volume.frame_count(),
        volume.slope, volume.intercept, volume.unit};
}

}

ImageTree::ImageTree()
    : window_(hostkit::Window_Add("View")), imageStudies_(objects_, study_class),
      volumeStudies_(objects_, volume_study_class), signalStudies_(objects_, signal_study_class)
{
}

ImageTree::~ImageTree()
{
    while (!series_.empty())
        remove(series_.begin()->first);
}

// ------------------------------------------------------------------------------------------------- adding, removing

Strato_2D* ImageTree::add(const document::Volume& volume)
{
    Strato_2D* series = nullptr;
    try {
        series = objects_.add(imageStudies_.of(volume),
            {nameOfSeries(volume), "Series", series_class, 0, series_class, "icon series.tga"});
        Parts& parts = series_[series];
        parts.study = keyOfStudy(volume);
        addFrames(volume, series, parts);
        addOtherViews(volume, parts);
        addFilesOf(volume, parts.frames, parts.files);
        hostkit::Series_Pixels_Set(series, pixels_of(volume));
    } catch (...) {
        removeObjects(series);
        throw;
    }
    return series;
}

void ImageTree::addFrames(const document::Volume& volume, Strato_2D* series, Parts& parts)
{
    parts.frames.reserve(static_cast<std::size_t>(volume.frame_count()));
    for (int z = 0; z < volume.frame_count(); ++z) {
        parts.frames.push_back(objects_.addFrame(series, {nameOfFrame(volume, z), "Frame", hostkit::frame_class,
                                                             unsigned(z), hostkit::frame_magic, "icon frame.tga"}));
        places_[parts.frames.back()] = {series, z};
    }
}

void ImageTree::addOtherViews(const document::Volume& volume, Parts& parts)
{
    const std::string name = nameOfSeries(volume);
    parts.volume = objects_.add(volumeStudies_.of(volume),
        {name, "Volume", hostkit::object_class, 0, hostkit::object_class, "icon volume.tga"});
    parts.signalSeries = objects_.add(
        signalStudies_.of(volume), {name, "Series", signal_series_class, 0, signal_series_class, "icon series.tga"});
    parts.signal = objects_.add(parts.signalSeries,
        {"Histogram", "Signal", hostkit::signal_class, 0, hostkit::signal_class, "icon signal.tga"});
}

// The pixels go before the objects do: panels may hold on to these until they are told.
void ImageTree::remove(Strato_2D* series)
{
    hostkit::Series_Pixels_Set(series, {});
    removeObjects(series);
}

void ImageTree::removeObjects(Strato_2D* series)
{
    if (series == current_)
        current_ = nullptr;
    const Parts parts = std::move(series_[series]);
    series_.erase(series);
    for (File_Record* file : parts.files)
        hostkit::File_Remove(file);
    for (auto frame = parts.frames.rbegin(); frame != parts.frames.rend(); ++frame) {
        places_.erase(*frame);
        objects_.remove(*frame);
    }
    objects_.remove(series);
    objects_.remove(parts.volume);
    objects_.remove(parts.signal);
    objects_.remove(parts.signalSeries);
    const auto isOpen = [&](const std::string& study) {
        return std::ranges::any_of(series_, [&](const auto& open) { return open.second.study == study; });
    };
    imageStudies_.removeEmpty(isOpen);
    volumeStudies_.removeEmpty(isOpen);
    signalStudies_.removeEmpty(isOpen);
}

void ImageTree::tellOfChange()
{
    for (const unsigned long long word : {word::tree_1D, word::tree_2D, word::tree_3D, word::selection_2D})
        word::tell(word);
}

// ----------------------------------------------------------------------------------------------------------- frames

const ImageTree::Parts* ImageTree::parts() const
{
    const auto found = series_.find(current_);
    return found == series_.end() ? nullptr : &found->second;
}

int ImageTree::frameCount() const
{
    return parts() ? static_cast<int>(parts()->frames.size()) : 0;
}

Strato_2D* ImageTree::frame(Strato_2D* series, int z) const
{
    return series_.at(series).frames.at(static_cast<std::size_t>(z));
}

std::optional<int> ImageTree::indexOf(const Strato_2D* frame) const
{
    const auto place = places_.find(frame);
    if (!current_ || place == places_.end() || place->second.series != current_)
        return {};
    return place->second.z;
}

// ---------------------------------------------------------------------------------------------------------- showing

Strato_2D* ImageTree::shownSeries() const
{
    const auto place = places_.find(hostkit::Window_Frame(window_));
    return place == places_.end() ? nullptr : place->second.series;
}

bool ImageTree::showsNoFrame() const
{
    const Strato_2D* const shown = hostkit::Window_Frame(window_);
    return shown && !places_.contains(shown);
}

std::optional<int> ImageTree::shown() const
{
    return indexOf(hostkit::Window_Frame(window_));
}

void ImageTree::show(int z)
{
    show(frame(current_, z));
}

void ImageTree::show(Strato_2D* frame)
{
    Fct_Change_Child(window_, frame, hostkit::Window_Frame(window_));
}

double ImageTree::greyFactor() const
{
    return current_ ? hostkit::Series_Grey_Factor(current_) : 1;
}

void ImageTree::setPointer(std::optional<QPointF> position)
{
    hostkit::Object_Variable<Strato_2D>("$FRAME_OVR") = position ? hostkit::Window_Frame(window_) : nullptr;
    if (position) {
        void* cell = hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats);
        *static_cast<PointerCell*>(cell) = {0, float(position->x()), float(position->y()), 0};
    }
    Fct_Update(pointer_moved, nullptr, nullptr, nullptr);
}

}
