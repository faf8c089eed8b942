#include "workbench/model/image_tree.h"

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/files.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/series_pixels.h"
#include "workbench/document/volume.h"
#include "workbench/model/host_words.h"
#include "workbench/model/tree_files.h"
#include "workbench/model/tree_names.h"

namespace workbench {

namespace {

constexpr unsigned series_class = 0x2002;
constexpr unsigned study_class = 0x2003;
constexpr unsigned long long pointer_moved = 1ull << 18;

// `"$MOUSE_FRM"`: x and y are its second and third float.
struct PointerCell {
    float unused, x, y, unused_too;
};

constexpr unsigned char of_itself = 16;
constexpr unsigned long long selected = 512;

void* display_state()
{
    return reinterpret_cast<void*>(4);
}

bool is_selected(const Strato_2D* frame)
{
    return frame && frame->Flag_Get_Bit(of_itself, display_state(), selected);
}

void set_selected(Strato_2D* frame, bool on)
{
    if (on)
        frame->Flag_Set_On(of_itself, display_state(), selected);
    else
        frame->Flag_Set_Off(of_itself, display_state(), selected);
}

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

ImageTree::ImageTree() : window_(hostkit::Window_Add("View")) {}

// The pixels go before the objects do: panels may hold on to these until they are told.
ImageTree::~ImageTree()
{
    while (!files_.empty())
        remove(files_.begin()->first);
}

// ------------------------------------------------------------------------------------------------- adding, removing

Strato_2D* ImageTree::studyOf(const document::Volume& volume)
{
    const std::string key = keyOfStudy(volume);
    for (const Study& study : studies_)
        if (study.key == key)
            return study.object;
    studies_.push_back({key, nullptr});
    studies_.back().object = hostkit::Object_2D_Add(
        hostkit::Root_2D(), {nameOfStudy(volume), "Study", study_class, 0, study_class, "icon study.tga"});
    return studies_.back().object;
}

Strato_2D* ImageTree::add(const document::Volume& volume)
{
    Strato_2D* series = nullptr;
    try {
        series = hostkit::Object_2D_Add(
            studyOf(volume), {nameOfSeries(volume), "Series", series_class, 0, series_class, "icon series.tga"});
        for (int z = 0; z < volume.frame_count(); ++z)
            hostkit::Frame_Add(series, {nameOfFrame(volume, z), "Frame", hostkit::frame_class, unsigned(z),
                                           hostkit::frame_magic, "icon frame.tga"});
        addFilesOf(volume, series, files_[series]);
        hostkit::Series_Pixels_Set(series, pixels_of(volume));
    } catch (...) {
        removeObjects(series);
        throw;
    }
    return series;
}

void ImageTree::remove(Strato_2D* series)
{
    hostkit::Series_Pixels_Set(series, {});
    removeObjects(series);
}

void ImageTree::removeObjects(Strato_2D* series)
{
    if (series == series_)
        series_ = nullptr;
    for (File_Record* file : files_[series])
        hostkit::File_Remove(file);
    files_.erase(series);
    hostkit::Object_2D_Remove(series);
    removeEmptyStudies();
}

void ImageTree::removeEmptyStudies()
{
    std::erase_if(studies_, [](const Study& study) {
        if (study.object && study.object->Child_Get_Nb() > 0)
            return false;
        hostkit::Object_2D_Remove(study.object);
        return true;
    });
}

void ImageTree::tellOfChange()
{
    Fct_Update(hostkit::series_tree_changed, nullptr, nullptr, nullptr);
    Fct_Update(word::selection_2D, nullptr, nullptr, nullptr);
}

// -------------------------------------------------------------------------------------------------------- selecting

int ImageTree::frameCount() const
{
    return series_ ? series_->Child_Get_Nb() : 0;
}

std::optional<int> ImageTree::indexOf(const Strato_2D* frame) const
{
    if (!series_ || !frame || frame->Parent_Get_Pt() != series_)
        return {};
    return hostkit::Child_Index(frame);
}

bool ImageTree::isSelected(int z) const
{
    return series_ && is_selected(series_->Child_Get_Pt(z));
}

// Calls visit(frame) for all frames in the order of the tree, until it returns true.
void ImageTree::forEachFrame(const std::function<bool(Strato_2D* frame)>& visit)
{
    const Strato_2D* root = hostkit::Root_2D();
    for (int i = 0; i < root->Child_Get_Nb(); ++i)
        for (int j = 0; j < root->Child_Get_Pt(i)->Child_Get_Nb(); ++j) {
            const Strato_2D* series = root->Child_Get_Pt(i)->Child_Get_Pt(j);
            for (int z = 0; z < series->Child_Get_Nb(); ++z)
                if (visit(series->Child_Get_Pt(z)))
                    return;
        }
}

void ImageTree::select(int first, int last)
{
    bool changed = false;
    forEachFrame([&](Strato_2D* frame) {
        const int z = indexOf(frame).value_or(-1);
        const bool on = z >= 0 && z >= first && z <= last;
        if (on != is_selected(frame)) {
            set_selected(frame, on);
            changed = true;
        }
        return false;
    });
    if (changed)
        Fct_Update(word::selection_2D, nullptr, nullptr, nullptr);
}

int ImageTree::selectedElsewhere() const
{
    int count = 0;
    forEachFrame([&](const Strato_2D* frame) {
        count += frame->Parent_Get_Pt() != series_ && is_selected(frame);
        return false;
    });
    return count;
}

Strato_2D* ImageTree::selectedInstead() const
{
    Strato_2D* first = nullptr;
    if (is_selected(hostkit::Window_Frame(window_)))
        return first;
    forEachFrame([&](Strato_2D* frame) {
        first = is_selected(frame) ? frame : nullptr;
        return first != nullptr;
    });
    return first;
}

// ---------------------------------------------------------------------------------------------------------- showing

Strato_2D* ImageTree::shownSeries() const
{
    const Strato_2D* frame = hostkit::Window_Frame(window_);
    return frame ? frame->Parent_Get_Pt() : nullptr;
}

std::optional<int> ImageTree::shown() const
{
    return indexOf(hostkit::Window_Frame(window_));
}

void ImageTree::show(int z)
{
    show(series_->Child_Get_Pt(z));
}

void ImageTree::show(Strato_2D* frame)
{
    Fct_Change_Child(window_, frame, hostkit::Window_Frame(window_));
}

double ImageTree::greyFactor() const
{
    return series_ ? hostkit::Series_Grey_Factor(series_) : 1;
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
