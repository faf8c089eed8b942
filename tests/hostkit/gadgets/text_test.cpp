#include "hostkit/gadgets/text_editing.h"
#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr int backspace = 8;
constexpr int enter = 13;
constexpr int escape = 27;
constexpr int end_key = 2083;
constexpr int home_key = 2084;
constexpr int left_key = 2085;
constexpr int right_key = 2087;
constexpr int delete_key = 2094;

class Editor : public Widgets {
protected:
    Editor()
    {
        Place_Widget(editor, 20, 30, 100, 24);
        editor.state = 0x80000000;
        Point_Away();
    }

    void Keys(std::initializer_list<int> keys)
    {
        for (const int key : keys)
            editor.Input(key);
    }

    std::string Content() const { return editor.Content(); }

    Texts editor;
};

}

TEST_F(Editor, TypesAtTheEndOfWhatIsLoaded)
{
    editor.Read("Li");
    Keys({'v', 'e', 'r'});
    EXPECT_EQ(Content(), "Liver");
    EXPECT_EQ(editor.Update(), nullptr);
}

TEST_F(Editor, EnterFinishesOnce)
{
    editor.Read("Liver");
    Keys({'!', enter});
    EXPECT_STREQ(editor.Update(), "Liver!");
    EXPECT_EQ(editor.Update(), nullptr);
}

TEST_F(Editor, EscapeRestoresTheTextAndGivesAnEmptyOneOnce)
{
    editor.Read("Liver");
    Keys({backspace, 'x', escape});
    EXPECT_EQ(Content(), "Liver");
    EXPECT_STREQ(editor.Update(), "");
    EXPECT_EQ(editor.Update(), nullptr);
}

TEST_F(Editor, EnterOnNothingGivesAnEmptyText)
{
    editor.Read("a");
    Keys({backspace, enter});
    EXPECT_STREQ(editor.Update(), "");
}

TEST_F(Editor, LoadingForgetsWhatWasFinished)
{
    editor.Read("Liver");
    Keys({enter});
    editor.Read("Spleen");
    EXPECT_EQ(editor.Update(), nullptr);
    EXPECT_EQ(Content(), "Spleen");
    editor.Read(nullptr);
    EXPECT_EQ(Content(), "");
}

TEST_F(Editor, CaretKeysMoveWhereLettersGo)
{
    editor.Read("bd");
    Keys({left_key, 'c', home_key, 'a', end_key, 'e', right_key, 'f'});
    EXPECT_EQ(Content(), "abcdef");
    Keys({home_key, left_key, '<'});
    EXPECT_EQ(Content(), "<abcdef");
}

TEST_F(Editor, BackspaceAndDeleteTakeOneCharacter)
{
    editor.Read("abcd");
    Keys({left_key, backspace});
    EXPECT_EQ(Content(), "abd");
    Keys({delete_key});
    EXPECT_EQ(Content(), "ab");
    Keys({delete_key});
    EXPECT_EQ(Content(), "ab") << "nothing behind the caret";
    Keys({home_key, backspace});
    EXPECT_EQ(Content(), "ab") << "nothing before the caret";
}

TEST_F(Editor, CharactersBeyondAsciiAreStoredAsUtf8)
{
    editor.Read("");
    Keys({0xe9, 0x20ac, 0x5fc3, 0x1f600, 0x7ff, 0x800});
    EXPECT_EQ(Content(), "\xc3\xa9\xe2\x82\xac\xe5\xbf\x83\xf0\x9f\x98\x80\xdf\xbf\xe0\xa0\x80");
}

