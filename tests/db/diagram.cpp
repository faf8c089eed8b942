#include "tests/db/diagram.h"

namespace test {

Database_Diagram::Database_Diagram()
{
    root = hostkit::Root_2D();
    study_x = add(root, "Study", "x", 0x2001);
    series_a = add(study_x, "Series", "a", 0x2100);
    one = add(series_a, "Frame", "one", hostkit::frame_class);
    two = add(series_a, "Frame", "two", hostkit::frame_class);
    three = add(series_a, "Frame", "three", hostkit::frame_class);
    study_y = add(root, "Study", "y", 0x2001);
    four = add(study_y, "Frame", "four", hostkit::frame_class);
    constexpr int edit_the_2d_tree = Tool_DB_List::edit_mode | 2;
    slot_ = std::make_unique<hostkit::Panel_Slot<Tool_DB_Class>>(
        main_window(), hostkit::Panel_Rules{}, int(edit_the_2d_tree));
    slot_->host().Set_Look({.frame = {0x5c, 0x63, 0x6b}, .back = {0x95, 0x9b, 0xa2}, .text = {0x14, 0x18, 0x1c}});
    lay_out(1340, 600);
    ShowWindow(window(), SW_SHOW);
    Fct_Update(hostkit::series_tree_changed, nullptr, nullptr, nullptr);
    reports.clear();
    broadcasts();
}

void Database_Diagram::lay_out(int width, int height)
{
    MoveWindow(window(), 0, 0, width, height, TRUE);
    slot_->host().Lay_Out();
    panel().Draw();
}

Strato_2D* Database_Diagram::add(Strato_2D* parent, const std::string& title, const std::string& name, unsigned class_a)
{
    return hostkit::Object_2D_Add(parent, {.name = name, .title = title, .class_a = class_a});
}

int Database_Diagram::row_of(const Strato_2D* object)
{
    for (int i = 0; i < panel().nb; ++i) {
        if (panel().list_pt[i].object == object)
            return i;
    }
    ADD_FAILURE() << "no row";
    return 0;
}

Place Database_Diagram::part(const Strato_2D* object, db::Diagram_Part part)
{
    constexpr int x[] = {125, 0, 250, 290};
    const DB_List& row = panel().list_pt[row_of(object)];
    const auto origin = panel().Origin();
    return {origin.x + 330 * row.level + x[part], origin.y - 50 * row.line - 30};
}

Place Database_Diagram::empty_space()
{
    const Boxs& box = panel().list_box;
    return {box.x + box.width / 3, box.y + 60};
}

void Database_Diagram::drag(Place from, Place to)
{
    press(window(), from);
    move(window(), {(from.x + to.x) / 2, (from.y + to.y) / 2});
    move(window(), to);
    release(window(), to);
}

std::string Database_Diagram::text_of(const Strato_2D* object)
{
    std::string text = object->Parent_Get_Pt() ? object->Name_Get() : "root";
    for (int i = 0; i < object->Child_Get_Nb(); ++i)
        text += (i == 0 ? '(' : ' ') + text_of(object->Child_Get_Pt(i));
    return object->Child_Get_Nb() > 0 ? text + ')' : text;
}

std::vector<int> Database_Diagram::lines()
{
    std::vector<int> result;
    for (int i = 0; i < panel().nb; ++i)
        result.push_back(panel().list_pt[i].line);
    return result;
}

}
