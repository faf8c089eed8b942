#include "workbench/model/host_words.h"
#include "workbench/model/image_tree.h"

#include <algorithm>

// What is selected, in the three trees.

namespace workbench {

namespace {

constexpr unsigned char of_itself = 16;
constexpr unsigned long long selected = 512;

void* display_state()
{
    return reinterpret_cast<void*>(4);
}

// What was taken out of the tree is not selected, whatever it was before.
template <class Tree>
bool is_selected(const Tree* object)
{
    return object && object->Flag_Get_Bit(of_itself, display_state(), selected) && TreeObjects::isListed(object);
}

bool is_any_selected(const std::vector<Strato_2D*>& frames)
{
    return std::ranges::any_of(frames, is_selected<Strato_2D>);
}

// @return whether that changed anything
bool set_selected(Strato* object, bool on)
{
    if (on == (object->Flag_Get_Bit(of_itself, display_state(), selected) != 0))
        return false;
    if (on)
        object->Flag_Set_On(of_itself, display_state(), selected);
    else
        object->Flag_Set_Off(of_itself, display_state(), selected);
    return true;
}

}

bool ImageTree::isSelected(int z) const
{
    return current_ && is_selected(frame(current_, z));
}

int ImageTree::listedFrames() const
{
    if (!parts())
        return 0;
    return static_cast<int>(std::ranges::count_if(parts()->frames, TreeObjects::isListed<Strato_2D>));
}

void ImageTree::select(int first, int last)
{
    bool changed = false;
    for (const auto& [series, parts] : series_)
        for (int z = 0; z < static_cast<int>(parts.frames.size()); ++z)
            changed |=
                set_selected(parts.frames[static_cast<std::size_t>(z)], series == current_ && z >= first && z <= last);
    if (changed)
        word::tell(word::selection_2D);
}

int ImageTree::selectedElsewhere() const
{
    std::ptrdiff_t count = 0;
    for (const auto& [series, parts] : series_)
        if (series != current_)
            count += std::ranges::count_if(parts.frames, is_selected<Strato_2D>);
    return static_cast<int>(count);
}

Strato_2D* ImageTree::selectedInstead() const
{
    if (is_selected(hostkit::Window_Frame(window_)))
        return nullptr;
    const unsigned short frames = Iterator_Init("workbench", nullptr);
    Strato_2D* const first = Iterator_Class_2D(frames, hostkit::frame_class, nullptr, 1);
    Iterator_End(frames);
    return first;
}

// ------------------------------------------------------------------------------------------- volumes and histograms

void ImageTree::followFrames()
{
    bool volumesChanged = false, signalsChanged = false;
    for (const auto& [series, parts] : series_) {
        const bool on = is_any_selected(parts.frames);
        volumesChanged |= set_selected(parts.volume, on);
        signalsChanged |= set_selected(parts.signal, on);
    }
    if (volumesChanged)
        word::tell(word::selection_3D);
    if (signalsChanged)
        word::tell(word::selection_1D);
}

void ImageTree::followVolumes()
{
    follow(&Parts::volume);
}

void ImageTree::followSignals()
{
    follow(&Parts::signal);
}

template <class Tree>
void ImageTree::follow(Tree* Parts::*leaf)
{
    bool changed = false;
    for (const auto& [series, parts] : series_) {
        const bool on = is_selected(parts.*leaf);
        if (!TreeObjects::isListed(parts.*leaf) || on == is_any_selected(parts.frames))
            continue;
        for (Strato_2D* frame : parts.frames)
            changed |= set_selected(frame, on);
    }
    if (changed)
        word::tell(word::selection_2D);
}

}
