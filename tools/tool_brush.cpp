#include "tools/tool_brush.h"

#include "frame/events.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/tag_colors.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"
#include "tools/brush_shape.h"

#include <algorithm>

namespace level = frame::level;
namespace change = frame::change;
using frame::has_any;

namespace {

constexpr const char* source = "tool_brush";
constexpr const char* shapes = "$BRUSH_PT";
constexpr const char* sizes = "$BRUSH_SIZE";

frame::Tag_Colors tag_colors()
{
    static frame::Kept_Tag_Colors colors;
    return colors.get();
}

}

Tool_Brush::Tool_Brush() : seen_sizes_(capacity), buttons_(capacity)
{
    if (buttons_.size() == 0 || seen_sizes_.size() == 0)
        frame::report_new_failed(__LINE__, source);
}

Tool_Brush::Tool_Brush(const Tool_Brush&) = default;
Tool_Brush& Tool_Brush::operator=(const Tool_Brush&) = default;
Tool_Brush::~Tool_Brush() = default;

// How many of the host's brushes the panel has room for.
unsigned Tool_Brush::Count() const
{
    return std::min({unsigned{frame::number("$BRUSH_NB")}, buttons_.size(), seen_sizes_.size()});
}

int Tool_Brush::Height()
{
    return frame::dimension("$INTERFACE_LIST_DIM_SML") + 8 + 2 * frame::dimension("$INTERFACE_SPACE_DIM");
}

void Tool_Brush::Init()
{
    Error_Fct(hwnd, level::internal_trace, "in Tool_Brush::Init()");
    const int half_size = frame::number("$BRUSH_RADIUS");
    const auto* radii = frame::array<const unsigned short>(sizes);
    auto* const* grids = frame::array<unsigned char**>(shapes);
    seen_count_ = frame::number("$BRUSH_NB");
    for (unsigned brush = 0; radii && brush < Count(); ++brush) {
        seen_sizes_[brush] = radii[brush];
        if (grids && grids[brush])
            tools::fill_brush_shape(grids[brush], half_size, radii[brush]);
    }
}

int Tool_Brush::Resize(Boxs* area)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Brush::Resize(dim=%dx%d)", area->width, area->height);
    frame::take_area(box_, *area, frame::state::panel_box);
    const unsigned count = Count();
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    for (unsigned brush = 0; brush < count; ++brush) {
        Buttons& button = buttons_[brush];
        const int width = (box_.width - 2 * space) / static_cast<int>(count);
        frame::take_look(button, box_);
        frame::take_place(
            button, box_.x + space + static_cast<int>(brush) * width, box_.y + space, width, box_.height - 2 * space);
        button.border = box_.border;
        button.Init(box_.window);
    }
    Set_Color(frame::number("$TAG_CUR"));
    Set_Border();
    return 1;
}

// ---------------------------------------------------------------------------------------------------- pictures

// What a picture leaves free around the largest disc, both sides together.
int Tool_Brush::Picture_Margin() const
{
    return 2 * BORDER + 4;
}

// Brush pixels per picture pixel, such that the largest disc fits the first button; 0 when nothing does.
float Tool_Brush::Scale() const
{
    const auto* radii = frame::array<const unsigned short>(sizes);
    const unsigned count = Count();
    if (!radii || count == 0)
        return 0;
    const int width = buttons_[0].width - Picture_Margin();
    const int height = buttons_[0].height - Picture_Margin();
    if (width <= 0 || height <= 0)
        return 0;
    const auto side = static_cast<float>(2 * *std::max_element(radii, radii + count) + 1);
    return std::max(side / static_cast<float>(width), side / static_cast<float>(height));
}

void Tool_Brush::Set_Color(int tag)
{
    Error_Fct(hwnd, level::internal_trace, "in Tool_Brush::Set_Color()");
    tag_ = tag;
    const float scale = Scale();
    const auto* radii = frame::array<const unsigned short>(sizes);
    const unsigned pixel = frame::to_picture_pixel(tag_colors().of(tag));
    for (unsigned brush = 0; scale > 0 && Laid_Out() && brush < Count(); ++brush) {
        Buttons& button = buttons_[brush];
        const float radius = static_cast<float>(radii[brush]) / scale;
        const auto limit = static_cast<short>(static_cast<int>(radius * radius));
        for (int number = 1; number <= 4; ++number) {
            if (unsigned* pixels = button.Picture(number))
                tools::paint_disc(pixels, button.width, button.height, limit, pixel);
        }
    }
    Show_Pictures();
}

