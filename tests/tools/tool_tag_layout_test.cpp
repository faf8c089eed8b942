#include "tests/tools/tag_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace {

int clicked(Tool_Tag& panel, HWND window, Place place)
{
    point(window, place);
    return panel.Click(left_press);
}

}

TEST_F(TagPanel, WantsTwoBordersFivePixelsAndItsRows)
{
    Tool_Tag panel;
    EXPECT_EQ(panel.Height(0), 9);
    EXPECT_EQ(panel.Height(4), 97);
    EXPECT_EQ(panel.Height(64), 9 + 64 * 22);
    EXPECT_TRUE(reports.all().empty()) << "Height is no traced event";
}

TEST_F(TagPanel, HeightFollowsBorderAndButtonButNoOtherDimension)
{
    Tool_Tag panel;
    Variable<short>("$INTERFACE_BORDER_DIM") = 3;
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 31;
    EXPECT_EQ(panel.Height(2), 6 + 5 + 2 * 34);
    Variable<short>("$INTERFACE_SPACE_DIM") = 50;
    Variable<short>("$INTERFACE_CURSOR_DIM") = 50;
    EXPECT_EQ(panel.Height(2), 6 + 5 + 2 * 34);
}

TEST_F(TagPanel, ResizeTracesWidthAndHeight)
{
    Tool_Tag panel;
    lay_out(panel);
    panel.Resize(&area);
    ASSERT_EQ(reports.all().size(), 1u);
    EXPECT_EQ(reports.all()[0], (Report{16, "in Tool_Tag::Resize(dim=408x97)"}));
}

TEST_F(TagPanel, DrawTracesOnce)
{
    Tool_Tag panel;
    lay_out(panel);
    panel.Draw();
    ASSERT_EQ(reports.all().size(), 1u);
    EXPECT_EQ(reports.all()[0], (Report{16, "in Tool_Tag::Draw()"}));
}

TEST_F(TagPanel, EveryTagAnswersInItsOwnRectangle)
{
    Tool_Tag panel;
    lay_out(panel);
    ASSERT_FALSE(grid.scrolled);
    EXPECT_EQ(grid.button(15), (Extent{314, 24, 100, 22}));
    EXPECT_EQ(grid.button(12), (Extent{14, 24, 100, 22}));
    EXPECT_EQ(grid.button(0), (Extent{14, 90, 100, 22}));
    for (int tag = 0; tag < 16; ++tag) {
        EXPECT_EQ(click_on(panel, tag), tag);
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    }
}

TEST_F(TagPanel, DrawsEveryTagWithItsColourAndNumber)
{
    Tool_Tag panel;
    lay_out(panel);
    for (int tag = 0; tag < 16; ++tag)
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
}

TEST_F(TagPanel, DrawsItsBoxFilledAndFramed)
{
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_EQ(pixel(main_window(), {10, 20}), frame);
    EXPECT_EQ(pixel(main_window(), {10 + 407, 20 + 96}), frame);
    EXPECT_EQ(pixel(main_window(), {12, 22}), back);
    EXPECT_EQ(pixel(main_window(), {10 + 405, 22}), back);
}

TEST_F(TagPanel, DrawsNothingOutsideItsArea)
{
    Tool_Tag panel;
    lay_out(panel);
    cover(main_window());
    panel.Draw();
    EXPECT_TRUE(covered(main_window(), {0, 0, 10, 300}));
    EXPECT_TRUE(covered(main_window(), {418, 0, 60, 300}));
    EXPECT_TRUE(covered(main_window(), {0, 0, 480, 20}));
    EXPECT_TRUE(covered(main_window(), {0, 117, 480, 60}));
}

TEST_F(TagPanel, ADrawnPanelShowsOnlyTheRowsOfItsBand)
{
    Tool_Tag panel;
    cover(main_window());
    lay_out(panel, scrolled);
    for (int tag = 0; tag < 16; ++tag)
        EXPECT_EQ(grid.visible(tag), tag < 8) << "tag " << tag;
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
    EXPECT_TRUE(covered(main_window(), {0, 0, 480, 20})) << "rows below the band";
}

TEST_F(TagPanel, StartsScrolledToTheHighestRow)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    ASSERT_TRUE(grid.scrolled);
    EXPECT_EQ(grid.offset, 35);
    EXPECT_TRUE(shows_slider(35));
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    EXPECT_EQ(clicked(panel, main_window(), {grid.list.x + 10, grid.list.y + 1}), -1) << "half a row takes nothing";
}

TEST_F(TagPanel, ItsWantedHeightNeedsNoSlider)
{
    Tool_Tag panel;
    for (const int count : {4, 16, 64, 128}) {
        Variable<unsigned short>("$TAG_NB") = static_cast<unsigned short>(count);
        const int height = panel.Height(static_cast<unsigned short>(count / 4));
        if (height > 700)
            continue;
        lay_out(panel, {0, 0, 408, height});
        EXPECT_FALSE(grid.scrolled);
        EXPECT_EQ(click_on(panel, 0), 0) << count;
        EXPECT_EQ(click_on(panel, count - 1), count - 1);
        EXPECT_EQ(grid.list.x, 4);
        lay_out(panel, {0, 0, 408, height - 2});
        EXPECT_TRUE(grid.scrolled) << count;
        EXPECT_EQ(clicked(panel, main_window(), {4 + 17, height - 14}), -1) << "the slider's column, " << count;
    }
}

