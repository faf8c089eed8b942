#include "db/tool_db_list.h"

#include "db/browse_view.h"
#include "db/edit_view.h"
#include "frame/change_flags.h"
#include "frame/drawing.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/widget_state.h"

namespace level = frame::level;
namespace change = frame::change;
using frame::has_all;
using frame::has_any;

namespace {

constexpr const char* source = "tool_db_list";

}

// All numbers 0, all pointers null.
Tool_DB_List::Tool_DB_List() = default;

Tool_DB_List::Tool_DB_List(const Tool_DB_List& other) : Tool_DB_List()
{
    *this = other;
}

Tool_DB_List& Tool_DB_List::operator=(const Tool_DB_List& other)
{
    if (this == &other)
        return *this;
    List_Free(this);
    other.Own_Rows();
    box = other.box;
    spare = other.spare;
    list_box = other.list_box;
    top_zone = other.top_zone;
    bottom_zone = other.bottom_zone;
    left_zone = other.left_zone;
    right_zone = other.right_zone;
    warning_title = other.warning_title;
    warning_message = other.warning_message;
    vertical = other.vertical;
    horizontal = other.horizontal;
    select_all = other.select_all;
    select_none = other.select_none;
    mode = other.mode;
    last_row = other.last_row;
    rows_ = other.rows_;
    measured_ = other.measured_;
    if (rows_.holds(other.list_pt)) {
        nb = other.nb;
        list_pt = other.list_pt;
    }
    return *this;
}

Tool_DB_List::~Tool_DB_List()
{
    db::forget_drag(list_box);
    List_Free(this);
}

// ------------------------------------------------------------------------------------------------------ the rows

void Tool_DB_List::List_Free(Tool_DB_List* list)
{
    DB_Edit_Forget(&list->list_box);
    if (!list->rows_.holds(list->list_pt))
        db::free_rows(list->nb, list->list_pt);
    list->rows_ = {};
    list->measured_ = {};
    list->list_pt = nullptr;
    list->nb = 0;
}

// Rows that somebody may share need an owner. Without memory for one they stay this panel's alone.
void Tool_DB_List::Own_Rows() const
{
    if (list_pt && !rows_.holds(list_pt) && !rows_.own(nb, list_pt))
        frame::report_new_failed(__LINE__, source);
}

void Tool_DB_List::Rebuild()
{
    List_Free(this);
    vertical.value = vertical.minimum;
    horizontal.value = horizontal.minimum;
    List_Create_From_DB(&nb, &list_pt, 0, 0, nullptr);
    DB_2D_Class_List_Roll_Up(nb, list_pt);
    if (!list_pt && list_box.window) {
        list_box.Clear(list_box.back);
        db::forget_drag(list_box);
        DB_2D_Class_List_Reset_Sliders(this);
    }
    Paint();
    Draw_Sliders();
}

void Tool_DB_List::Read_Selection()
{
    if (list_pt)
        List_Select_From_DB(nb, list_pt);
    DB_2D_Class_List_Roll_Up(nb, list_pt);
}

int Tool_DB_List::List_Width(const db::Row_Fonts& fonts, int space)
{
    if (!measured_.is_of(nb, list_pt, fonts, space))
        measured_ = db::measure_rows(nb, list_pt, fonts, space);
    return measured_.width;
}

// ------------------------------------------------------------------------------------------------------- drawing

int Tool_DB_List::Height(unsigned short nb_line)
{
    Error_Fct(hwnd, level::database_trace, "in Tool_DB_List::Height()");
    const int button = frame::dimension("$INTERFACE_BUTTON_DIM_SML");
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    const int border = frame::dimension("$INTERFACE_BORDER_DIM");
    return button + 2 * (space + db::line_height / 2 * nb_line + border);
}

void Tool_DB_List::Draw()
{
    Error_Fct(hwnd, level::database_trace, "in Tool_DB_List::Draw()");
    if (!box.window)
        return;
    const frame::Drawing drawing(box.window, "Tool_DB_List::Draw");
    box.Draw();
    db::forget_drag(list_box);
    if (Edits()) {
        Paint();
        warning_title.Draw();
        Show_Next_Warning();
    } else {
        select_all.Draw();
        select_none.Draw();
        Paint();
    }
    if (!list_pt)
        DB_2D_Class_List_Reset_Sliders(this); // a layout makes them active
    Draw_Sliders();
}

void Tool_DB_List::Show_Next_Warning()
{
    static constexpr const char* messages[] = {
        "Please make sure you know what you are doing!", "Pressing: \"Update DB\" will reset all changes made here."};
    static unsigned next = 0; // of all panels
    warning_message.Set_Name(messages[next]);
    next = 1 - next;
    warning_message.Draw();
}

void Tool_DB_List::Paint(DB_Lines lines)
{
    if (Edits())
        DB_Edit_Paint(mode, &list_box, nb, list_pt, &vertical, &horizontal);
    else
        DB_2D_Class_List_Paint(this, lines);
}

void Tool_DB_List::Draw_Sliders()
{
    vertical.Draw();
    horizontal.Draw();
}

// ------------------------------------------------------------------------------------------------------ the host

void Tool_DB_List::Update(unsigned long long flags)
{
    if (has_any(flags, change::any_tree))
        Rebuild();
    if (has_any(flags, change::current_window)) {
        const auto* window = static_cast<const Strato_Window*>(frame::value_of("$WINDOW_CUR"));
        if (!window)
            return;
        Read_Selection();
        constexpr unsigned locks_selection = 2;
        const bool locked = (window->Class_A_Get() & locks_selection) != 0;
        select_all.state = select_none.state = locked ? frame::state::greyed : frame::state::active;
        Draw();
    }
    if (has_all(flags, change::frame_selection)) {
        Read_Selection();
        Paint();
    }
}
