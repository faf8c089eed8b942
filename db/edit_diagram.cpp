#include "db/edit_diagram.h"

#include "db/browse_measure.h"
#include "db/dimension.h"
#include "frame/registry.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace db {

namespace {

constexpr COLORREF black = 0x00000000;
constexpr COLORREF white = 0x00FFFFFF;
constexpr COLORREF yellow = 0x0000FFFF;
constexpr COLORREF light_grey = 0x00E0E0E0;
constexpr COLORREF red = 0x002020D0;
constexpr COLORREF orange = 0x003070F0;

constexpr int stub_end = 282; // from the left edge of a box
constexpr int branch_x = -40; // where the line to further children runs, from the left edge of theirs
constexpr int to_the_left = 90, to_the_right = 300; // what belongs to a box, from its left edge
constexpr int beyond_box = 100;                     // as far as lines are drawn outside the list box

enum class Glyph : unsigned char { none = 0, folded = 1, unfolded = 2, inaccessible = 4 };

COLORREF face_of(Handle_Look look)
{
    constexpr COLORREF faces[] = {light_grey, yellow, orange};
    return faces[static_cast<int>(look)];
}

Handle_Look look_of(Emphasis emphasis)
{
    constexpr Handle_Look looks[] = {Handle_Look::plain, Handle_Look::marked, Handle_Look::refusing};
    return looks[static_cast<int>(emphasis)];
}

void line(int x0, int y0, int x1, int y1)
{
    MoveToEx(Y_DC, x0, y0, nullptr);
    LineTo(Y_DC, x1, y1);
}

void disc(int x, int y, COLORREF face)
{
    const frame::Selected brush(CreateSolidBrush(face));
    // The right and the lower edge are left out.
    Ellipse(Y_DC, x - handle_radius, y + handle_radius, x + handle_radius + 1, y - handle_radius - 1);
}

void draw_glyph(int x, int y, Glyph glyph)
{
    constexpr int arm = 4;
    const frame::Selected pen(CreatePen(PS_SOLID, 1, glyph == Glyph::inaccessible ? white : black));
    line(x - arm, y, x + arm + 1, y);
    if (glyph == Glyph::folded)
        line(x, y + arm, x, y - arm - 1);
}

Glyph glyph_of(const DB_List& row)
{
    if (row.state & DB_List::inaccessible)
        return Glyph::inaccessible;
    return row.state & DB_List::expanded ? Glyph::unfolded : Glyph::folded;
}

// Classes that stand for data or for nothing in particular have the first pair, the others the second.
Color_Pair pair_of(const Strato* object)
{
    const unsigned low = object ? object->Class_A_Get() & 0xFFF : 0;
    return low < 64 || low > 4094 ? Color_Pair::first : Color_Pair::second;
}

const char* title_of(const Strato* object)
{
    const char* const title = object ? object->Title_Get() : nullptr;
    return title ? title : "";
}

const char* name_of(const Strato* object)
{
    const char* const name = object ? object->Name_Get() : nullptr;
    return name ? name : "";
}

void draw_icon(Boxs& box, const char* title, Color_Pair pair)
{
    static frame::Kept_Address<const char*> folder("$DEFAULT_ICON_PATH");
    char file[256];
    std::snprintf(file, sizeof file, "class %s.tga", title);
    std::replace_if(
        file, file + std::strlen(file), [](char c) { return c == '/' || c == '\\'; }, '_');
    box.Icon(folder.value(), file, pair, 0);
}

}

Diagram::Diagram(const Diagram_View& view)
    : view_(view), origin_(view.origin()), drawing_(view.box.window, "DB_Edit_Paint")
{
    if (!drawing_.ready())
        return;
    clip_.emplace(view.box);
    const Row_Fonts fonts = row_fonts(view.box);
    frame::take_look(box_, view.box);
    box_.window = view.box.window;
    box_.font = fonts.name;
    box_.border = 1;
    box_.state = frame::state::label;
    frame::take_look(name_, view.box);
    name_.font = fonts.title;
    name_.state = frame::state::label;
    name_.Set_Color(100, 100, 0);
    name_.Init(view.box.window);
}

// --------------------------------------------------------------------------------------------------------- the whole

bool Diagram::is_on_seen_line(const DB_List& row) const
{
    const int top = origin_.y - diagram_line_height * row.line;
    return top > view_.box.y && top - diagram_line_height - box_top < view_.box.y + view_.box.height;
}

