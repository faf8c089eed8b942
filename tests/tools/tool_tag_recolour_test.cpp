#include "tests/tools/tag_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Tag_Label_Set;
using hostkit::Variable;

namespace {

constexpr auto current_tag = bit(22);
constexpr auto colours = bit(38);
constexpr auto locks = bit(44);
constexpr auto enables = bit(45);
constexpr auto selections = bit(46);
constexpr auto labels = bit(47);

void set(const char* name, int tag, unsigned char value)
{
    Array_Variable<unsigned char>(name)[tag] = value;
}

}

TEST_F(TagPanel, ChangedNamesAreShown)
{
    Tag_Label_Set(4, "Old");
    Tool_Tag panel;
    lay_out(panel);
    Tag_Label_Set(4, nullptr);
    Tag_Label_Set(5, "Spleen");
    panel.Update(labels);
    EXPECT_TRUE(shows(4, {"4", hostkit::Tag_Color(4)}));
    EXPECT_TRUE(shows(5, {"Spleen", hostkit::Tag_Color(5)}));
    EXPECT_EQ(caption_of(panel, 4), "4");
}

TEST_F(TagPanel, UnchangedNamesDrawNothing)
{
    Tag_Label_Set(4, "Same");
    Tool_Tag panel;
    lay_out(panel);
    Tag_Label_Set(4, "Same"); // another address
    cover(main_window());
    panel.Update(labels);
    EXPECT_TRUE(covered(main_window(), open));
}

TEST_F(TagPanel, ChangedColoursAreShown)
{
    Tool_Tag panel;
    lay_out(panel);
    hostkit::Tag_Color_Set(5, {0x12, 0x34, 0x56});
    hostkit::Tag_Color_Set(0, {0x12, 0x34, 0x56});
    panel.Update(colours);
    EXPECT_TRUE(shows(5, {"5", {0x12, 0x34, 0x56}}));
    EXPECT_TRUE(shows(0, {"0", {170, 170, 170}}));
}

TEST_F(TagPanel, ColourWordsBelowTheHighByteAreNoChange)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Array_Variable<unsigned short>("$TAG_GRN")[5] |= 0x7f;
    cover(main_window());
    panel.Update(colours);
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_TRUE(covered(main_window(), grid.button(tag))) << "tag " << tag;
    EXPECT_TRUE(shows_slider(35)) << "the slider is drawn always";
}

TEST_F(TagPanel, AColourChangeScrollsBackToTheStart)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    panel.Scroll(-5);
    panel.Update(colours);
    leave(panel);
    EXPECT_TRUE(shows_slider(35));
    for (int tag = 0; tag < 8; ++tag) {
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    }
}

TEST_F(TagPanel, AColourChangeKeepsGreysAndMarks)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    set("$TAG_LOCK", 5, 1);
    Variable<unsigned short>("$TAG_CUR") = 6;
    panel.Update(locks | current_tag);
    panel.Scroll(-1);
    panel.Update(colours);
    EXPECT_TRUE(shows(5, greyed(5)));
    EXPECT_TRUE(shows(6, current(6)));
}

TEST_F(TagPanel, AColourChangeLaysACountThatShrankOutAgain)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<unsigned short>("$TAG_NB") = 8;
    panel.Update(colours);
    grid = grid_of(area, 8);
    ASSERT_FALSE(grid.scrolled);
    leave(panel);
    for (int tag = 0; tag < 8; ++tag) {
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    }
    leave(panel);
    EXPECT_EQ(panel.Scroll(-5), 1);
    EXPECT_EQ(click_on(panel, 7), 7) << "no slider is left";
}

TEST_F(TagPanel, AColourChangeLaysACountThatGrewOutAgain)
{
    Variable<unsigned short>("$TAG_NB") = 8;
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<unsigned short>("$TAG_NB") = 16;
    panel.Update(colours);
    grid = grid_of(area, 16);
    ASSERT_TRUE(grid.scrolled);
    EXPECT_TRUE(shows_slider(35));
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    press_slider_bottom(panel);
    grid.offset = 0;
    EXPECT_EQ(click_on(panel, 15), 15);
}

