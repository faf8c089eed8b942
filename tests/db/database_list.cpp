#include "tests/db/database_list.h"

#include "db/drag.h"
#include "hostkit/structures/registry.h"

namespace test {

Database_List::Database_List()
{
    root = hostkit::Root_2D();
    series_a = add(root, "Series", "a");
    for (const char* name : {"one", "two", "three"})
        images.push_back(add_image(series_a, name));
    series_b = add(root, "Series", "b");
    images.push_back(add_image(series_b, "four"));
    lay_out();
    rebuild();
    reports.clear();
    broadcasts();
}

Database_List::~Database_List()
{
    hold_keys(false, false);
    if (panel.Motion(0)) // ends a drag
        panel.Leave();
}

Strato_2D* Database_List::add(Strato_2D* parent, const std::string& title, const std::string& name, unsigned class_a)
{
    return hostkit::Object_2D_Add(
        parent, {.name = name, .title = title, .class_a = class_a, .icon = "icon series.tga"});
}

Strato_2D_Frame* Database_List::add_image(Strato_2D* series, const std::string& name)
{
    return hostkit::Frame_Add(series, {.name = name,
                                          .title = "Image",
                                          .class_a = hostkit::frame_class,
                                          .magic = hostkit::frame_magic,
                                          .icon = "icon image.tga"});
}

void Database_List::add_series(int series, int count)
{
    for (int i = 0; i < series; ++i) {
        Strato_2D* const made = add(root, "Series", "more " + std::to_string(i));
        for (int k = 0; k < count; ++k)
            images.push_back(add_image(made, std::to_string(k)));
    }
    rebuild();
}

void Database_List::lay_out(int width, int height, int x, int y)
{
    area.window = main_window();
    area.x = static_cast<short>(x);
    area.y = static_cast<short>(y);
    area.width = static_cast<short>(width);
    area.height = static_cast<short>(height);
    area.border = 2;
    area.frame = {0x3a, 0x40, 0x48};
    area.back = {0xc8, 0xcc, 0xd0};
    area.text = {0x10, 0x10, 0x10};
    EXPECT_EQ(panel.Resize(&area), 1);
    panel.Draw();
    reports.clear();
}

std::vector<int> Database_List::selects() const
{
    std::vector<int> result;
    for (int i = 0; i < panel.nb; ++i)
        result.push_back(row(i).select);
    return result;
}

std::vector<int> Database_List::lines() const
{
    std::vector<int> result;
    for (int i = 0; i < panel.nb; ++i)
        result.push_back(row(i).line);
    return result;
}

Place Database_List::on_line(int line, int level) const
{
    const auto origin = panel.Origin();
    return {origin.x + 20 * level + 3, origin.y - 18 * line - 18};
}

int Database_List::press(Place place)
{
    point(main_window(), place);
    return panel.Click(left_press);
}

int Database_List::release(Place place)
{
    point(main_window(), place);
    return panel.Click(0);
}

int Database_List::move(Place place, int up_down)
{
    point(main_window(), place);
    return panel.Motion(up_down);
}

void Database_List::drag(int from, int to)
{
    EXPECT_EQ(press(on_line(from)), 0);
    EXPECT_EQ(release(on_line(to)), 1);
}

}
