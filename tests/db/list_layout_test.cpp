#include "hostkit/structures/registry.h"
#include "tests/db/database_list.h"

#include <algorithm>
#include <cstring>
#include <random>

// Where the list's parts are, and what a copy shares.

using namespace test;
using hostkit::Variable;
using Numbers = std::vector<int>;

namespace {

Numbers place_of(const Tools& widget)
{
    return {widget.x, widget.y, widget.width, widget.height};
}

int text_width(const char* text, const char* weight)
{
    const HFONT font = Y_Create_Font(
        hostkit::String_Variable("$INTERFACE_TOOL_FONT_NAME"), Variable<short>("$INTERFACE_TOOL_FONT_SCALE"), weight);
    const HGDIOBJ before = SelectObject(Y_DC, font);
    std::vector<WCHAR> wide(std::strlen(text) + 1);
    const int length = MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), static_cast<int>(wide.size())) - 1;
    SIZE size{};
    GetTextExtentPoint32W(Y_DC, wide.data(), length, &size);
    SelectObject(Y_DC, before);
    DeleteObject(font);
    return size.cx;
}

class DatabaseLayout : public Database_List {
protected:
    /// The width of the widest row, text by text.
    int widest_row() const
    {
        int widest = 0;
        Y_setup(main_window(), "test");
        for (int i = 0; i < panel.nb; ++i) {
            int width = 2 * space + 20 * (row(i).level + 3);
            width += row(i).title ? text_width(row(i).title, "") + text_width(": ", "") : 0;
            width += row(i).name ? text_width(row(i).name, "bold") : 0;
            widest = std::max(widest, width);
        }
        Y_release();
        return widest;
    }

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
    EXPECT_EQ(panel.warning_message.state, 8448u);
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

TEST_F(DatabaseLayout, WarningsTitleIsAPointLargerThanTheInterface)
{
    const HFONT larger = Y_Create_Font(hostkit::String_Variable("$INTERFACE_TOOL_FONT_NAME"),
        static_cast<short>(Variable<short>("$INTERFACE_TOOL_FONT_SCALE") + 1),
        hostkit::String_Variable("$INTERFACE_TOOL_FONT_WEIGHT"));
    Y_setup(main_window(), "test");
    TEXTMETRICA expected{}, made{};
    const HGDIOBJ before = SelectObject(Y_DC, larger);
    GetTextMetricsA(Y_DC, &expected);
    SelectObject(Y_DC, panel.warning_title.font);
    GetTextMetricsA(Y_DC, &made);
    SelectObject(Y_DC, before);
    Y_release();
    EXPECT_EQ(made.tmHeight, expected.tmHeight);
    DeleteObject(larger);
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
    const int content = (panel.nb + 1) * 18;
    EXPECT_EQ(panel.vertical.maximum, static_cast<float>(content - panel.list_box.height));
    EXPECT_FLOAT_EQ(panel.vertical.thumb, static_cast<float>(panel.list_box.height) / static_cast<float>(content));
    EXPECT_EQ(panel.horizontal.state, 0x08000023u);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    EXPECT_EQ(panel.horizontal.state, 0x08000000u);
    EXPECT_GT(panel.horizontal.maximum, 500);
}

TEST_F(DatabaseLayout, EmptyListHasNothingToScrollAfterALayoutEither)
{
    hostkit::Tree_Reset();
    rebuild();
    lay_out(280, 240);
    EXPECT_EQ(panel.vertical.state, 0x0C000027u);
    EXPECT_EQ(panel.horizontal.state, 0x08000023u);
    point(main_window(), middle(panel.list_box));
    EXPECT_EQ(panel.Scroll(-2), 1);
    EXPECT_EQ(panel.vertical.value, 0);
}

TEST_F(DatabaseLayout, ContentThatFitsExactlyFits)
{
    const int height = 260 - panel.list_box.height + (panel.nb + 1) * 18;
    lay_out(300, height);
    EXPECT_EQ(panel.vertical.state, 0x0C000027u);
    lay_out(300, height - 1);
    EXPECT_EQ(panel.vertical.state, 0x0C000004u);
    EXPECT_EQ(panel.vertical.maximum, 1);
}

TEST_F(DatabaseLayout, WidthIsThatOfTheNewTexts)
{
    ASSERT_FALSE(panel.horizontal.Active());
    images[2]->Name_Set(std::string(80, 'm').c_str());
    rebuild(); // as many rows as before
    EXPECT_TRUE(panel.horizontal.Active());
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

TEST_F(DatabaseLayout, WidthIsThatOfTheTextsAsTheyAreDrawn)
{
    std::mt19937 random(3);
    const std::string parts[] = {"AV", "Ta", "W.", "LT", "m", "H", "ffi", "\u00e9", "\u0416", "Yo", "r,"};
    for (int round = 0; round < 30; ++round) {
        std::string name;
        for (int i = 0; i < 60; ++i)
            name += parts[random() % (round % 3 ? 7 : std::size(parts))];
        add_image(series_a, name);
    }
    rebuild();
    ASSERT_TRUE(panel.horizontal.Active());
    EXPECT_EQ(panel.horizontal.maximum, static_cast<float>(widest_row() + 2 * space - panel.list_box.width));
}

TEST_F(DatabaseLayout, WidthFollowsTheInterfacesSpacing)
{
    add_image(series_a, std::string(80, 'm'));
    rebuild();
    const float content = panel.horizontal.maximum + static_cast<float>(panel.list_box.width);
    Variable<short>("$INTERFACE_SPACE_DIM") = static_cast<short>(space + 5);
    lay_out();
    EXPECT_EQ(panel.horizontal.maximum + static_cast<float>(panel.list_box.width), content + 4 * 5);
}

TEST_F(DatabaseLayout, WidthOfTextsThatAreSetTighterIsTheirOwn)
{
    add_image(series_a, std::string(30, 'V') + std::string(30, 'A'));
    std::string tight;
    for (int i = 0; i < 30; ++i)
        tight += "AV";
    add_image(series_a, tight + ".");
    rebuild();
    ASSERT_TRUE(panel.horizontal.Active());
    EXPECT_EQ(panel.horizontal.maximum, static_cast<float>(widest_row() + 2 * space - panel.list_box.width));
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

TEST_F(DatabaseLayout, CopiesHaveEveryPart)
{
    panel.last_row = 4;
    panel.vertical.value = 7;
    panel.warning_message.Set_Name("text");
    const Tool_DB_Class copied(panel);
    Tool_DB_Class assigned(1);
    assigned = panel;
    for (const Tool_DB_Class* copy : {&copied, &static_cast<const Tool_DB_Class&>(assigned)}) {
        const auto parts = [](const Tool_DB_List& list) {
            return std::vector<const Tools*>{&list.box, &list.spare, &list.list_box, &list.top_zone, &list.bottom_zone,
                &list.left_zone, &list.right_zone, &list.warning_title, &list.warning_message, &list.vertical,
                &list.horizontal, &list.select_all, &list.select_none};
        };
        const auto of_copy = parts(*copy), of_panel = parts(panel);
        for (size_t i = 0; i < of_panel.size(); ++i) {
            EXPECT_EQ(place_of(*of_copy[i]), place_of(*of_panel[i])) << "part " << i;
            EXPECT_EQ(of_copy[i]->state, of_panel[i]->state) << "part " << i;
            EXPECT_STREQ(of_copy[i]->name.get(), of_panel[i]->name.get()) << "part " << i;
        }
        EXPECT_EQ(copy->vertical.value, 7);
        EXPECT_EQ(copy->mode, 2);
        EXPECT_EQ(copy->last_row, 4);
    }
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
