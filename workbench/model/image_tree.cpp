#include "workbench/model/image_tree.h"

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/series_pixels.h"
#include "workbench/document/volume.h"
#include "workbench/model/host_words.h"

#include <string>

namespace workbench {

namespace {

constexpr unsigned series_class = 0x2002;
constexpr unsigned long long pointer_moved = 1ull << 18;

// `"$MOUSE_FRM"`: x and y are its second and third float.
struct PointerCell {
    float unused, x, y, unused_too;
};

std::string name_of_series(const document::Volume& volume)
{
    return volume.series.empty() ? "Image" : volume.series;
}

std::string name_of_frame(const document::Volume& volume, int z)
{
    const bool numbered = std::size_t(z) < volume.frames.size();
    return "Slice " + std::to_string(numbered ? volume.frames[std::size_t(z)].instance : z + 1);
}

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

Strato_2D* build(const document::Volume& volume)
{
    auto* series =
        hostkit::Object_2D_Add(hostkit::Root_2D(), {name_of_series(volume), "Series", series_class, 0, series_class});
    try {
        for (int z = 0; z < volume.frame_count(); ++z)
            set_selected(hostkit::Frame_Add(series, {name_of_frame(volume, z), "Frame", hostkit::frame_class,
                                                        unsigned(z), hostkit::frame_magic}),
                true);
        hostkit::Series_Pixels_Set(series, pixels_of(volume));
    } catch (...) {
        hostkit::Object_2D_Remove(series);
        throw;
    }
    return series;
}

}

ImageTree::ImageTree() : window_(hostkit::Window_Add("View")) {}

ImageTree::~ImageTree()
{
    remove(series_);
}

// The pixels go before the objects do: panels may hold on to these until they are told.
void ImageTree::remove(Strato_2D* series)
{
    if (series)
        hostkit::Series_Pixels_Set(series, {});
    hostkit::Object_2D_Remove(series);
}

void ImageTree::replace(const document::Volume& volume, int z)
{
    const hostkit::Panel_Call until_complete;
    Strato_2D* const before = series_;
    series_ = build(volume);
    setPointer({});
    show(z);
    remove(before);
    Fct_Update(hostkit::series_tree_changed, nullptr, nullptr, nullptr);
    Fct_Update(word::selection_2D, nullptr, nullptr, nullptr);
}

int ImageTree::frameCount() const
{
    return series_ ? series_->Child_Get_Nb() : 0;
}

std::optional<int> ImageTree::indexOf(const Strato_2D* frame) const
{
    if (!series_ || frame->Parent_Get_Pt() != series_)
        return {};
    return hostkit::Child_Index(frame);
}

bool ImageTree::isSelected(int z) const
{
    return series_ && is_selected(series_->Child_Get_Pt(z));
}

void ImageTree::select(int first, int last)
{
    bool changed = false;
    for (int z = 0; z < frameCount(); ++z) {
        const bool on = z >= first && z <= last;
        if (on == isSelected(z))
            continue;
        set_selected(series_->Child_Get_Pt(z), on);
        changed = true;
    }
    if (changed)
        Fct_Update(word::selection_2D, nullptr, nullptr, nullptr);
}

double ImageTree::greyFactor() const
{
    return series_ ? hostkit::Series_Grey_Factor(series_) : 1;
}

int ImageTree::shown() const
{
    const auto* frame = hostkit::Window_Frame(window_);
    return frame ? hostkit::Child_Index(frame) : 0;
}

void ImageTree::show(int z)
{
    Fct_Change_Child(window_, series_->Child_Get_Pt(z), hostkit::Window_Frame(window_));
}

std::optional<int> ImageTree::selectedInstead() const
{
    if (!series_ || is_selected(hostkit::Window_Frame(window_)))
        return {};
    for (int z = 0; z < series_->Child_Get_Nb(); ++z)
        if (is_selected(series_->Child_Get_Pt(z)))
            return z;
    return {};
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