TEST_F(TagPanel, AThickFrameHidesTheHighestRowWithoutASlider)
{
    Tool_Tag panel;
    lay_out(panel, open, 66, 5); // test height 89, list height 83, content 88
    EXPECT_FALSE(grid.scrolled);
    EXPECT_EQ(grid.list, (Extent{17, 27, 394, 83}));
    EXPECT_EQ(click_on(panel, 0), -1);
    EXPECT_EQ(click_on(panel, 4), 4);
    EXPECT_EQ(hit_area(panel, place_of(15)), grid.button(15));
    EXPECT_EQ(grid.button(15).width, 98);
}

TEST_F(TagPanel, AThinFrameShowsASliderWithoutRange)
{
    Tool_Tag panel;
    lay_out(panel, {10, 20, 424, 95}, 66, 0); // test height 87, list height 91, content 88
    EXPECT_TRUE(grid.scrolled);
    EXPECT_EQ(grid.offset, -3);
    EXPECT_TRUE(shows_slider(-3));
    EXPECT_EQ(grid.button(15), (Extent{332, 25, 100, 22}));
    for (const int tag : {0, 3, 12, 15})
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    press_slider_bottom(panel);
    EXPECT_EQ(hit_area(panel, place_of(15)), grid.button(15)) << "such a slider takes nothing";
}

TEST_F(TagPanel, RoundsTheButtonWidthDown)
{
    Tool_Tag panel;
    lay_out(panel, {10, 20, 411, 97});
    EXPECT_EQ(grid.list.width, 403);
    EXPECT_EQ(hit_area(panel, place_of(3)), (Extent{314, 90, 100, 22}));
    EXPECT_EQ(clicked(panel, main_window(), {414, 95}), -1);
}

TEST_F(TagPanel, FollowsTheInterfaceDimensionsAtEveryLayout)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<short>("$INTERFACE_SPACE_DIM") = 9;
    Variable<short>("$INTERFACE_CURSOR_DIM") = 25;
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 27;
    Variable<short>("$INTERFACE_BORDER_DIM") = 3;
    lay_out(panel, {30, 40, 454, 100});
    EXPECT_EQ(grid.list, (Extent{68, 44, 412, 92}));
    EXPECT_EQ(grid.pitch, 30);
    for (const int tag : {0, 3, 5, 8})
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
}

TEST_F(TagPanel, HasPlaceForTwoHundredAndFiftySixTags)
{
    Variable<unsigned short>("$TAG_NB") = 256;
    Tool_Tag panel;
    lay_out(panel, {10, 20, 428, 239});
    EXPECT_EQ(grid.offset, 64 * 22 - 231);
    for (const int tag : {0, 3, 17, 39})
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    press_slider_bottom(panel);
    grid.offset = 0;
    for (const int tag : {252, 255, 220})
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
}

TEST_F(TagPanel, TagsBeyondTwoHundredAndFiftySixHaveNoButton)
{
    Variable<unsigned short>("$TAG_NB") = 400;
    Tool_Tag panel;
    lay_out(panel, {10, 20, 428, 239});
    for (int y = 24; y < 255; y += 11)
        EXPECT_LT(clicked(panel, main_window(), {60, y}), 256);
    panel.Scroll(-1000);
    for (int y = 24; y < 255; y += 11)
        EXPECT_LT(clicked(panel, main_window(), {60, y}), 256);
}

TEST_F(TagPanel, BelowFourTagsThereAreNoRows)
{
    for (const int count : {0, 1, 2, 3}) {
        Variable<unsigned short>("$TAG_NB") = static_cast<unsigned short>(count);
        Tool_Tag panel;
        lay_out(panel);
        cover(main_window());
        panel.Draw();
        EXPECT_EQ(pixel(main_window(), {20, 30}), back) << count;
        for (int y = 0; y < 140; y += 7) {
            for (int x = 0; x < 430; x += 23) {
                EXPECT_EQ(clicked(panel, main_window(), {x, y}), -1) << x << ' ' << y;
                EXPECT_EQ(panel.Click(right_press), -1);
            }
        }
        EXPECT_EQ(panel.Keyboard('a'), 0) << "no editor was opened";
    }
}

TEST_F(TagPanel, TagsWithoutAPlaceAreNeverDrawnHitOrEdited)
{
    Tool_Tag panel;
    lay_out(panel); // leaves rectangles behind
    Variable<unsigned short>("$TAG_NB") = 6;
    lay_out(panel, {10, 20, 408, 60});
    for (int tag = 2; tag < 6; ++tag)
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    for (int y = 0; y < 140; y += 5) {
        for (int x = 0; x < 430; x += 17)
            EXPECT_NE(clicked(panel, main_window(), {x, y}) & ~1, 0) << x << ' ' << y;
    }
    leave(panel);
    panel.Draw();
    EXPECT_EQ(pixel(main_window(), {60, 60}), back);
}

