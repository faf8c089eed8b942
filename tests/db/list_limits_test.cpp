#include "db/drag.h"
#include "db/tool_db_file.h"
#include "hostkit/structures/files.h"
#include "tests/db/database_list.h"

#include <algorithm>

// Lists that are larger or deeper than their numbers, and objects and files that go away while they are listed.

using namespace test;

class DatabaseLimits : public Database_List {};

TEST_F(DatabaseLimits, RowsDeeperThanTheTablesAreUsedLikeOthers)
{
    constexpr int deepest = 120;
    Strato_2D* folder = series_b;
    for (int level = 2; level < deepest; ++level)
        folder = add(folder, "Series", std::to_string(level));
    add_image(folder, "first");
    add_image(folder, "second");
    rebuild();
    const int folder_row = panel.nb - 3;
    ASSERT_EQ(row(folder_row).level, deepest - 1);
    ASSERT_EQ(row(folder_row).nb_child, 2);
    EXPECT_EQ(row(folder_row).state, DB_List::expanded) << "these levels share what is known of their siblings";
    EXPECT_EQ(row(folder_row + 1).state, DB_List::leaf);
    EXPECT_EQ(row(folder_row + 2).state, DB_List::leaf | DB_List::last_sibling);

    panel.vertical.value = panel.vertical.maximum;
    panel.horizontal.value = static_cast<float>(20 * (deepest - 3));
    panel.Draw();
    const int line = row(folder_row).line;
    EXPECT_EQ(press(on_line(line, deepest - 2)), 0);
    EXPECT_TRUE(db::drag.going_on) << "beside the lead";
    release({500, 500});
    panel.Motion(0);
    EXPECT_EQ(press(on_line(line, deepest - 1)), 0);
    EXPECT_FALSE(db::drag.going_on);
    EXPECT_EQ(row(folder_row + 1).line, 65535);
    press(on_line(line, deepest - 1));
    EXPECT_EQ(row(folder_row + 1).line, line + 1);
    press(on_line(line, deepest + 3));
    EXPECT_EQ(release(on_line(line, deepest + 3)), 1);
    EXPECT_EQ(row(folder_row).select, 2);
    EXPECT_EQ(row(folder_row + 2).select, 2);
    EXPECT_EQ(row(0).select, 1);
}

TEST_F(DatabaseLimits, ListOfAllRowNumbersIsUsedToItsEnd)
{
    for (int series = 0; series < 3; ++series) {
        Strato_2D* const made = add(root, "Series", std::to_string(series));
        for (int k = 0; k < 22000; ++k)
            add_image(made, "i");
    }
    rebuild();
    ASSERT_EQ(panel.nb, 65535);
    EXPECT_EQ(panel.vertical.maximum, static_cast<float>(65536 * 18 - panel.list_box.height));
    panel.vertical.value = panel.vertical.maximum;
    panel.Draw();
    click(65534);
    EXPECT_EQ(row(65534).select, 2);
    EXPECT_EQ(panel.last_row, 65534);
    hold_keys(true, false);
    click(65530);
    EXPECT_EQ(row(65530).select, 2);
    EXPECT_EQ(row(65529).select, 0);
    hold_keys(false, false);
    press(middle(panel.select_all));
    EXPECT_EQ(
        std::count_if(panel.list_pt, panel.list_pt + panel.nb, [](const DB_List& r) { return r.select == 2; }), 65535);
    panel.vertical.value = 0;
    panel.Draw();
    press(on_line(0, 0)); // folds everything
    EXPECT_EQ(row(65534).line, 65535);
    EXPECT_EQ(panel.vertical.state, 0x0C000027u);
    press(on_line(3));
    EXPECT_FALSE(db::drag.going_on) << "no row shows the line";
}

TEST_F(DatabaseLimits, ObjectsMayGoWhileTheyAreDraggedOver)
{
    hostkit::Panel_Slot<Tool_DB_Class> slot(main_window(), {});
    MoveWindow(slot.window(), 0, 0, 300, 260, TRUE);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    const auto on = [&](int line) {
        return Place{slot.panel().Origin().x + 150, slot.panel().Origin().y - 18 * line - 18};
    };
    test::press(slot.window(), on(6));
    test::move(slot.window(), on(2));
    hostkit::Object_2D_Remove(series_a);
    ASSERT_EQ(slot.panel().nb, 3);
    test::release(slot.window(), on(1));
    EXPECT_EQ(slot.panel().list_pt[2].select, 2) << "the lines are those of the new rows";
    EXPECT_EQ(slot.panel().last_row, 1);
    hostkit::Object_2D_Remove(series_b);
    test::click(slot.window(), on(0));
    EXPECT_EQ(slot.panel().list_pt[0].state & DB_List::leaf, DB_List::leaf);
}

TEST_F(DatabaseLimits, FilesMayBeClosedWhileTheyAreListed)
{
    const hostkit::Frame_Description frame{{0x4354, 0, 64, 64, 1, 1}, true};
    hostkit::Window_Add("w");
    File_Record* const first = hostkit::File_Add("/not/there/one.dcm", {frame, frame});
    File_Record* const second = hostkit::File_Add("/not/there/two.dcm", {frame});
    hostkit::Frame_Shows(images[0], first, 1);
    hostkit::Frame_Shows(images[1], second, 0);
    hostkit::Panel_Slot<Tool_DB_File> slot(main_window(), {});
    MoveWindow(slot.window(), 0, 0, 300, 260, TRUE);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    ASSERT_EQ(slot.panel().nb, 6);
    const Place all = middle(slot.panel().select_all);
    test::click(slot.window(), all);
    hostkit::File_Remove(first);
    ASSERT_EQ(slot.panel().nb, 3);
    EXPECT_STREQ(slot.panel().list_pt[1].name, "two.dcm");
    Fct_Update(0x102, nullptr, nullptr, nullptr);
    EXPECT_EQ(slot.panel().list_pt[2].select, 2);
    hostkit::File_Remove(second);
    EXPECT_EQ(slot.panel().nb, 0);
    EXPECT_EQ(slot.panel().list_pt, nullptr);
    test::click(slot.window(), all);
    test::click(slot.window(), {100, 150});
    EXPECT_TRUE(images[1]->Flag_Get_Bit(16, reinterpret_cast<void*>(4), 512)) << "no row of it is left";
}
