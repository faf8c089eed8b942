#include "hostkit/structures/registry.h"
#include "tests/db/database_list.h"

// Where the list's parts are, and what a copy shares.

using namespace test;
using hostkit::Variable;
using Numbers = std::vector<int>;

namespace {

Numbers place_of(const Tools& widget)
{
    return {widget.x, widget.y, widget.width, widget.height};
}

class DatabaseLayout : public Database_List {
protected:
    const int space = Variable<short>("$INTERFACE_SPACE_DIM"), slider = Variable<short>("$INTERFACE_VAL_DIM_SML"),
              button = Variable<short>("$INTERFACE_BUTTON_DIM_SML"), border = Variable<short>("$INTERFACE_BORDER_DIM");
};

}

TEST_F(DatabaseLayout, HeightHasRoomForTheLines)
{
    EXPECT_EQ(panel.Height(0), button + 2 * space + 2 * border);
    EXPECT_EQ(panel.Height(10), button + 2 * space + 2 * border + 180);
    EXPECT_EQ(
        reports.lines(), (std::vector<std::string>{"15 in Tool_DB_List::Height()", "15 in Tool_DB_List::Height()"}));
}

TEST_F(DatabaseLayout, PartsFillThePanel)
{
    const int x = 10, y = 20, w = 300, h = 260;
    const int half = (w - 2 * space - 2) / 2;
    EXPECT_EQ(place_of(panel.box), (Numbers{x, y, w, h}));
    EXPECT_EQ(panel.box.state, 66u);
    EXPECT_EQ(place_of(panel.select_all), (Numbers{x + space, y + space, half, button}));
    EXPECT_EQ(place_of(panel.select_none), (Numbers{x + space + half + 2, y + space, half, button}));
    EXPECT_STREQ(panel.select_all.name.get(), "Select All");
    EXPECT_STREQ(panel.select_none.name.get(), "Select None");
    EXPECT_EQ(place_of(panel.warning_title), (Numbers{x + space, y + space, 80, button}));
    EXPECT_EQ(place_of(panel.warning_message), (Numbers{x + space + 80, y + space, 2 * (half - 40), button}));
    EXPECT_STREQ(panel.warning_title.name.get(), " Warning!");
    EXPECT_EQ(panel.warning_title.state, 8448u);
    EXPECT_EQ(panel.warning_title.color.get(), 0x00FF00FFu);
    EXPECT_EQ(panel.warning_message.color.get(), 0x00010000u);

    const int band = y + 2 * space + button, height = h - 2 * space - 2 - button - 1;
    EXPECT_EQ(place_of(panel.vertical),
        (Numbers{x + w - space - slider, band + slider + space, slider, height - 2 * space - slider}));
    EXPECT_EQ(place_of(panel.horizontal), (Numbers{x + space, band, w - 3 * space - slider, slider}));
    EXPECT_EQ(place_of(panel.list_box),
        (Numbers{x + space, band + slider + space, w - 3 * space - slider, height - slider - space}));
    EXPECT_EQ(panel.vertical.step, 18);
    EXPECT_EQ(panel.horizontal.step, 20);

    const int top = panel.list_box.y + panel.list_box.height, right = panel.list_box.x + panel.list_box.width;
    EXPECT_EQ(place_of(panel.top_zone), (Numbers{x, top - 10, w, y + h - top + 10}));
    EXPECT_EQ(place_of(panel.bottom_zone), (Numbers{x, y, w, panel.list_box.y - y}));
    EXPECT_EQ(place_of(panel.left_zone), (Numbers{x, y, 20, h}));
    EXPECT_EQ(place_of(panel.right_zone), (Numbers{right, y, x + w - right, h}));
}

TEST_F(DatabaseLayout, RangesBeforeTheFirstPaintAreFixed)
{
    Tool_DB_Class fresh;
    fresh.Resize(&area);
    EXPECT_EQ(fresh.vertical.state, 0x0C000004u);
    EXPECT_EQ(fresh.vertical.maximum, 100);
    EXPECT_EQ(fresh.horizontal.state, 0x08000000u);
    EXPECT_EQ(fresh.horizontal.maximum, 300);
}

