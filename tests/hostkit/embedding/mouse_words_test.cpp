#include "hostkit/embedding/mouse_words.h"

#include <gtest/gtest.h>

using namespace hostkit;

TEST(MouseWords, APressHasBitOneAndTheButtonsThatAreDown)
{
    EXPECT_EQ(Up_Down_Word(Mouse_Event::press, MK_LBUTTON), 18);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::press, MK_MBUTTON), 34);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::press, MK_RBUTTON), 66);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::press, MK_LBUTTON | MK_RBUTTON), 82);
}

TEST(MouseWords, AReleaseHasOnlyTheButtonsThatAreStillDown)
{
    EXPECT_EQ(Up_Down_Word(Mouse_Event::release, 0), 0);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::release, MK_RBUTTON | MK_SHIFT), 64);
}

TEST(MouseWords, AMotionHasBitZeroWhileAButtonIsHeld)
{
    EXPECT_EQ(Up_Down_Word(Mouse_Event::motion, 0), 0);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::motion, MK_CONTROL), 0);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::motion, MK_LBUTTON), 17);
    EXPECT_EQ(Up_Down_Word(Mouse_Event::motion, MK_MBUTTON | MK_LBUTTON), 49);
}

TEST(MouseWords, MessagesAreToldApart)
{
    EXPECT_EQ(Mouse_Event_Of(WM_LBUTTONDOWN), Mouse_Event::press);
    EXPECT_EQ(Mouse_Event_Of(WM_MBUTTONDOWN), Mouse_Event::press);
    EXPECT_EQ(Mouse_Event_Of(WM_RBUTTONUP), Mouse_Event::release);
    EXPECT_EQ(Mouse_Event_Of(WM_MOUSEMOVE), Mouse_Event::motion);
    EXPECT_EQ(Mouse_Event_Of(WM_PAINT), Mouse_Event::none);
    EXPECT_EQ(Mouse_Event_Of(WM_MOUSEWHEEL), Mouse_Event::none);
}

TEST(KeyCodes, CharactersAndTheFourControlKeysAreThemselves)
{
    EXPECT_EQ(Key_Code_Of(WM_CHAR, 'a'), 'a');
    EXPECT_EQ(Key_Code_Of(WM_CHAR, 0xe9), 0xe9);
    EXPECT_EQ(Key_Code_Of(WM_CHAR, 0x20ac), 0x20ac);
    for (const int control : {8, 9, 13, 27})
        EXPECT_EQ(Key_Code_Of(WM_CHAR, static_cast<WPARAM>(control)), control);
}

TEST(KeyCodes, OtherControlCharactersAreNotForwarded)
{
    EXPECT_EQ(Key_Code_Of(WM_CHAR, 19), 0) << "Ctrl+S";
    EXPECT_EQ(Key_Code_Of(WM_CHAR, 127), 0) << "Delete comes as a key";
}

TEST(KeyCodes, NavigationKeysAre2048AndTheirCode)
{
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_PRIOR), 2081);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_NEXT), 2082);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_END), 2083);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_HOME), 2084);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_LEFT), 2085);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_UP), 2086);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_RIGHT), 2087);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_DOWN), 2088);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_INSERT), 2093);
    EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, VK_DELETE), 2094);
    for (const int code : {VK_SHIFT, VK_CONTROL, VK_F1, VK_RETURN, int{'A'}})
        EXPECT_EQ(Key_Code_Of(WM_KEYDOWN, static_cast<WPARAM>(code)), 0);
}
