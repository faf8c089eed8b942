#include "tools/tool_tag.h"

#include "frame/registry.h"
#include "frame/report.h"
#include "frame/tag_colors.h"
#include "tools/update_blocks.h"

namespace level = frame::level;
namespace change = frame::change;

namespace {

constexpr unsigned most_tags = 256;
constexpr const char* source = "tool_tag";
constexpr int strdup_line = 225;

unsigned tag_count()
{
    static frame::Kept_Address<unsigned short> count("$TAG_NB");
    return count.value();
}

frame::Tag_Colors tag_colors()
{
    static frame::Kept_Tag_Colors colors;
    return colors.get();
}

}

Tool_Tag::Tool_Tag() : Tool_Tag(greys_unusable) {}
Tool_Tag::Tool_Tag(unsigned short options) : options_(options), grid_(most_tags, source) {}
Tool_Tag::Tool_Tag(const Tool_Tag&) = default;
Tool_Tag& Tool_Tag::operator=(const Tool_Tag&) = default;
Tool_Tag::~Tool_Tag() = default;

int Tool_Tag::Resize(Boxs* area)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Tag::Resize(dim=%dx%d)", area->width, area->height);
    const unsigned count = tag_count();
    grid_.Resize(*area, count);
    const frame::Tag_Colors colors = tag_colors();
    for (unsigned tag = 0; colors.complete() && tag < grid_.Items(count); ++tag)
        grid_.Set_Color(tag, colors.of(static_cast<int>(tag)));
    grid_.Set_Captions(count, frame::array<char*>("$TAG_LABEL"));
    grid_.Init_Buttons(area->window, most_tags); // also those that a growing count will show
    return 1;
}

int Tool_Tag::Height(unsigned short rows)
{
    return tools::Button_Grid::Height(rows);
}

void Tool_Tag::Draw()
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Tag::Draw()");
    grid_.Draw(tag_count());
}

int Tool_Tag::Click(int up_down)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Tag::Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    const auto [tag, scrolled] = grid_.Click(up_down, tag_count(), nullptr);
    if (scrolled)
        Draw();
    if (tag >= 0)
        current_ = static_cast<unsigned char>(tag);
    return tag;
}

int Tool_Tag::Motion(int up_down)
{
    const bool scrolled = grid_.Motion(up_down, tag_count());
    if (scrolled)
        Draw();
    return scrolled;
}

int Tool_Tag::Keyboard(int key)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Tag::Keyboard(key=0x%08x)", static_cast<unsigned>(key));
    static frame::Kept_Address<char**> labels("$TAG_LABEL");
    return grid_.Keyboard(key, tag_count(), {labels.value(), strdup_line, source, "(*TAG_Label_Pt)[Tag_Label_Cur]"});
}

int Tool_Tag::Scroll(int amount)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Tag::Scroll(val=%d)", amount);
    grid_.Scroll(amount, tag_count());
    Draw();
    return 1;
}

void Tool_Tag::Leave()
{
    grid_.Leave(tag_count());
}

int Tool_Tag::Read()
{
    return current_;
}

void Tool_Tag::Update(unsigned long long flags)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Tag::Update()");
    unsigned redo = 0;
    if (Update_Buttons(flags, redo))
        grid_.Apply(redo, tag_count());
}

// The last block that greys a tag decides.
bool Tool_Tag::Update_Buttons(frame::Change_Flags flags, unsigned& redo)
{
    constexpr tools::Update_Block<Tool_Tag> blocks[] = {
        {change::tag_enables, &Tool_Tag::Update_Enables},
        {change::tag_selections, &Tool_Tag::Update_Selections},
        {change::tag_locks, &Tool_Tag::Update_Locks},
        {change::current_tag, &Tool_Tag::Update_Current},
        {change::labels, &Tool_Tag::Update_Labels},
        {change::tag_colors, &Tool_Tag::Update_Colors},
    };
    return tools::run_blocks(*this, blocks, flags, redo);
}

bool Tool_Tag::Update_Enables(unsigned& redo)
{
    const auto* enabled = frame::array<const unsigned char>("$TAG_ENABLE");
    for (unsigned tag = 0; enabled && tag < grid_.Items(tag_count()); ++tag) {
        if (options_ & marks_enabled)
            redo |= grid_.Set_Pressed(tag, enabled[tag] != 0);
        if (options_ & greys_disabled)
            redo |= grid_.Set_Greyed(tag, enabled[tag] == 0);
    }
    return enabled != nullptr;
}

bool Tool_Tag::Update_Selections(unsigned& redo)
{
    const auto* selected = frame::array<const unsigned char>("$TAG_SELECT");
    for (unsigned tag = 0; selected && tag < grid_.Items(tag_count()); ++tag) {
        if (options_ & marks_selected)
            redo |= grid_.Set_Pressed(tag, selected[tag] != 0);
        if (options_ & greys_unusable)
            redo |= grid_.Set_Greyed(tag, selected[tag] == 0);
    }
    return selected != nullptr;
}

bool Tool_Tag::Update_Locks(unsigned& redo)
{
    const auto* locked = frame::array<const unsigned char>("$TAG_LOCK");
    for (unsigned tag = 0; locked && tag < grid_.Items(tag_count()); ++tag) {
        if (options_ & marks_locked)
            redo |= grid_.Set_Pressed(tag, locked[tag] != 0);
        if (options_ & greys_unusable)
            redo |= grid_.Set_Greyed(tag, locked[tag] != 0);
    }
    return locked != nullptr;
}

bool Tool_Tag::Update_Current(unsigned& redo)
{
    current_ = frame::number("$TAG_CUR");
    redo |= grid_.Set_Current(tag_count(), current_);
    return true;
}

bool Tool_Tag::Update_Labels(unsigned& redo)
{
    char* const* labels = frame::array<char*>("$TAG_LABEL");
    if (!labels)
        return false;
    redo |= grid_.Set_Captions(tag_count(), labels);
    return true;
}

bool Tool_Tag::Update_Colors(unsigned& redo)
{
    const frame::Tag_Colors colors = tag_colors();
    if (!colors.complete())
        return false;
    for (unsigned tag = 0; tag < grid_.Items(tag_count()); ++tag)
        redo |= grid_.Set_Color(tag, colors.of(static_cast<int>(tag)));
    redo |= grid_.Lay_Out_Again(tag_count());
    return true;
}