TEST_F(DatabaseLayout, PanelsOwnBoxMayBeGiven)
{
    const Numbers before = place_of(panel.list_box);
    EXPECT_EQ(panel.Resize(&panel.box), 1);
    EXPECT_EQ(place_of(panel.list_box), before);
}

TEST_F(DatabaseLayout, TooSmallAPanelHasEmptyParts)
{
    lay_out(5, 5);
    for (const Tools* part : {static_cast<Tools*>(&panel.list_box), static_cast<Tools*>(&panel.vertical),
             static_cast<Tools*>(&panel.horizontal), static_cast<Tools*>(&panel.select_all)}) {
        EXPECT_GE(part->width, 0);
        EXPECT_GE(part->height, 0);
    }
    rebuild();
    EXPECT_EQ(lines(), (Numbers{0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(DatabaseLayout, RangesFollowTheContent)
{
    EXPECT_EQ(panel.vertical.state, 0x0C000027u) << "seven rows fit";
    add_series(20, 3);
    EXPECT_EQ(panel.vertical.state, 0x0C000004u);
    EXPECT_EQ(panel.vertical.maximum, static_cast<float>((panel.nb + 1) * 18 - panel.list_box.height));
    EXPECT_EQ(panel.horizontal.state, 0x08000023u);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    EXPECT_EQ(panel.horizontal.state, 0x08000000u);
    EXPECT_GT(panel.horizontal.maximum, 500);
}

TEST_F(DatabaseLayout, WidthIsThatOfTheWidestRow)
{
    // The same text in a folded part is measured as well: folding changes no range.
    add_image(series_a, std::string(80, 'm'));
    rebuild();
    const float wide = panel.horizontal.maximum;
    press(on_line(1, 1));
    EXPECT_EQ(lines()[2], 65535);
    EXPECT_EQ(panel.horizontal.maximum, wide);
}

TEST_F(DatabaseLayout, ConstructedPanelIsEmpty)
{
    Tool_DB_Class fresh;
    EXPECT_EQ(fresh.mode, 2);
    EXPECT_EQ(fresh.nb, 0);
    EXPECT_EQ(fresh.list_pt, nullptr);
    EXPECT_EQ(fresh.last_row, 0);
    EXPECT_EQ(fresh.select_all.width, 0);
    fresh.List_Free(&fresh);
    EXPECT_EQ(Tool_DB_Class(17).mode, 17);
}

TEST_F(DatabaseLayout, WithoutALayoutRowsAreMadeAndNumberedAllTheSame)
{
    Tool_DB_Class fresh;
    fresh.Update(0x502);
    ASSERT_EQ(fresh.nb, 7);
    EXPECT_EQ(fresh.list_pt[6].line, 6);
    EXPECT_EQ(fresh.list_pt[6].state, DB_List::leaf | DB_List::last_sibling);
    fresh.Draw();
    EXPECT_EQ(fresh.Click(left_press), 0);
    EXPECT_EQ(fresh.Motion(0), 0);
    EXPECT_EQ(fresh.Scroll(1), 0);
}

TEST_F(DatabaseLayout, CopiesShareTheRows)
{
    auto first = std::make_unique<Tool_DB_Class>(panel);
    EXPECT_EQ(first->list_pt, panel.list_pt);
    EXPECT_EQ(first->nb, 7);
    Tool_DB_Class second(18);
    second.Update(0x402);
    second = *first;
    EXPECT_EQ(second.mode, 2);
    EXPECT_EQ(second.list_pt, panel.list_pt);
    first.reset();
    panel.List_Free(&panel);
    EXPECT_EQ(panel.list_pt, nullptr);
    EXPECT_EQ(panel.nb, 0);
    ASSERT_EQ(second.nb, 7);
    EXPECT_STREQ(second.list_pt[2].name, "one") << "the last owner still has them";
    const Tool_DB_Class& same = second;
    second = same;
    EXPECT_EQ(second.nb, 7);
    rebuild();
    EXPECT_NE(panel.list_pt, second.list_pt);
    panel = second;
    EXPECT_EQ(panel.list_pt, second.list_pt);
}
