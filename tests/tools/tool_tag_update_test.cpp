#include "tests/tools/tag_panel_fixture.h"

#include <array>

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

TEST_F(TagPanel, UpdateTracesEveryCallOnce)
{
    Tool_Tag panel;
    panel.Update(0);
    lay_out(panel);
    panel.Update(current_tag);
    EXPECT_EQ(reports.all(), (std::vector<Report>{{16, "in Tool_Tag::Update()"}}));
}

TEST_F(TagPanel, UpdateSendsNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    panel.Update(~0ull);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, OtherBitsChangeNothing)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<unsigned short>("$TAG_CUR") = 3;
    set("$TAG_LOCK", 2, 1);
    set("$TAG_SELECT", 4, 0);
    Tag_Label_Set(5, "x");
    hostkit::Tag_Color_Set(6, {1, 2, 3});
    cover(main_window());
    panel.Update(~(current_tag | colours | locks | enables | selections | labels));
    EXPECT_TRUE(covered(main_window(), scrolled));
    EXPECT_EQ(panel.Read(), 0);
}

// ------------------------------------------------------------------------------------------------ current tag

TEST_F(TagPanel, TheCurrentTagIsMarked)
{
    Tool_Tag panel;
    lay_out(panel);
    Variable<unsigned short>("$TAG_CUR") = 5;
    panel.Update(current_tag);
    EXPECT_EQ(panel.Read(), 5);
    EXPECT_TRUE(shows(5, current(5)));
    Variable<unsigned short>("$TAG_CUR") = 6;
    panel.Update(current_tag);
    EXPECT_EQ(panel.Read(), 6);
    EXPECT_TRUE(shows(5, usual(5)));
    EXPECT_TRUE(shows(6, current(6)));
}

TEST_F(TagPanel, TagZeroIsMarkedToo)
{
    Tool_Tag panel;
    lay_out(panel);
    panel.Update(current_tag);
    EXPECT_TRUE(shows(0, current(0)));
}

TEST_F(TagPanel, OnlyTheButtonsWhoseMarkChangesAreDrawn)
{
    Tool_Tag panel;
    lay_out(panel);
    panel.Update(current_tag);
    cover(main_window());
    panel.Update(current_tag);
    EXPECT_TRUE(covered(main_window(), open)) << "nothing changed";
    Variable<unsigned short>("$TAG_CUR") = 5;
    panel.Update(current_tag);
    for (int tag = 0; tag < 16; ++tag)
        EXPECT_EQ(covered(main_window(), grid.button(tag)), tag != 0 && tag != 5) << "tag " << tag;
}

TEST_F(TagPanel, ACurrentTagWithoutAButtonIsReadAllTheSame)
{
    Tool_Tag panel;
    lay_out(panel);
    Variable<unsigned short>("$TAG_CUR") = 300;
    panel.Update(current_tag);
    EXPECT_EQ(panel.Read(), 300);
    EXPECT_TRUE(shows(0, usual(0)));
}

// ------------------------------------------------------------------------------------------------ greys, marks

TEST_F(TagPanel, WithUsualOptionsLockedOrUnselectedTagsAreGreyed)
{
    // What each word leaves for {selected, locked}: the block that runs last decides.
    struct Case {
        unsigned char selected;
        unsigned char locked;
        bool after_selections;
        bool after_locks;
        bool after_both;
    };
    constexpr std::array cases{Case{1, 0, false, false, false}, Case{1, 1, false, true, true},
        Case{0, 0, true, false, false}, Case{0, 1, true, true, true}};
    for (const Case& one : cases) {
        Tool_Tag panel;
        lay_out(panel);
        set("$TAG_SELECT", 5, one.selected);
        set("$TAG_LOCK", 5, one.locked);
        const auto grey_after = [&](unsigned long long flags) {
            panel.Update(flags);
            const bool grey = shows(5, greyed(5));
            EXPECT_NE(grey, shows(5, usual(5)));
            EXPECT_EQ(click_on(panel, 5), grey ? -1 : 5);
            leave(panel);
            return grey;
        };
        EXPECT_EQ(grey_after(selections), one.after_selections);
        EXPECT_EQ(grey_after(locks), one.after_locks);
        EXPECT_EQ(grey_after(selections), one.after_selections);
        EXPECT_EQ(grey_after(selections | locks), one.after_both);
        EXPECT_TRUE(shows(6, usual(6)));
    }
}

TEST_F(TagPanel, AnyNonZeroByteCounts)
{
    Tool_Tag panel;
    lay_out(panel);
    set("$TAG_SELECT", 5, 0x80);
    set("$TAG_LOCK", 6, 0x40);
    panel.Update(selections);
    EXPECT_TRUE(shows(5, usual(5)));
    panel.Update(locks);
    EXPECT_TRUE(shows(6, greyed(6)));
}

TEST_F(TagPanel, WithUsualOptionsEnablesAndMarksAreNotShown)
{
    Tool_Tag panel;
    lay_out(panel, open, 66 | 0x100000);
    set("$TAG_ENABLE", 5, 0);
    cover(main_window());
    panel.Update(enables);
    panel.Update(enables | selections | locks);
    EXPECT_TRUE(covered(main_window(), open));
    panel.Draw();
    EXPECT_TRUE(shows(5, usual(5)));
}