TEST_F(TagPanel, ColoursAreTheHighBytes)
{
    Array_Variable<unsigned short>("$TAG_RED")[5] = 0x12ff;
    Array_Variable<unsigned short>("$TAG_GRN")[5] = 0x34fe;
    Array_Variable<unsigned short>("$TAG_BLU")[5] = 0x5680;
    Tool_Tag panel;
    lay_out(panel);
    Row_Look look = usual(5);
    look.color = {0x12, 0x34, 0x56};
    EXPECT_TRUE(shows(5, look));
}

TEST_F(TagPanel, TagZeroIsGreyWhateverTheColoursSay)
{
    hostkit::Tag_Color_Set(0, {0xff, 0, 0});
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_TRUE(shows(0, {"0", {170, 170, 170}}));
}

TEST_F(TagPanel, AMissingColourArrayLeavesTheColoursAsTheyWere)
{
    for (const char* name : {"$TAG_RED", "$TAG_GRN", "$TAG_BLU"}) {
        hostkit::Segmentation_Reset();
        Tool_Tag panel;
        lay_out(panel);
        const Row_Look before = usual(7);
        hostkit::Tag_Color_Set(7, {1, 2, 3});
        Array_Variable<unsigned short>(name) = nullptr;
        lay_out(panel);
        EXPECT_TRUE(shows(7, before)) << name;
    }
}

TEST_F(TagPanel, CaptionsAreNamesOrElseNumbers)
{
    ASSERT_TRUE(hostkit::Tag_Label_Set(6, "Vertebra L3"));
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_TRUE(shows(6, {"Vertebra L3", hostkit::Tag_Color(6)}));
    EXPECT_TRUE(shows(11, {"11", hostkit::Tag_Color(11)}));
    EXPECT_EQ(caption_of(panel, 6), "Vertebra L3");
    EXPECT_EQ(caption_of(panel, 11), "11");
}

TEST_F(TagPanel, WithoutANameArrayCaptionsAreNumbers)
{
    ASSERT_TRUE(hostkit::Tag_Label_Set(6, "Vertebra L3"));
    char**& labels = Array_Variable<char*>("$TAG_LABEL");
    char** const kept = labels;
    labels = nullptr;
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_TRUE(shows(6, {"6", hostkit::Tag_Color(6)}));
    labels = kept;
}

TEST_F(TagPanel, TakesTheColoursAndTheFontOfItsArea)
{
    const HFONT font = Y_Create_Font(nullptr, 13, "bold");
    area.font = font;
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_TRUE(shows(10, usual(10)));
    area.font = nullptr;
    EXPECT_FALSE(shows(10, usual(10))) << "the comparison sees fonts";
    DeleteObject(font);
}

TEST_F(TagPanel, ShowsOnOffMarksWhereTheAreaAsksForThem)
{
    Tool_Tag panel(Tool_Tag::marks_selected);
    lay_out(panel, open, 66);
    const auto without = picture(main_window(), grid.button(3));
    lay_out(panel, open, 66 | 0x100000);
    panel.Update(bit(46));
    EXPECT_TRUE(shows(3, pressed(3)));
    EXPECT_NE(picture(main_window(), grid.button(3)), without);
}

TEST_F(TagPanel, ALayoutForgetsGreysButNoMarks)
{
    Array_Variable<unsigned char>("$TAG_LOCK")[2] = 1;
    Variable<unsigned short>("$TAG_CUR") = 9;
    Tool_Tag panel;
    lay_out(panel);
    panel.Update(bit(44) | bit(22));
    EXPECT_TRUE(shows(2, greyed(2)));
    lay_out(panel);
    EXPECT_TRUE(shows(2, usual(2)));
    EXPECT_TRUE(shows(9, current(9)));
}

TEST_F(TagPanel, WithoutInterfaceDimensionsNothingBreaks)
{
    for (const char* name :
        {"$INTERFACE_SPACE_DIM", "$INTERFACE_BORDER_DIM", "$INTERFACE_CURSOR_DIM", "$INTERFACE_BUTTON_DIM_SML"})
        Variable<short>(name) = 0;
    Tool_Tag panel;
    EXPECT_EQ(panel.Height(3), 5);
    lay_out(panel);
    EXPECT_EQ(clicked(panel, main_window(), {60, 30}), -1);
}

TEST_F(TagPanel, AnEmptyAreaBreaksNothing)
{
    Tool_Tag panel;
    for (const Extent place : {Extent{}, Extent{10, 10, 3, 2}, Extent{0, 0, 12, 400}}) {
        lay_out(panel, place);
        EXPECT_EQ(clicked(panel, main_window(), {500, 500}), -1);
        EXPECT_EQ(panel.Motion(0), 0);
        EXPECT_EQ(panel.Scroll(1), 1);
        panel.Update(~0ull);
        panel.Leave();
    }
}