TEST_F(Editor, WholeCharactersAreSteppedOverAndErased)
{
    editor.Read("\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
    Keys({left_key, left_key, 'x'});
    EXPECT_EQ(Content(), "\xc3\xa9x\xe2\x82\xac\xf0\x9f\x98\x80");
    Keys({delete_key});
    EXPECT_EQ(Content(), "\xc3\xa9x\xf0\x9f\x98\x80");
    Keys({end_key, backspace});
    EXPECT_EQ(Content(), "\xc3\xa9x");
    Keys({home_key, delete_key});
    EXPECT_EQ(Content(), "x");
}

TEST_F(Editor, NavigationAndControlKeysTypeNothing)
{
    editor.Read("ab");
    for (const int key : {0, 1, 9, 31, 127, 128, 159, 0xd800, 0xdfff, 0x110000, -5})
        editor.Input(key);
    for (const int key : {2081, 2082, 2086, 2088, 2089, 2090, 2091, 2092, 2093})
        editor.Input(key);
    EXPECT_EQ(Content(), "ab");
    Keys({2080, 2095});
    EXPECT_EQ(Content(), "ab\xe0\xa0\xa0\xe0\xa0\xaf") << "beside the range they are characters";
}

TEST_F(Editor, ShiftSelectsAndTypingReplaces)
{
    editor.Read("abcd");
    {
        const Held_Key shift(VK_SHIFT);
        Keys({left_key, left_key});
    }
    Keys({'X'});
    EXPECT_EQ(Content(), "abX");
    {
        const Held_Key shift(VK_SHIFT);
        Keys({home_key});
    }
    Keys({delete_key});
    EXPECT_EQ(Content(), "");
}

TEST_F(Editor, BackspaceErasesTheSelectionAlone)
{
    editor.Read("abcd");
    {
        const Held_Key shift(VK_SHIFT);
        Keys({left_key, left_key});
    }
    Keys({backspace});
    EXPECT_EQ(Content(), "ab");
}

TEST_F(Editor, ArrowsLeaveASelectionAtItsEnds)
{
    editor.Read("abcd");
    const auto select_two = [this] {
        Keys({end_key});
        const Held_Key shift(VK_SHIFT);
        Keys({left_key, left_key});
    };
    select_two();
    Keys({left_key, '<'});
    EXPECT_EQ(Content(), "ab<cd");
    select_two();
    Keys({right_key, '>'});
    EXPECT_EQ(Content(), "ab<cd>");
}

TEST_F(Editor, LongTextsAreNotCut)
{
    const std::string text(5000, 'm');
    editor.Read(text.c_str());
    Keys({'n', enter});
    EXPECT_EQ(std::string(editor.Update()), text + "n");
}

// ----------------------------------------------------------------------------------------------------- on screen

TEST_F(Editor, EveryKeyRedrawsTheField)
{
    editor.Read("ab");
    editor.Draw();
    for (const int key : {int{'c'}, left_key, backspace, escape}) {
        Wipe();
        editor.Input(key);
        EXPECT_FALSE(Untouched(editor)) << key;
        EXPECT_FALSE(Spills(editor)) << key;
    }
}

TEST_F(Editor, CaretAndSelectionAreSeen)
{
    editor.Read("abcd");
    editor.Draw();
    const auto at_end = Look(editor);
    Keys({home_key});
    const auto at_start = Look(editor);
    EXPECT_NE(at_end, at_start);
    const Held_Key shift(VK_SHIFT);
    Keys({end_key});
    EXPECT_NE(Look(editor), at_end);
}

TEST_F(Editor, LongTextScrollsToTheCaretInsideTheField)
{
    editor.Read("a text that is much longer than the field is wide");
    editor.Draw();
    EXPECT_FALSE(Spills(editor));
    const auto end = Look(editor);
    Keys({home_key});
    EXPECT_NE(Look(editor), end);
    EXPECT_FALSE(Spills(editor));
    Keys({end_key});
    EXPECT_EQ(Look(editor), end);
}

TEST_F(Editor, ScrollsBackWhenTheTextGetsShort)
{
    editor.Read("short");
    editor.Draw();
    const auto expected = Look(editor);
    editor.Read("short and then so long that the field scrolls");
    editor.Draw();
    while (Content() != "short")
        Keys({backspace});
    EXPECT_EQ(Look(editor), expected);
}

TEST_F(Editor, ClosedPaintsNothing)
{
    editor.Read("ab");
    editor.state = 0x80000003;
    editor.Draw();
    editor.Write();
    EXPECT_TRUE(Untouched(editor));
}

TEST_F(Editor, GreyedIsShownWithoutACaret)
{
    editor.Read("ab");
    editor.Draw();
    const auto active = Look(editor);
    editor.state = 35;
    editor.Draw();
    EXPECT_NE(Look(editor), active);
    EXPECT_FALSE(Untouched(editor));
    EXPECT_EQ(hostkit::Active_Text(), nullptr);
}

// ----------------------------------------------------------------------------------------------- the active one

TEST_F(Editor, IsTheActiveOneFromLoadingToItsEnd)
{
    EXPECT_EQ(hostkit::Active_Text(), nullptr);
    editor.Read("ab");
    EXPECT_EQ(hostkit::Active_Text(), &editor);
    Keys({'c'});
    EXPECT_EQ(hostkit::Active_Text(), &editor);
    Keys({enter});
    EXPECT_EQ(hostkit::Active_Text(), nullptr);
    editor.Read("ab");
    Keys({escape});
    EXPECT_EQ(hostkit::Active_Text(), nullptr);
}

TEST_F(Editor, IsNotTheActiveOneOnceClosedOrDestroyed)
{
    editor.Read("ab");
    editor.state = 0x80000003;
    EXPECT_EQ(hostkit::Active_Text(), nullptr);
    {
        Texts other;
        Place_Widget(other, 20, 80, 100, 24);
        other.Read("cd");
        EXPECT_EQ(hostkit::Active_Text(), &other);
    }
    EXPECT_EQ(hostkit::Active_Text(), nullptr);
    editor.state = 0x80000000;
    editor.Draw();
    EXPECT_EQ(hostkit::Active_Text(), &editor);
    editor.Cleanup();
    EXPECT_EQ(Content(), "");
}

TEST_F(Editor, CopiesHaveTheirOwnTextAndAreNotActive)
{
    editor.Read("ab");
    Texts copy(editor);
    copy.Input('c');
    EXPECT_STREQ(copy.Content(), "abc");
    EXPECT_EQ(Content(), "ab");
}
