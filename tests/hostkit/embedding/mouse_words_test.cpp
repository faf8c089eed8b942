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