TEST_F(TagPanel, AnEditorFollowsTheColumnsNewWidth)
{
    Variable<unsigned short>("$TAG_NB") = 8;
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<unsigned short>("$TAG_NB") = 16;
    panel.Update(colours);
    grid = grid_of(area, 16);
    click_on(panel, 6, right_press);
    EXPECT_TRUE(shows_editor(6, "6"));
}

TEST_F(TagPanel, AColourChangeKeepsTheFrameWidthOfTheArea)
{
    Tool_Tag panel;
    lay_out(panel, {10, 20, 428, 70}, 66, 7);
    panel.Scroll(-1);
    panel.Update(colours);
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_EQ(click_on(panel, tag), grid.visible(tag) ? tag : -1);
    EXPECT_EQ(hit_area(panel, place_of(5)), grid.button(5));
}

// ------------------------------------------------------------------------------------------ missing variables

TEST_F(TagPanel, AMissingArrayEndsTheUpdateBeforeLaterBlocks)
{
    struct Case {
        const char* array;
        unsigned long long flag;
    };
    const Case in_order[] = {{"$TAG_ENABLE", enables}, {"$TAG_SELECT", selections}, {"$TAG_LOCK", locks}};
    for (const Case& missing : in_order) {
        hostkit::Segmentation_Reset();
        Tool_Tag panel;
        lay_out(panel);
        Variable<unsigned short>("$TAG_CUR") = 5;
        Array_Variable<unsigned char>(missing.array) = nullptr;
        cover(main_window());
        panel.Update(missing.flag | current_tag | labels | colours);
        EXPECT_EQ(panel.Read(), 0) << missing.array;
        EXPECT_TRUE(covered(main_window(), open)) << missing.array;
        panel.Update(current_tag);
        EXPECT_EQ(panel.Read(), 5) << "a block that does not need it";
    }
}

TEST_F(TagPanel, BlocksBeforeAMissingArrayCountButAreNotDrawn)
{
    Tool_Tag panel;
    lay_out(panel);
    set("$TAG_SELECT", 5, 0);
    Variable<unsigned short>("$TAG_CUR") = 6;
    unsigned char* const kept = std::exchange(Array_Variable<unsigned char>("$TAG_LOCK"), nullptr);
    cover(main_window());
    panel.Update(selections | locks | current_tag);
    EXPECT_TRUE(covered(main_window(), open));
    EXPECT_EQ(panel.Read(), 0) << "a later block";
    panel.Draw();
    EXPECT_TRUE(shows(5, greyed(5))) << "an earlier block";
    Array_Variable<unsigned char>("$TAG_LOCK") = kept;
}

TEST_F(TagPanel, MissingNamesEndTheUpdateAfterTheCurrentTag)
{
    Tool_Tag panel;
    lay_out(panel);
    Variable<unsigned short>("$TAG_CUR") = 6;
    hostkit::Tag_Color_Set(5, {1, 2, 3});
    char** const kept = std::exchange(Array_Variable<char*>("$TAG_LABEL"), nullptr);
    cover(main_window());
    panel.Update(current_tag | labels | colours);
    EXPECT_EQ(panel.Read(), 6);
    EXPECT_TRUE(covered(main_window(), open));
    panel.Draw();
    EXPECT_FALSE(shows(5, usual(5))) << "colours come later";
    EXPECT_TRUE(shows(6, current(6)));
    Array_Variable<char*>("$TAG_LABEL") = kept;
}

TEST_F(TagPanel, AMissingColourArrayEndsTheUpdate)
{
    for (const char* name : {"$TAG_RED", "$TAG_GRN", "$TAG_BLU"}) {
        hostkit::Segmentation_Reset();
        Tool_Tag panel;
        lay_out(panel, scrolled);
        panel.Scroll(-5);
        Array_Variable<unsigned short>(name) = nullptr;
        Variable<unsigned short>("$TAG_CUR") = 15;
        cover(main_window());
        panel.Update(colours | current_tag);
        EXPECT_TRUE(covered(main_window(), scrolled)) << name;
        EXPECT_EQ(panel.Read(), 15);
        grid.offset = 0;
        EXPECT_EQ(click_on(panel, 15), 15) << "not laid out again";
    }
}
