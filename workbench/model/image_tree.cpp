#include "workbench/model/image_tree.h"

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/registry.h"
#include "workbench/document/volume.h"

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

Strato_2D* build(const document::Volume& volume)
{
    auto* series =
        hostkit::Object_2D_Add(hostkit::Root_2D(), {name_of_series(volume), "Series", series_class, 0, series_class});
    try {
        for (int z = 0; z < volume.frame_count(); ++z)
            hostkit::Frame_Add(
                series, {name_of_frame(volume, z), "Frame", hostkit::frame_class, unsigned(z), hostkit::frame_magic});
    } catch (...) {
        hostkit::Object_2D_Remove(series);
        throw;
    }
    return series;
}

bool is_selected(const Strato_2D* frame)
{
    constexpr unsigned char of_itself = 16;
    constexpr unsigned long long selected = 512;
    auto* const display_state = reinterpret_cast<void*>(4);
    return frame && frame->Flag_Get_Bit(of_itself, display_state, selected);
}

}

ImageTree::ImageTree() : window_(hostkit::Window_Add("View")) {}

ImageTree::~ImageTree()
{
    hostkit::Object_2D_Remove(series_);
}

void ImageTree::replace(const document::Volume& volume, int z)
{
    const hostkit::Panel_Call until_complete;
    Strato_2D* const before = series_;
    series_ = build(volume);
    setPointer({});
    show(z);
    hostkit::Object_2D_Remove(before);
    Fct_Update(hostkit::series_tree_changed, nullptr, nullptr, nullptr);
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
