#include "db/class_rename.h"
#include "db/dimension.h"
#include "db/edit_diagram.h"
#include "db/edit_state.h"
#include "db/edit_tree.h"
#include "db/edit_view.h"
#include "db/tool_db_list.h"
#include "frame/events.h"
#include "frame/report.h"

#include <cstring>
#include <memory>
#include <new>

namespace level = frame::level;
using db::Diagram_View;
using db::drag;
using db::edit_state;

namespace {

constexpr const char* source = "edit_click";

int dimension_of(int mode)
{
    return mode & Tool_DB_List::dimension_part;
}

void begin_drag(const Diagram_View& view, int code)
{
    drag.going_on = true;
    drag.begun_in = &view.box;
    drag.start = drag.current = db::list_pointer(view.box, view.origin());
    edit_state.begun = code;
    db::Diagram(view).draw_dragged();
}

void end_drag()
{
    drag.going_on = false;
    edit_state.begun = 0;
}

// Without memory the name stays as it is.
void rename(const Diagram_View& view, int row)
{
    void* const renamed = view.list[row].object;
    const Strato* const object = db::object_of(view.dimension, renamed);
    if (!object)
        return;
    constexpr std::size_t room_to_type = 1024;
    const char* const name = object->Name_Get() ? object->Name_Get() : "";
    const std::size_t capacity = std::strlen(name) + room_to_type;
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[capacity]);
    if (!buffer)
        return frame::report_new_failed(__LINE__, source);
    std::strcpy(buffer.get(), name);
    if (DB_Class_Rename(view.box, buffer.get(), capacity) == class_rename_save)
        db::rename(view.dimension, renamed, buffer.get());
}

// What is to be moved has to be known before the first change: rows may be others after it.
bool drop(const Diagram_View& view, int target_row)
{
    int count = 0;
    db::any_dragged(view, [&](int) { return ++count < 0; });
    const std::unique_ptr<void*[]> sources(new (std::nothrow) void*[static_cast<std::size_t>(count)]);
    if (!sources) {
        frame::report_new_failed(__LINE__, source);
        return false;
    }
    int next = 0;
    db::any_dragged(view, [&](int row) {
        sources[static_cast<std::size_t>(next++)] = view.list[row].object;
        return false;
    });
    void* const target = view.list[target_row].object;
    end_drag();
    db::move_under(view.dimension, sources.get(), count, target);
    return true;
}

}

int DB_Edit_Click_DB(int mode, Boxs* box, int up_down, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Click_DB(up_down=0x%08x)", static_cast<unsigned>(up_down));
    const Diagram_View view{dimension_of(mode), *box, nb, list, *vertical, *horizontal};
    const bool press = frame::is_press(up_down);
    const int code = view.empty() ? 0 : DB_Edit_Locate(box, nb, list, horizontal, vertical);
    const auto paint = [&] { DB_Edit_Paint(mode, box, nb, list, vertical, horizontal); };
    if (!press) {
        db::erase_drag(*box);
        const bool dragged = db::begun_in(*box) != 0;
        if (dragged && db::part_of_hit(code) == db::children_handle && drop(view, db::row_of_hit(code)))
            return db_edit_tree_changed;
        end_drag();
        if (dragged)
            paint();
        return db_edit_used;
    }
    if (view.empty())
        return db_edit_used;
    switch (db::part_of_hit(code)) {
    case db::parent_handle:
    case db::children_handle:
        if (db::begun_in(*box)) { // another button is held
            end_drag();
            paint();
        }
        begin_drag(view, code);
        break;
    case db::fold_handle:
        list[db::row_of_hit(code)].state ^= DB_List::expanded;
        paint();
        vertical->Draw();
        horizontal->Draw();
        break;
    case db::box_body:
        if (up_down == frame::up_down::right_press)
            rename(view, db::row_of_hit(code));
        break;
    }
    return db_edit_used;
}

int DB_Edit_Key_DB(int mode, Boxs* box, int key, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Key_DB(key=0x%08x)", static_cast<unsigned>(key));
    if (frame::key_code(key) != frame::delete_key || nb <= 0 || !list)
        return 0;
    const int code = DB_Edit_Locate(box, nb, list, horizontal, vertical);
    if (db::part_of_hit(code) != db::box_body)
        return 0;
    return db::take_out(dimension_of(mode), list[db::row_of_hit(code)].object);
}
