#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

using test::Test_Window;

namespace {

class Input : public ::testing::Test {
protected:
    Input() { test::pump(); }
    ~Input() override
    {
        ReleaseCapture();
        BYTE keys[256] = {};
        SetKeyboardState(keys);
    }
    Test_Window parent{nullptr, 300, 200};
    Test_Window child{parent.handle(), 100, 80};
};

}

TEST_F(Input, StateOfKeysIsWhatWasSet)
{
    BYTE keys[256] = {};
    keys[VK_LBUTTON] = 0x80;
    keys[VK_SHIFT] = 0x80;
    EXPECT_TRUE(SetKeyboardState(keys));
    EXPECT_LT(GetKeyState(VK_LBUTTON), 0);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    EXPECT_GE(GetKeyState(VK_RBUTTON), 0);
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    BYTE read[256] = {};
    EXPECT_TRUE(GetKeyboardState(read));
    EXPECT_EQ(read[VK_LBUTTON] & 0x80, 0x80);
    EXPECT_EQ(read[VK_RBUTTON] & 0x80, 0);
}

TEST_F(Input, SentMouseMessagesLeaveTheStateOfKeysAlone)
{
    BYTE keys[256] = {};
    keys[VK_MBUTTON] = 0x80;
    SetKeyboardState(keys);
    SendMessageA(child.handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_LT(GetKeyState(VK_MBUTTON), 0);
    EXPECT_GE(GetKeyState(VK_LBUTTON), 0);
}

TEST_F(Input, PointerIsWhereItWasPut)
{
    POINT place{20, 30};
    ClientToScreen(child.handle(), &place);
    EXPECT_TRUE(SetCursorPos(place.x, place.y));
    POINT found{};
    EXPECT_TRUE(GetCursorPos(&found));
    EXPECT_EQ(found.x, place.x);
    EXPECT_EQ(found.y, place.y);
}

TEST_F(Input, CaptureIsTakenGivenBackAndLostWithItsWindow)
{
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(SetCapture(child.handle()), nullptr);
    EXPECT_EQ(GetCapture(), child.handle());
    EXPECT_EQ(SetCapture(parent.handle()), child.handle());
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(child.handle());
    DestroyWindow(child.handle());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Input, FocusGoesWhereItIsSetAndBothAreTold)
{
    SetFocus(parent.handle());
    ASSERT_EQ(GetFocus(), parent.handle());
    parent.forget();
    EXPECT_EQ(SetFocus(child.handle()), parent.handle());
    EXPECT_EQ(GetFocus(), child.handle());
    EXPECT_EQ(child.count(WM_SETFOCUS), 1);
    EXPECT_EQ(parent.count(WM_KILLFOCUS), 1);
}

TEST_F(Input, FocusCanBeTakenFromAll)
{
    SetFocus(child.handle());
    ASSERT_EQ(GetFocus(), child.handle());
    EXPECT_EQ(SetFocus(nullptr), child.handle());
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(child.count(WM_KILLFOCUS), 1);
}

TEST_F(Input, CursorIsExchanged)
{
    const LPCSTR names[] = {IDC_ARROW, IDC_IBEAM, IDC_WAIT, IDC_CROSS, IDC_HAND};
    for (LPCSTR name : names)
        EXPECT_NE(LoadCursorA(nullptr, name), nullptr);
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    EXPECT_EQ(SetCursor(LoadCursorA(nullptr, IDC_ARROW)), LoadCursorA(nullptr, IDC_WAIT));
}

TEST_F(Input, TrackingIsRefusedForNoWindow)
{
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    EXPECT_FALSE(TrackMouseEvent(&track));
    track.hwndTrack = child.handle();
    EXPECT_TRUE(TrackMouseEvent(&track));
}
