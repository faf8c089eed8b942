#include "hostkit/gadgets/text_editing.h"
#include "tests/tools/tag_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Tag_Label;
using hostkit::Tag_Label_Set;
using hostkit::Variable;

namespace {

constexpr int enter = 13;
constexpr int escape = 27;
constexpr int backspace = 8;
constexpr unsigned long long labels_changed = 0x800000000000ull;

std::string label(unsigned tag)
{
    return Tag_Label(tag) ? Tag_Label(tag) : "(none)";
}

void erase(Tool_Tag& panel, int letters)
{
    for (int i = 0; i < letters; ++i)
        panel.Keyboard(backspace);
}

}

TEST_F(TagPanel, ARightPressOpensAnEditorOverTheTag)
{
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_EQ(click_on(panel, 6, right_press), -1);
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_TRUE(shows_editor(6, "6"));
    EXPECT_EQ(panel.Keyboard('a'), 1);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, TheEditorTakesTheAreasFont)
{
    area.font = Y_Create_Font(nullptr, 13, "bold");
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    EXPECT_TRUE(shows_editor(6, "6"));
    panel.Leave();
    DeleteObject(area.font);
}

TEST_F(TagPanel, TheEditorStartsWithThePresentCaption)
{
    Tag_Label_Set(9, "Aorta");
    Tool_Tag panel;
    lay_out(panel, scrolled);
    panel.Scroll(-5);
    grid.offset = 0;
    click_on(panel, 9, right_press);
    EXPECT_TRUE(shows_editor(9, "Aorta"));
}

TEST_F(TagPanel, RightPressOnTagZeroStartsNoEdit)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 5);
    EXPECT_EQ(click_on(panel, 0, right_press), 0);
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(TagPanel, ARightPressBesideTheTagsEditsNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_EQ(click_at(panel, {5, 5}, right_press), -1);
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(TagPanel, ARightPressOnTheSliderScrolls)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    EXPECT_EQ(click_at(panel, {grid.slider.x + 2, grid.slider.y}, right_press), -1);
    grid.offset = 0;
    EXPECT_EQ(click_on(panel, 15), 15);
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(TagPanel, EnterStoresTheNameAndTellsEverybody)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    erase(panel, 1);
    type(panel, "Liver");
    EXPECT_EQ(label(6), "(none)");
    reports.clear();
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_EQ(label(6), "Liver");
    EXPECT_EQ(broadcasts(), std::vector{labels_changed});
    EXPECT_EQ(reports.all(), (std::vector<Report>{{16, "in Tool_Tag::Keyboard(key=0x0000000d)"}}));
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(panel.Keyboard('x'), 0) << "the editor is closed";
    EXPECT_EQ(click_on(panel, 6), 6) << "the button is alive again";
}

TEST_F(TagPanel, ANewNameReplacesTheOldOne)
{
    Tag_Label_Set(6, "Old");
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, " and new");
    panel.Keyboard(enter);
    EXPECT_EQ(label(6), "Old and new");
    EXPECT_EQ(label(5), "(none)");
    EXPECT_EQ(label(7), "(none)");
}

TEST_F(TagPanel, KeysAreUsedOnlyWhileEditing)
{
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_EQ(panel.Keyboard('a'), 0);
    EXPECT_EQ(panel.Keyboard(enter), 0);
    EXPECT_EQ(reports.all(), (std::vector<Report>{{16, "in Tool_Tag::Keyboard(key=0x00000061)"},
                                 {16, "in Tool_Tag::Keyboard(key=0x0000000d)"}}));
    EXPECT_TRUE(broadcasts().empty());
    click_on(panel, 6, right_press);
    for (const int key : {static_cast<int>('a'), 2085, 2087, 2094, backspace})
        EXPECT_EQ(panel.Keyboard(key), 1) << key;
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, TakesTheLowSixteenBitsOfAKey)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    EXPECT_EQ(panel.Keyboard(0x70000 | 'b'), 1);
    EXPECT_EQ(panel.Keyboard(0x10000 | enter), 1);
    EXPECT_EQ(label(6), "6b");
    EXPECT_EQ(traces().back(), "in Tool_Tag::Keyboard(key=0x0001000d)");
}

TEST_F(TagPanel, AnEmptyNameKeepsTheOldOne)
{
    Tag_Label_Set(6, "Old");
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    erase(panel, 3);
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_EQ(label(6), "Old");
    EXPECT_EQ(broadcasts(), std::vector{labels_changed});
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(TagPanel, EscapeKeepsTheOldNameAndClosesTheEditor)
{
    Tag_Label_Set(6, "Old");
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "er");
    EXPECT_EQ(panel.Keyboard(escape), 1);
    EXPECT_EQ(label(6), "Old");
    EXPECT_EQ(broadcasts(), std::vector{labels_changed});
    EXPECT_EQ(panel.Keyboard('x'), 0);
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
}