struct Option_Case {
    unsigned short option;
    const char* array;
    unsigned long long flag;
    bool greys;
    unsigned char grey_value;
};

TEST_F(TagPanel, EachOptionShowsItsOwnState)
{
    const Option_Case cases[] = {{1, "$TAG_SELECT", selections, false, 0}, {16, "$TAG_LOCK", locks, false, 0},
        {256, "$TAG_ENABLE", enables, false, 0}, {32, "$TAG_SELECT", selections, true, 0},
        {32, "$TAG_LOCK", locks, true, 1}, {512, "$TAG_ENABLE", enables, true, 0}};
    for (const Option_Case& one : cases) {
        hostkit::Segmentation_Reset();
        for (const char* name : {"$TAG_SELECT", "$TAG_LOCK", "$TAG_ENABLE"}) {
            for (int tag = 0; tag < 16; ++tag)
                set(name, tag, one.greys ? !one.grey_value : 0);
        }
        Tool_Tag panel(one.option);
        lay_out(panel, open, 66 | 0x100000);
        set(one.array, 5, one.greys ? one.grey_value : 1);
        for (const auto other : {selections, locks, enables}) {
            if (other != one.flag && one.option != 32)
                panel.Update(other);
        }
        EXPECT_TRUE(shows(5, usual(5))) << one.option << one.array;
        panel.Update(one.flag);
        EXPECT_TRUE(shows(5, one.greys ? greyed(5) : pressed(5))) << one.option << one.array;
        EXPECT_TRUE(shows(6, usual(6))) << one.option << one.array;
        set(one.array, 5, one.greys ? !one.grey_value : 0);
        panel.Update(one.flag);
        EXPECT_TRUE(shows(5, usual(5))) << one.option << one.array;
    }
}

TEST_F(TagPanel, MarksOfTwoOptionsFollowTheBlockThatRunsLast)
{
    Tool_Tag panel(1 | 16 | 256);
    lay_out(panel, open, 66 | 0x100000);
    set("$TAG_ENABLE", 5, 1);
    set("$TAG_SELECT", 5, 0);
    panel.Update(enables | selections);
    EXPECT_TRUE(shows(5, usual(5))) << "enables first, then selections";
    set("$TAG_ENABLE", 5, 0);
    set("$TAG_SELECT", 5, 1);
    panel.Update(enables | selections);
    EXPECT_TRUE(shows(5, pressed(5)));
    set("$TAG_LOCK", 5, 0);
    panel.Update(selections | locks);
    EXPECT_TRUE(shows(5, usual(5))) << "locks last";
}

TEST_F(TagPanel, WithoutOptionsNoStateIsShown)
{
    Tool_Tag panel(0);
    lay_out(panel, open, 66 | 0x100000);
    set("$TAG_ENABLE", 5, 0);
    set("$TAG_SELECT", 5, 0);
    set("$TAG_LOCK", 5, 1);
    cover(main_window());
    panel.Update(enables | selections | locks);
    EXPECT_TRUE(covered(main_window(), open));
    panel.Draw();
    EXPECT_TRUE(shows(5, usual(5)));
}

TEST_F(TagPanel, AnUnchangedStateDrawsNothing)
{
    Tool_Tag panel(1 | 16 | 32 | 256 | 512);
    lay_out(panel);
    set("$TAG_LOCK", 5, 1);
    panel.Update(selections);
    panel.Update(locks);
    panel.Update(enables);
    panel.Update(locks);
    cover(main_window());
    panel.Update(locks);
    EXPECT_TRUE(covered(main_window(), open));
}

TEST_F(TagPanel, AChangedGreyDrawsTheVisibleTagsOnly)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    set("$TAG_LOCK", 15, 1); // out of sight
    cover(main_window());
    panel.Update(locks);
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
    EXPECT_TRUE(covered(main_window(), {0, 0, 480, scrolled.y + 4})) << "rows below";
    EXPECT_TRUE(covered(main_window(), grid.slider));
    panel.Scroll(-5);
    grid.offset = 0;
    EXPECT_TRUE(shows(15, greyed(15)));
}

TEST_F(TagPanel, AGreyDuringAnEditKeepsTheEditorAndShowsAfterwards)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    set("$TAG_LOCK", 6, 1);
    panel.Update(locks);
    EXPECT_EQ(panel.Keyboard('x'), 1);
    leave(panel);
    EXPECT_TRUE(shows(6, greyed(6)));
    EXPECT_EQ(click_on(panel, 6), -1);
}

TEST_F(TagPanel, AnUngreyDuringAnEditKeepsTheButtonHidden)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    set("$TAG_LOCK", 6, 1);
    panel.Update(locks);
    set("$TAG_LOCK", 6, 0);
    panel.Update(locks);
    cover(main_window());
    panel.Draw();
    EXPECT_EQ(pixel(main_window(), place_of(6)), back) << "the editor lies there";
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(click_on(panel, 6), 6);
}
