#include "tools/tool_marker.h"

#include "frame/colors.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "tools/update_blocks.h"

namespace level = frame::level;
namespace change = frame::change;

namespace {

constexpr unsigned most_markers = 64;
constexpr const char* source = "tool_marker";
constexpr int strdup_line = 236;

unsigned marker_count()
{
    return frame::number("$MARKER_NB");
}

// Null when the host has none. The variable's type is asked for and not needed.
char** label_array()
{
    static char*** labels = nullptr;
    int type = 0;
    if (!labels)
        labels = static_cast<char***>(Fct_Variable_Get("$MARKER_LABEL", &type, nullptr, nullptr, 0));
    return labels ? *labels : nullptr;
}

}

Tool_Marker::Tool_Marker() : grid_(most_markers, source) {}
Tool_Marker::Tool_Marker(const Tool_Marker&) = default;
Tool_Marker& Tool_Marker::operator=(const Tool_Marker&) = default;
Tool_Marker::~Tool_Marker() = default;

int Tool_Marker::Resize(Boxs* area)
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Resize(dim=%dx%d)", area->width, area->height);
    const unsigned count = marker_count();
    grid_.Resize(*area, count);
    grid_.Set_Current(count, frame::number("$MARKER_CUR"));
    const auto* colors = frame::array<const unsigned>("$MARKER_COLOR");
    const auto* enabled = frame::array<const unsigned char>("$MARKER_ENABLE");
    for (unsigned marker = 0; marker < grid_.Items(count); ++marker) {
        if (colors)
            grid_.Set_Color(marker, frame::from_marker_word(colors[marker]));
        if (grid_.Shows_Marks())
            grid_.Set_Pressed(marker, enabled && enabled[marker] != 0);
    }
    grid_.Set_Captions(count, frame::array<char*>("$MARKER_LABEL"));
    grid_.Init_Buttons(area->window, most_markers);
    return 1;
}

int Tool_Marker::Height(unsigned short rows)
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Height()");
    return tools::Button_Grid::Height(rows);
}

void Tool_Marker::Draw()
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Draw()");
    grid_.Draw(marker_count());
}

int Tool_Marker::Click(int up_down)
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    const auto [marker, scrolled] = grid_.Click(up_down, marker_count(), grid_.Window());
    if (scrolled)
        Draw();
    if (marker >= 0)
        current_ = static_cast<unsigned char>(marker);
    return marker;
}

int Tool_Marker::Motion(int up_down)
{
    const bool scrolled = grid_.Motion(up_down, marker_count());
    if (scrolled)
        Draw();
    return scrolled;
}

int Tool_Marker::Keyboard(int key)
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Keyboard(key=0x%08x)", static_cast<unsigned>(key));
    return grid_.Keyboard(
        key, marker_count(), {label_array(), strdup_line, source, "(*Marker_Label_Pt)[ID_Label_Cur]"});
}

int Tool_Marker::Scroll(int amount)
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Scroll(val=%d)", amount);
    grid_.Scroll(amount, marker_count());
    Draw();
    return 1;
}

void Tool_Marker::Leave()
{
    grid_.Leave(marker_count());
}

int Tool_Marker::Read()
{
    return current_;
}

void Tool_Marker::Update(unsigned long long flags)
{
    Error_Fct(hwnd, level::marker_trace, "in Tool_Marker::Update()");
    unsigned redo = 0;
    if (Update_Buttons(flags, redo))
        grid_.Apply(redo, marker_count());
}

bool Tool_Marker::Update_Buttons(frame::Change_Flags flags, unsigned& redo)
{
    constexpr tools::Update_Block<Tool_Marker> blocks[] = {
        {change::current_tag, &Tool_Marker::Update_Current},
        {change::labels, &Tool_Marker::Update_Labels},
        {change::tag_enables, &Tool_Marker::Update_Enables},
        {change::tag_colors, &Tool_Marker::Update_Colors},
    };
    return tools::run_blocks(*this, blocks, flags, redo);
}

bool Tool_Marker::Update_Current(unsigned& redo)
{
    current_ = frame::number("$MARKER_CUR");
    redo |= grid_.Set_Current(marker_count(), current_);
    return true;
}

bool Tool_Marker::Update_Labels(unsigned& redo)
{
    char* const* labels = frame::array<char*>("$MARKER_LABEL");
    if (labels)
        redo |= grid_.Set_Captions(marker_count(), labels);
    return labels != nullptr;
}

bool Tool_Marker::Update_Enables(unsigned& redo)
{
    const auto* enabled = frame::array<const unsigned char>("$MARKER_ENABLE");
    for (unsigned marker = 0; enabled && marker < grid_.Items(marker_count()); ++marker)
        redo |= grid_.Set_Pressed(marker, enabled[marker]);
    return enabled != nullptr;
}

bool Tool_Marker::Update_Colors(unsigned& redo)
{
    const auto* colors = frame::array<const unsigned>("$MARKER_COLOR");
    for (unsigned marker = 0; colors && marker < grid_.Items(marker_count()); ++marker)
        redo |= grid_.Set_Color(marker, frame::from_marker_word(colors[marker]));
    return colors != nullptr;
}
