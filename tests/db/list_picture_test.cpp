#include "db/tool_db_file.h"
#include "hostkit/structures/files.h"
#include "tests/db/database_list.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// What the lists look like: pictures to be looked at, and what can be told of their pixels.

using namespace test;

class DatabasePicture : public Database_List {
protected:
    DatabasePicture() { hostkit::Window_Add("w"); }

    int count(const Tools& box, COLORREF color) const
    {
        int found = 0;
        for (int y = box.y; y < box.y + box.height; ++y) {
            for (int x = box.x; x < box.x + box.width; ++x)
                found += pixel(main_window(), {x, y}).get() == color;
        }
        return found;
    }
};

TEST_F(DatabasePicture, ClassesWithEveryMark)
{
    add(root, "Acquisition", "folded");
    add_image(add(root, "Acquisition", "folded, with one"), "inside");
    add(root, "Locked", "cannot be selected", 0x2010);
    add(root, "Empty", "without children", 0x2FFD);
    lay_out(420, 330, 5, 5);
    rebuild();
    drag(3, 4);
    EXPECT_GT(count(panel.list_box, 0x00FF0000), 20) << "names in blue";
    EXPECT_GT(count(panel.list_box, 0x00000000), 5) << "of selected rows in black";
    EXPECT_GT(count(panel.list_box, 0x0000FFFF), 20) << "titles in yellow";
    keep_picture(main_window(), "database_classes");
    press(on_line(1, 1));
    keep_picture(main_window(), "database_classes_folded");
}

TEST_F(DatabasePicture, ScrolledListIsCutAtItsBox)
{
    add_series(20, 3);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    panel.vertical.value = 100;
    panel.horizontal.value = 13;
    panel.Draw();
    keep_picture(main_window(), "database_classes_scrolled");
    const auto before = pixels(main_window());
    area.back = panel.list_box.back;
    const Boxs& box = panel.list_box;
    for (int x = box.x; x < box.x + box.width; ++x) {
        EXPECT_EQ(pixel(main_window(), {x, box.y - 1}), area.back);
        EXPECT_EQ(pixel(main_window(), {x, box.y + box.height}), area.back);
    }
    for (int y = box.y; y < box.y + box.height; ++y)
        EXPECT_EQ(pixel(main_window(), {box.x + box.width, y}), area.back);
    panel.Draw();
    EXPECT_EQ(pixels(main_window()), before);
}

TEST_F(DatabasePicture, IdleBarsShowNothingToBeMoved)
{
    add_series(20, 3);
    press(on_line(0, 0));
    release(on_line(0, 0)); // the root is folded: one line is left
    for (const Sliders* bar : {&panel.vertical, &panel.horizontal}) {
        ASSERT_FALSE(bar->Active());
        const Colors seen = pixel(main_window(), middle(*bar));
        EXPECT_EQ(pixel(main_window(), {bar->x + 3, bar->y + 3}), seen);
        EXPECT_EQ(pixel(main_window(), {bar->x + bar->width - 4, bar->y + bar->height - 4}), seen);
    }
}

TEST_F(DatabasePicture, RowsMoveWithTheView)
{
    add_series(20, 3);
    const Boxs& box = panel.list_box;
    panel.vertical.value = 36;
    panel.Draw();
    std::vector<COLORREF> upper;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 200; ++x)
            upper.push_back(pixel(main_window(), {box.x + x, box.y + 40 + y}).get());
    }
    panel.vertical.value = 45;
    panel.Draw();
    size_t at = 0;
    int differing = 0;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 200; ++x)
            differing += pixel(main_window(), {box.x + x, box.y + 49 + y}).get() != upper[at++];
    }
    EXPECT_EQ(differing, 0);
}

TEST_F(DatabasePicture, ItemsStandInColumns)
{
    const auto texts = [](std::initializer_list<const char*> given) {
        auto** const result = static_cast<char**>(std::calloc(given.size(), sizeof(char*)));
        std::transform(
            given.begin(), given.end(), result, [](const char* text) { return text ? strdup(text) : nullptr; });
        return result;
    };
    Tool_DB_Class other;
    other.Update(0x402);
    for (const int index : {2, 4, 6}) {
        DB_List& changed = other.list_pt[index];
        changed.nb_item = 2;
        changed.item_x = static_cast<unsigned*>(std::calloc(2, sizeof(unsigned)));
        changed.item_color = static_cast<COLORREF*>(std::calloc(2, sizeof(COLORREF)));
        changed.item_title = texts({"Size", nullptr});
        changed.item_name = texts({index == 4 ? "a long one" : "1", "x"});
    }
    area.width = 500;
    other.Resize(&area);
    other.Draw();
    keep_picture(main_window(), "database_items");
    const DB_List& first = other.list_pt[2];
    EXPECT_GT(first.item_x[0], 80u);
    EXPECT_GT(first.item_x[1], first.item_x[0] + 20);
    for (const int index : {4, 6}) {
        EXPECT_EQ(other.list_pt[index].item_x[0], first.item_x[0]);
        EXPECT_EQ(other.list_pt[index].item_x[1], first.item_x[1]);
    }
}

TEST_F(DatabasePicture, FilesWithTheirIcons)
{
    const auto frame = [](unsigned short modality, unsigned short flags, unsigned short z, unsigned short t) {
        return hostkit::Frame_Description{{modality, flags, 256, 256, z, t}, true};
    };
    auto locked = frame(0x4354, 0, 1, 1);
    locked.accessible = false;
    hostkit::File_Add("/data/knee/first.dcm",
        {frame(0x4354, 16, 1, 1), frame(0x4354, 0, 1, 1), frame(0x4354, 0, 10, 1), frame(0x4354, 0, 1, 7), locked});
    hostkit::File_Add("/data/knee/second.dcm", {frame(0x4D52, 0, 1, 1)});
    File_Record* const shown = hostkit::File_Add("/data/other/third.dcm", {frame(0x5553, 0, 1, 1)});
    for (const unsigned short modality : std::initializer_list<unsigned short>{0x4E4D, 0x4352, 0x5048, 0x5841, 0x4141})
        hostkit::File_Add("/data/other/more", {frame(modality, 0, 0, 0)});
    hostkit::Frame_Shows(images[0], shown, 0);
    images[0]->Flag_Set_On(16, reinterpret_cast<void*>(4), 512);
    Tool_DB_File files;
    area.height = 480;
    files.Resize(&area);
    files.Update(0x502);
    files.Draw();
    keep_picture(main_window(), "database_files");
    ASSERT_EQ(files.nb, 22);
    EXPECT_EQ(files.list_pt[11].select, 2);

    const auto on_line = [&](int line, int level) {
        return Place{files.Origin().x + 20 * level + 3, files.Origin().y - 18 * line - 18};
    };
    const auto press_at = [&](Place place) {
        point(main_window(), place);
        files.Click(left_press);
        files.Click(0);
    };
    area.width = 200;
    area.height = 300;
    files.Resize(&area);
    files.Draw();
    press_at(on_line(3, 6)); // one image of the first file
    press_at(on_line(7, 1)); // folds the second
    files.horizontal.value = 45;
    files.vertical.value = 62;
    files.Draw();
    EXPECT_EQ(files.list_pt[0].select, 1);
    EXPECT_EQ(files.list_pt[8].line, 65535);
    keep_picture(main_window(), "database_files_scrolled");
}
