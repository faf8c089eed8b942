#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

TEST(KeyCodes, CharactersAndTheFourControlKeysAreThemselves)
{
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, 'a', 0), 'a');
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, 0xe9, 0), 0xe9);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, 0x20ac, 0), 0x20ac);
    for (const int control : {8, 9, 13, 27})
        EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, static_cast<WPARAM>(control), 0), control);
}

TEST(KeyCodes, OtherControlCharactersAreNotForwarded)
{
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, 19, 0), 0) << "Ctrl+S";
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, 127, 0), 0) << "Delete comes as a key";
}

TEST(KeyCodes, NavigationKeysAre2048AndTheirCode)
{
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_PRIOR, 0), 2081);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_NEXT, 0), 2082);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_END, 0), 2083);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_HOME, 0), 2084);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_LEFT, 0), 2085);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_UP, 0), 2086);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_RIGHT, 0), 2087);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_DOWN, 0), 2088);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_INSERT, 0), 2093);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, VK_DELETE, 0), 2094);
    for (const int code : {VK_SHIFT, VK_CONTROL, VK_F1, VK_RETURN, int{'A'}})
        EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, static_cast<WPARAM>(code), 0), 0);
}

TEST(KeyCodes, WithAltAreThoseOfNavigationAlone)
{
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_SYSKEYDOWN, VK_PRIOR, 0), 2081);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_SYSKEYDOWN, VK_DELETE, 0), 2094);
    for (const int code : {VK_MENU, VK_F1, int{'A'}})
        EXPECT_EQ(Parse_Keyboard(nullptr, WM_SYSKEYDOWN, static_cast<WPARAM>(code), 0), 0);
}

TEST(KeyCodes, OfOtherMessagesAreNone)
{
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYUP, VK_PRIOR, 0), 0);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYUP, 'A', 0), 0);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_MOUSEMOVE, 'A', 0), 0);
}

namespace {

class Dialog_Keys : public Widgets {
protected:
    /// The key of a key-down that types a character.
    int Typing(int key, int character)
    {
        PostMessageA(main_window(), WM_CHAR, static_cast<WPARAM>(character), 1);
        return Parse_Dialog(main_window(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    }

    bool Character_Waits()
    {
        MSG message{};
        return PeekMessageA(&message, main_window(), WM_CHAR, WM_CHAR, PM_NOREMOVE) != 0;
    }
};

}

TEST_F(Dialog_Keys, AreWhatTheKeysType)
{
    EXPECT_EQ(Typing('A', 'a'), 'a');
    EXPECT_EQ(Typing(VK_BACK, 8), 8);
    EXPECT_EQ(Typing('S', 19), 0) << "Ctrl+S";
    EXPECT_FALSE(Character_Waits()) << "each came with its key";
}

TEST_F(Dialog_Keys, AreTheNavigationKeys)
{
    EXPECT_EQ(Parse_Dialog(main_window(), WM_KEYDOWN, VK_LEFT, 1), 2085);
    EXPECT_EQ(Parse_Dialog(main_window(), WM_KEYDOWN, VK_DELETE, 1), 2094);
    EXPECT_EQ(Parse_Dialog(main_window(), WM_KEYDOWN, VK_SHIFT, 1), 0);
}

TEST_F(Dialog_Keys, AreNoneOfOtherMessages)
{
    PostMessageA(main_window(), WM_CHAR, 'a', 1);
    EXPECT_EQ(Parse_Dialog(main_window(), WM_KEYUP, 'A', 1), 0);
    EXPECT_EQ(Parse_Dialog(main_window(), WM_CHAR, 'a', 1), 0);
    EXPECT_TRUE(Character_Waits());
}

TEST_F(Dialog_Keys, LeaveTheEndOfTheProgramAlone)
{
    PostQuitMessage(3);
    EXPECT_EQ(Parse_Dialog(main_window(), WM_KEYDOWN, 'A', 1), 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 3u);
}
