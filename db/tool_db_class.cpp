#include "db/tool_db_class.h"

#include "db/dimension.h"
#include "db/selection.h"
#include "frame/change_flags.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "host/structures.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace level = frame::level;
namespace change = frame::change;

namespace {

constexpr const char* source = "tool_db_class";
constexpr const char* folder_icon = "icon folder.tga";
constexpr unsigned frame_magic = 0xAABA;
constexpr unsigned without_listed_children = 0x2FFD;
constexpr auto everything_shown = 0x0FFFFFFFull;

using db::for_dimension;

// What the trees differ in.
template <class Object>
struct Tree;
template <>
struct Tree<Strato_1D> {
    static constexpr const char* root = "$DB_1D_ROOT_PT";
    static constexpr unsigned leaf_class = 0x1FFF;
    static constexpr frame::Change_Flags selection = change::selection | 1;
};
template <>
struct Tree<Strato_2D> {
    static constexpr const char* root = "$DB_2D_ROOT_PT";
    static constexpr unsigned leaf_class = 0x2FFF;
    static constexpr frame::Change_Flags selection = change::frame_selection;
};
template <>
struct Tree<Strato_3D> {
    static constexpr const char* root = "$DB_3D_ROOT_PT";
    static constexpr unsigned leaf_class = 0x3FFF;
    static constexpr frame::Change_Flags selection = change::selection | 4;
};

template <class Object>
constexpr bool is_2d = std::is_same_v<Object, Strato_2D>;

template <class Object>
Object* root_of()
{
    return static_cast<Object*>(frame::value_of(Tree<Object>::root));
}

// -------------------------------------------------------------------------------------------------------- building

// Appends a row. When memory runs out the rows are lost. @return null then
DB_List* append(int* nb, DB_List** list_pt, int row_level, int parent)
{
    if (!db::add_row(*nb, list_pt)) {
        frame::report_realloc_failed(__LINE__, source, "(*list_pt)", *nb + 1, static_cast<int>(sizeof(DB_List)));
        db::free_rows(*nb, *list_pt);
        *list_pt = nullptr;
        return nullptr;
    }
    DB_List& row = (*list_pt)[(*nb)++];
    row.level = static_cast<unsigned short>(row_level);
    row.parent = static_cast<unsigned short>(parent);
    row.state = DB_List::expanded;
    row.icon = folder_icon;
    return &row;
}

bool take_texts(DB_List& row, const Strato& object)
{
    if (!db::copy_text(object.Title_Get(), &row.title)) {
        frame::report_strdup_failed(__LINE__, source, "(*list_pt)[nb].title");
        return false;
    }
    if (!db::copy_text(object.Name_Get(), &row.name)) {
        frame::report_strdup_failed(__LINE__, source, "(*list_pt)[nb].name");
        return false;
    }
    return true;
}

template <class Object>
void take_leaf(DB_List& row, const Object& object)
{
    row.state = DB_List::leaf;
    if (object.Class_A_Get() != Tree<Object>::leaf_class)
        row.state |= DB_List::inaccessible;
    if (db::is_selected(object))
        row.select = DB_List::selected;
}

template <class Object>
int listed_children(const Object& object)
{
    if (is_2d<Object> && object.Class_A_Get() == without_listed_children)
        return 0;
    return object.Child_Get_Nb();
}

// @return whether the row has all that it should have
template <class Object>
bool fill(DB_List& row, Object& object)
{
    constexpr const char collapsed[] = "Acquis";
    if (const char* icon = object.Icon_Get())
        row.icon = icon;
    if (object.Child_Get_Nb() == 0)
        take_leaf(row, object);
    row.object = &object;
    if (!take_texts(row, object))
        return false;
    if (is_2d<Object> && row.title && std::strncmp(row.title, collapsed, sizeof collapsed - 1) == 0)
        row.state = 0;
    row.nb_child = static_cast<unsigned short>(std::min(listed_children(object), db::most_rows));
    return true;
}

// The rows may move with each child.
template <class Object>
unsigned short append_tree(Tool_DB_Class& panel, int* nb, DB_List** list_pt, int row_level, int parent, Object* object)
{
    if (!object)
        return 0;
    if (is_2d<Object> && db::is_left_out(object->Title_Get())) {
        Error_Fct(hwnd, level::notice, "%s", object->Title_Get());
        return 0;
    }
    const int at = *nb;
    if (at >= db::most_rows)
        return 0;
    DB_List* row = append(nb, list_pt, row_level, parent);
    if (!row || !fill(*row, *object))
        return 0;
    for (int k = 0; k < listed_children(*object) && *nb < db::most_rows; ++k) {
        Object* child = object->Child_Get_Pt(k);
        if (!child)
            continue; // null would mean the root
        const unsigned short added = panel.List_Create_From_DB(nb, list_pt, row_level + 1, at, child);
        if (!*list_pt)
            return 0;
        (*list_pt)[at].nb_desc = static_cast<unsigned short>((*list_pt)[at].nb_desc + added);
    }
    return static_cast<unsigned short>((*list_pt)[at].nb_desc + 1);
}

// ------------------------------------------------------------------------------------------------------- selecting

// The objects of the rows that can be selected.
template <class Object>
Object* selectable(const DB_List& row)
{
    auto* object = static_cast<Object*>(row.object);
    if (!object || !(row.state & DB_List::leaf) || (row.state & DB_List::inaccessible))
        return nullptr;
    return is_2d<Object> && object->Class_Magic_Get() != frame_magic ? nullptr : object;
}

template <class Object>
void read_selection(int nb, DB_List* list)
{
    for (int i = 0; list && i < nb; ++i) {
        if (const Object* object = selectable<Object>(list[i]))
            db::take_selection(list[i], db::is_selected(*object));
    }
}

void show_in_window(Strato_2D* object)
{
    auto* window = static_cast<Strato_Window*>(frame::value_of("$WINDOW_CUR"));
    Fct_Change_Child(window, object, nullptr);
    Fct_Update(change::current_frame, nullptr, nullptr, nullptr);
}

// From the last row to the first, so that the uppermost object stays in the window.
template <class Object>
void write_selection(int nb, const DB_List* list)
{
    if (Object* root = root_of<Object>())
        db::deselect(*root, db::whole_tree);
    for (int i = list ? nb - 1 : -1; i >= 0; --i) {
        Object* object = selectable<Object>(list[i]);
        if (!object)
            continue;
        if (!(list[i].select & DB_List::selected)) {
            db::deselect(*object, db::object_alone);
            continue;
        }
        db::select(*object, db::with_ancestors);
        if constexpr (is_2d<Object>)
            show_in_window(object);
    }
    Fct_Update(Tree<Object>::selection, db::selection_word(), nullptr, nullptr);
}

}

Tool_DB_Class::Tool_DB_Class(int given_mode)
{
    mode = given_mode;
}

unsigned short Tool_DB_Class::List_Create_From_DB(int* count, DB_List** list, int level, int parent, void* object)
{
    const auto tree = [&]<class Object>() {
        auto* top = object ? static_cast<Object*>(object) : root_of<Object>();
        return append_tree(*this, count, list, level, parent, top);
    };
    const auto empty_folder = [&]() -> unsigned short { return append(count, list, level, parent) ? 1 : 0; };
    return for_dimension(Dimension(), tree, empty_folder);
}

void Tool_DB_Class::List_Select_From_DB(int count, DB_List* list)
{
    for_dimension(
        Dimension(), [&]<class Object>() { read_selection<Object>(count, list); }, [] {});
}

void Tool_DB_Class::List_Select_To_DB(int count, DB_List* list)
{
    for_dimension(
        Dimension(), [&]<class Object>() { write_selection<Object>(count, list); }, [] {});
    Fct_Redraw(everything_shown, nullptr, nullptr, nullptr);
}