// A line to a sibling may cross the view from one that is not seen to one that is not.
void Diagram::draw()
{
    const Boxs& box = view_.box;
    const int first = std::max((box.x - to_the_right - origin_.x) / column_width, 0);
    std::array<int, 128> branch_y{}; // of each column that is seen: where the line to the next sibling begins
    const int columns = std::clamp(
        (box.x + box.width + to_the_left - origin_.x) / column_width - first + 1, 0, static_cast<int>(branch_y.size()));
    const frame::Selected pen(CreatePen(PS_SOLID, 1, black));
    for (int i = 0; i < view_.nb; ++i) {
        const DB_List& one = row(i);
        const int column = one.level - first;
        if (one.line == DB_List::hidden_line || column < 0 || column >= columns)
            continue;
        int& above = branch_y[static_cast<std::size_t>(column)];
        if (one.level > 0 && !is_first_child(i)) {
            const int upper = std::min(above, box.y + box.height + beyond_box);
            const int lower = std::max(middle(one), box.y - beyond_box);
            if (lower < upper)
                line(box_x(one) + branch_x, upper, box_x(one) + branch_x, lower - 1);
            above = middle(one);
        } else {
            above = middle(one) - handle_radius - 1;
        }
        if (is_on_seen_line(one))
            draw_row(i);
    }
}

void Diagram::draw_row(int index)
{
    const DB_List& one = row(index);
    draw_box(index, Emphasis::none);
    draw_link_to_parent(index);
    if (one.state & DB_List::inaccessible)
        line(box_x(one) + box_width, middle(one), box_x(one) + stub_end, middle(one));
    if (has_fold_handle(one) || (one.state & DB_List::inaccessible))
        draw_fold_handle(index, Handle_Look::plain);
    draw_handles_on_box(index);
}

void Diagram::draw_link_to_parent(int index) const
{
    const DB_List& one = row(index);
    const int x = box_x(one), y = middle(one);
    if (one.level == 0)
        return;
    if (!is_first_child(index)) {
        line(x + branch_x, y, x - handle_radius, y);
        return;
    }
    line(x - 72, y, x - 48, y);
    if (!has_fold_handle(row(one.parent)))
        line(x - 48, y, x - 32, y);
    line(x - 32, y, x - handle_radius, y);
}

void Diagram::draw_dragged()
{
    if (!ready())
        return;
    const frame::Selected pen(CreatePen(PS_SOLID, 1, black));
    any_dragged(view_, [&](int index) {
        if (row(index).line != DB_List::hidden_line && is_on_seen_line(row(index)))
            draw_parent_handle(index, Handle_Look::marked);
        return false;
    });
}

// --------------------------------------------------------------------------------------------------------- the parts

void Diagram::draw_part(int code, Emphasis emphasis)
{
    const int index = row_of_hit(code);
    if (!ready() || index >= view_.nb || row(index).line == DB_List::hidden_line)
        return;
    const frame::Selected pen(CreatePen(PS_SOLID, 1, black));
    const Handle_Look parent_look = is_dragged(view_, index) ? Handle_Look::marked : look_of(emphasis);
    switch (part_of_hit(code)) {
    case box_body:
        draw_box(index, emphasis);
        draw_handles_on_box(index);
        break;
    case parent_handle:
        draw_parent_handle(index, parent_look);
        break;
    case children_handle:
        draw_children_handle(index, look_of(emphasis));
        break;
    case fold_handle:
        draw_fold_handle(index, look_of(emphasis));
        break;
    }
}

void Diagram::draw_box(int index, Emphasis emphasis)
{
    const DB_List& one = row(index);
    const Strato* const object = object_of(view_.dimension, one.object);
    const Color_Pair pair = pair_of(object);
    const char* const title = title_of(object);
    frame::take_place(box_, box_x(one), middle(one) - box_height / 2, box_width, box_height);
    box_.Fill_Select(pair, emphasis);
    box_.Cadre();
    draw_icon(box_, title, pair);

    char indented[256];
    std::snprintf(indented, sizeof indented, "  %s", title);
    box_.Set_Name(indented);
    constexpr short rows = 2;
    box_.width -= handle_radius; // clear of the handle
    box_.Text(box_height, rows);

    constexpr int beside_icon = 8, outline = 3; // a label has a margin of its own
    const int left = box_height + beside_icon;
    frame::take_place(name_, box_.x + left, box_.y + outline, box_width - left - handle_radius - outline,
        box_height / rows - outline);
    name_.back = box_.back;
    name_.Set_Name(name_of(object));
    name_.Draw();
}

void Diagram::draw_handles_on_box(int index) const
{
    if (has_children_handle(row(index)))
        draw_children_handle(index, Handle_Look::plain);
    draw_parent_handle(index, is_dragged(view_, index) ? Handle_Look::marked : Handle_Look::plain);
}

// A root has none.
void Diagram::draw_parent_handle(int index, Handle_Look look) const
{
    if (row(index).level > 0)
        disc(box_x(row(index)), middle(row(index)), face_of(look));
}

void Diagram::draw_children_handle(int index, Handle_Look look) const
{
    disc(box_x(row(index)) + box_width, middle(row(index)), face_of(look));
}

void Diagram::draw_fold_handle(int index, Handle_Look look) const
{
    const DB_List& one = row(index);
    const Glyph glyph = glyph_of(one);
    const int x = box_x(one) + fold_handle_x, y = middle(one);
    disc(x, y, glyph == Glyph::inaccessible ? red : face_of(look));
    draw_glyph(x, y, glyph);
}

}