TEST_F(TagPanel, EscapeNamesNoUnnamedTag)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    panel.Keyboard(escape);
    EXPECT_EQ(label(6), "(none)");
}

TEST_F(TagPanel, ConfirmingAnUnchangedNumberStoresIt)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 7, right_press);
    panel.Keyboard(enter);
    EXPECT_EQ(label(7), "7");
}

TEST_F(TagPanel, ALongNameIsStoredWholeAndShownCutToThirtyNineBytes)
{
    const std::string long_name(45, 'i');
    Tool_Tag panel;
    lay_out(panel, {10, 20, 788, 97});
    click_on(panel, 6, right_press);
    erase(panel, 1);
    type(panel, long_name);
    panel.Keyboard(enter);
    EXPECT_EQ(label(6), long_name);
    leave(panel);
    Row_Look look = usual(6);
    EXPECT_FALSE(shows(6, look)) << "45 letters would fit";
    look.caption.resize(39);
    EXPECT_TRUE(shows(6, look));
    EXPECT_EQ(caption_of(panel, 6), long_name.substr(0, 39));

    panel.Update(labels_changed);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(caption_of(panel, 6), long_name);
}

TEST_F(TagPanel, ACutNameConfirmedAgainIsStoredCut)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, std::string(45, 'n'));
    panel.Keyboard(enter);
    click_on(panel, 6, right_press);
    panel.Keyboard(enter);
    EXPECT_EQ(label(6), std::string("6").append(38, 'n'));
}

TEST_F(TagPanel, NamesOfThirtyNineBytesAreShownWholeAndOfFortyCut)
{
    Tool_Tag panel;
    lay_out(panel);
    for (const size_t length : {39u, 40u}) {
        Tag_Label_Set(6, "x");
        panel.Update(labels_changed);
        click_on(panel, 6, right_press);
        type(panel, std::string(length - 1, 'y'));
        panel.Keyboard(enter);
        EXPECT_EQ(label(6).size(), length);
        EXPECT_EQ(caption_of(panel, 6).size(), 39u);
    }
}

TEST_F(TagPanel, ACutLeavesNoHalfCharacter)
{
    const std::string two_bytes = "\xc3\xa9";
    Tool_Tag panel;
    lay_out(panel);
    for (const int letters : {36, 37, 38}) {
        Tag_Label_Set(6, "x");
        panel.Update(labels_changed);
        click_on(panel, 6, right_press);
        type(panel, std::string(static_cast<size_t>(letters - 1), 'y'));
        panel.Keyboard(0xe9);
        panel.Keyboard('z');
        panel.Keyboard('z');
        panel.Keyboard(enter);
        const std::string whole = std::string("x").append(static_cast<size_t>(letters - 1), 'y') + two_bytes + "zz";
        EXPECT_EQ(label(6), whole);
        const size_t cut = letters == 38 ? 38u : 39u;
        EXPECT_EQ(caption_of(panel, 6), whole.substr(0, cut)) << letters;
    }
}

TEST_F(TagPanel, CharactersOfThreeAndFourBytesAreCutWhole)
{
    const std::string euros = "\xe2\x82\xac";
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    erase(panel, 1);
    panel.Keyboard('a');
    for (int i = 0; i < 14; ++i)
        panel.Keyboard(0x20ac);
    panel.Keyboard(enter);
    EXPECT_EQ(label(6).size(), 43u);
    const std::string caption = caption_of(panel, 6);
    EXPECT_EQ(caption.size(), 37u) << "1 + 12 * 3; the thirteenth would end at 40";
    EXPECT_EQ(caption.substr(34), euros);
}

TEST_F(TagPanel, WithoutANameArrayKeysAreNotUsed)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    char**& labels = Array_Variable<char*>("$TAG_LABEL");
    char** const kept = std::exchange(labels, nullptr);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_EQ(panel.Keyboard(enter), 0);
    labels = kept;
    EXPECT_EQ(label(6), "(none)");
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, AHostThatDeliversAtOnceFindsThePanelReady)
{
    Tool_Tag panel;
    lay_out(panel, {10, 20, 788, 97});
    int delivered = 0;
    const auto subscription = hostkit::On_Update([&](unsigned long long flags) {
        ++delivered;
        EXPECT_EQ(flags, labels_changed);
        EXPECT_EQ(label(6), "6 kidney");
        EXPECT_EQ(panel.Keyboard('x'), 0) << "the editor is closed before anybody is told";
        panel.Update(flags);
    });
    click_on(panel, 6, right_press);
    type(panel, " kidney");
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_EQ(delivered, 1);
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
}
