#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

using test::Test_Window;

// Windows that pop up over others, and the screen they must stay on.

namespace {

HWND pop_up(HWND owner, int x, int y, int width, int height)
{
    return CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, test::test_class(), "", WS_POPUP, x, y, width, height,
        owner, nullptr, GetModuleHandleA(nullptr), nullptr);
}

class Popup : public ::testing::Test {
protected:
    Popup() : popup(pop_up(owner.handle(), 120, 90, 50, 40)) { test::pump(); }
    ~Popup() override { DestroyWindow(popup); }

    Test_Window owner{nullptr, 300, 200};
    HWND popup;
};

MONITORINFO information_at(POINT point)
{
    MONITORINFO information{};
    information.cbSize = sizeof information;
    EXPECT_TRUE(GetMonitorInfoA(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &information));
    return information;
}

}

TEST_F(Popup, HasNoFrameAndLiesInScreenCoordinates)
{
    RECT client{};
    GetClientRect(popup, &client);
    EXPECT_EQ(client.right, 50);
    EXPECT_EQ(client.bottom, 40);
    POINT corner{0, 0};
    ClientToScreen(popup, &corner);
    EXPECT_EQ(corner.x, 120);
    EXPECT_EQ(corner.y, 90);
}

TEST_F(Popup, IsHiddenUntilItIsShown)
{
    EXPECT_FALSE(IsWindowVisible(popup));
    ShowWindow(popup, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(popup));
    ShowWindow(popup, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(popup));
}

TEST_F(Popup, BelongsToItsOwnerAndGoesWithIt)
{
    Test_Window* const another = new Test_Window;
    const HWND owned = pop_up(another->handle(), 0, 0, 10, 10);
    EXPECT_EQ(GetParent(owned), another->handle());
    delete another;
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(Popup, TakesTheFocusFromItsOwnerAndGivesItBack)
{
    SetFocus(owner.handle());
    owner.forget();
    ShowWindow(popup, SW_SHOW);
    SetFocus(popup);
    EXPECT_EQ(GetFocus(), popup);
    EXPECT_GE(owner.count(WM_KILLFOCUS), 1);
    SetFocus(owner.handle());
    EXPECT_EQ(GetFocus(), owner.handle());
}

TEST(Monitor, HasAWorkAreaWithinIt)
{
    const MONITORINFO information = information_at({5, 5});
    EXPECT_GT(information.rcWork.right, information.rcWork.left);
    EXPECT_GT(information.rcWork.bottom, information.rcWork.top);
    EXPECT_GE(information.rcWork.left, information.rcMonitor.left);
    EXPECT_GE(information.rcWork.top, information.rcMonitor.top);
    EXPECT_LE(information.rcWork.right, information.rcMonitor.right);
    EXPECT_LE(information.rcWork.bottom, information.rcMonitor.bottom);
}

TEST(Monitor, ThePrimaryOneHasTheSystemsMetrics)
{
    const MONITORINFO information = information_at({0, 0});
    EXPECT_EQ(information.dwFlags, 1u);
    EXPECT_EQ(information.rcMonitor.right - information.rcMonitor.left, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(information.rcMonitor.bottom - information.rcMonitor.top, GetSystemMetrics(SM_CYSCREEN));
}

TEST(Monitor, APlaceOutsideBelongsToTheNearestOne)
{
    for (const POINT place : {POINT{-100000, 5}, {100000, 5}, {5, -100000}, {5, 100000}})
        EXPECT_NE(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST), nullptr);
}

TEST(Monitor, IsNotDescribedWithoutItsSizeOrWhenThereIsNone)
{
    MONITORINFO information{};
    EXPECT_FALSE(GetMonitorInfoA(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTONEAREST), &information));
    information.cbSize = sizeof information;
    EXPECT_FALSE(GetMonitorInfoA(nullptr, &information));
}