void Tool_Brush::Set_Border()
{
    Error_Fct(hwnd, level::internal_trace, "in Tool_Brush::Set_Border()");
    const float scale = Scale();
    if (!(scale > 0) || !Laid_Out())
        return;
    const auto* radii = frame::array<const unsigned short>(sizes);
    const float side = static_cast<float>(2 * *std::max_element(radii, radii + Count()) + 1) / scale;
    const int margin_x = static_cast<int>((static_cast<float>(buttons_[0].width) - side) / 2);
    const int margin_y = static_cast<int>((static_cast<float>(buttons_[0].height) - side) / 2);
    for (unsigned brush = 0; brush < Count(); ++brush) {
        Buttons& button = buttons_[brush];
        unsigned* const pictures[] = {button.Picture(1), button.Picture(2), button.Picture(3), button.Picture(4)};
        if (pictures[0])
            tools::blacken_outline(pictures, button.width, button.height, margin_x, margin_y);
    }
}

// Nothing on the screen shows the new pictures yet.
void Tool_Brush::Show_Pictures()
{
    for (unsigned brush = 0; Laid_Out() && brush < Count(); ++brush) {
        buttons_[brush].shown = 0;
        buttons_[brush].Select(0);
    }
}

// ------------------------------------------------------------------------------------------------------ events

void Tool_Brush::Draw()
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Brush::Draw()");
    const unsigned count = Count();
    const unsigned current = frame::number("$BRUSH_CUR");
    box_.Draw();
    if (current < count)
        buttons_[current].cur = 1;
    for (unsigned brush = 0; brush < count; ++brush)
        buttons_[brush].Draw();
}

int Tool_Brush::Click(int up_down)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Brush::Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    if (up_down == frame::up_down::release)
        return 0;
    for (unsigned brush = 0; Laid_Out() && brush < Count(); ++brush) {
        if (!buttons_[brush].Select(up_down))
            continue;
        Make_Current(static_cast<int>(brush));
        return 1;
    }
    return 0;
}

void Tool_Brush::Make_Current(int brush)
{
    Mark(current_, 0);
    current_ = brush;
    Mark(current_, 1);
}

void Tool_Brush::Mark(int brush, unsigned short mark)
{
    if (static_cast<unsigned>(brush) >= Count())
        return;
    buttons_[static_cast<unsigned>(brush)].cur = mark;
    buttons_[static_cast<unsigned>(brush)].Adjust();
}

int Tool_Brush::Motion(int up_down)
{
    for (unsigned brush = 0; Laid_Out() && brush < Count(); ++brush)
        buttons_[brush].Select(up_down);
    return 0;
}

int Tool_Brush::Keyboard(int)
{
    return 0;
}

int Tool_Brush::Scroll(int)
{
    return 1;
}

void Tool_Brush::Leave()
{
    for (unsigned brush = 0; Laid_Out() && brush < Count(); ++brush)
        buttons_[brush].Deselect();
}

int Tool_Brush::Read()
{
    return current_;
}

void Tool_Brush::Update(unsigned long long flags)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Brush::Update()");
    const int tag = frame::number("$TAG_CUR");
    if (has_any(flags, change::brushes | change::everything))
        Update_Brushes();
    if (has_any(flags, change::current_tag) && tag != tag_)
        Set_Color(tag);
    if (has_any(flags, change::tag_colors | change::everything))
        Set_Color(tag);
}

void Tool_Brush::Update_Brushes()
{
    const unsigned current = frame::number("$BRUSH_CUR");
    if (current < Count() && static_cast<int>(current) != current_)
        Make_Current(static_cast<int>(current));
    if (!Set_Changed())
        return;
    Init();
    if (!Laid_Out())
        return;
    Resize(&box_);
    Draw();
}

// Whether the host's brushes differ from those that the shapes were made for.
bool Tool_Brush::Set_Changed() const
{
    const auto* radii = frame::array<const unsigned short>(sizes);
    const unsigned count = Count();
    return frame::number("$BRUSH_NB") != seen_count_ ||
           (radii && !std::equal(radii, radii + count, seen_sizes_.begin()));
}
