#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <tuple>

using test::Test_Window;

namespace {

class Window_Place : public ::testing::Test {
protected:
    Window_Place() { test::pump(); }
    ~Window_Place() override { ReleaseCapture(); }

    // The child's corner in its parent.
    POINT corner() const
    {
        POINT place{0, 0};
        ClientToScreen(child.handle(), &place);
        ScreenToClient(parent.handle(), &place);
        return place;
    }

    void expect_rectangle(int x, int y, int width, int height) const
    {
        RECT area{};
        GetClientRect(child.handle(), &area);
        EXPECT_EQ(corner().x, x);
        EXPECT_EQ(corner().y, y);
        EXPECT_EQ(area.right, width);
        EXPECT_EQ(area.bottom, height);
    }

    Test_Window parent{nullptr, 300, 200};
    Test_Window child{parent.handle(), 40, 30};
};

using Window_State = Window_Place;

}

TEST_F(Window_Place, IsSetWithoutTheOrder)
{
    EXPECT_TRUE(SetWindowPos(child.handle(), nullptr, 5, 6, 70, 50, SWP_NOZORDER | SWP_NOACTIVATE));
    expect_rectangle(5, 6, 70, 50);
    ASSERT_NE(child.last(WM_SIZE), nullptr);
    EXPECT_EQ(LOWORD(child.last(WM_SIZE)->lparam), 70);
}

TEST_F(Window_Place, KeepsWhatIsNotToBeChanged)
{
    child.forget();
    EXPECT_TRUE(SetWindowPos(child.handle(), HWND_TOP, 7, 8, 70, 50, SWP_NOSIZE));
    expect_rectangle(7, 8, 40, 30);
    EXPECT_EQ(child.count(WM_SIZE), 0);
    EXPECT_TRUE(SetWindowPos(child.handle(), HWND_TOP, 90, 80, 70, 50, SWP_NOMOVE));
    expect_rectangle(7, 8, 70, 50);
    EXPECT_TRUE(SetWindowPos(child.handle(), HWND_TOPMOST, 90, 80, 20, 10, SWP_NOMOVE | SWP_NOSIZE));
    expect_rectangle(7, 8, 70, 50);
}

TEST_F(Window_Place, ShowsAWindowOnlyWhenToldTo)
{
    Test_Window hidden(parent.handle(), 20, 20, {}, false);
    EXPECT_TRUE(SetWindowPos(hidden.handle(), HWND_TOP, 0, 0, 25, 20, 0));
    EXPECT_FALSE(IsWindowVisible(hidden.handle()));
    EXPECT_TRUE(SetWindowPos(hidden.handle(), HWND_TOP, 0, 0, 25, 20, SWP_SHOWWINDOW));
    EXPECT_TRUE(IsWindowVisible(hidden.handle()));
}

TEST_F(Window_Place, OfAWindowThatGoesMeanwhileIsNoHarm)
{
    child.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SIZE)
            DestroyWindow(child.handle());
        return {};
    };
    SetWindowPos(child.handle(), HWND_TOPMOST, 0, 0, 90, 80, SWP_SHOWWINDOW);
    EXPECT_FALSE(IsWindow(child.handle()));
}

TEST_F(Window_Place, OfAWindowWithATitleIncludesItsFrame)
{
    RECT outside{};
    ASSERT_TRUE(GetWindowRect(parent.handle(), &outside));
    POINT inner{0, 0};
    ClientToScreen(parent.handle(), &inner);
    const int beside = GetSystemMetrics(SM_CXFRAME) + 4;
    const int below = GetSystemMetrics(SM_CYFRAME) + 4;
    const int caption = GetSystemMetrics(SM_CYCAPTION);
    EXPECT_GT(caption, 0);
    RECT area{};
    GetClientRect(parent.handle(), &area);
    EXPECT_EQ(outside.left, inner.x - beside);
    EXPECT_EQ(outside.top, inner.y - below - caption);
    EXPECT_EQ(outside.right, inner.x + area.right + beside);
    EXPECT_EQ(outside.bottom, inner.y + area.bottom + below);
}

TEST_F(Window_Place, OfAWindowWithoutATitleIsThatOfItsClientArea)
{
    const HWND popup = CreateWindowExA(0, test::test_class(), "", WS_POPUP, 90, 70, 50, 40, parent.handle(), nullptr,
        GetModuleHandleA(nullptr), nullptr);
    MoveWindow(child.handle(), 5, 6, 40, 30, TRUE);
    for (const auto& [window, width, height] : {std::tuple{popup, 50, 40}, {child.handle(), 40, 30}}) {
        POINT inner{0, 0};
        ClientToScreen(window, &inner);
        RECT outside{};
        ASSERT_TRUE(GetWindowRect(window, &outside));
        EXPECT_EQ(outside.left, inner.x);
        EXPECT_EQ(outside.top, inner.y);
        EXPECT_EQ(outside.right, inner.x + width);
        EXPECT_EQ(outside.bottom, inner.y + height);
    }
    DestroyWindow(popup);
    RECT untouched{1, 2, 3, 4};
    EXPECT_FALSE(GetWindowRect(popup, &untouched));
    EXPECT_EQ(untouched.left, 1);
}

TEST_F(Window_State, IsEnabledFromTheStart)
{
    EXPECT_TRUE(IsWindowEnabled(child.handle()));
    EXPECT_FALSE(IsWindowEnabled(nullptr));
}

TEST_F(Window_State, DisablingTellsWhatItWasAndTellsTheWindowOnce)
{
    child.forget();
    EXPECT_FALSE(EnableWindow(child.handle(), FALSE));
    EXPECT_FALSE(IsWindowEnabled(child.handle()));
    EXPECT_TRUE(EnableWindow(child.handle(), FALSE));
    ASSERT_EQ(child.count(WM_ENABLE), 1);
    EXPECT_EQ(child.last(WM_ENABLE)->wparam, 0u);
    EXPECT_TRUE(EnableWindow(child.handle(), TRUE));
    EXPECT_TRUE(IsWindowEnabled(child.handle()));
    EXPECT_FALSE(EnableWindow(child.handle(), TRUE));
    ASSERT_EQ(child.count(WM_ENABLE), 2);
    EXPECT_EQ(child.last(WM_ENABLE)->wparam, 1u);
}

TEST_F(Window_State, OfAChildIsItsOwn)
{
    EnableWindow(parent.handle(), FALSE);
    EXPECT_TRUE(IsWindowEnabled(child.handle()));
    EnableWindow(child.handle(), FALSE);
    EnableWindow(parent.handle(), TRUE);
    EXPECT_FALSE(IsWindowEnabled(child.handle()));
}

TEST_F(Window_State, DisabledHasNoCapture)
{
    SetCapture(child.handle());
    EnableWindow(child.handle(), FALSE);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Window_State, DisabledIsStillSentMessages)
{
    EnableWindow(child.handle(), FALSE);
    child.forget();
    SendMessageA(child.handle(), WM_USER, 0, 0);
    EXPECT_EQ(child.count(WM_USER), 1);
}

TEST_F(Window_State, BroughtToTheTopIsActive)
{
    const Test_Window other(nullptr, 50, 40);
    EXPECT_TRUE(BringWindowToTop(parent.handle()));
    test::pump();
    EXPECT_EQ(GetActiveWindow(), parent.handle());
    EXPECT_TRUE(BringWindowToTop(other.handle()));
    test::pump();
    EXPECT_EQ(GetActiveWindow(), other.handle());
}

TEST_F(Window_State, OnlyWindowsOfTheirOwnAreActive)
{
    BringWindowToTop(parent.handle());
    test::pump();
    EXPECT_TRUE(BringWindowToTop(child.handle()));
    test::pump();
    EXPECT_EQ(GetActiveWindow(), parent.handle());
}

TEST_F(Window_State, ActiveIsNoneOnceItIsDestroyed)
{
    Test_Window last(nullptr, 50, 40);
    BringWindowToTop(last.handle());
    test::pump();
    const HWND handle = last.handle();
    last.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_USER) {
            DestroyWindow(handle);
            EXPECT_NE(GetActiveWindow(), handle);
        }
        return {};
    };
    SendMessageA(handle, WM_USER, 0, 0);
    EXPECT_NE(GetActiveWindow(), handle);
}

TEST_F(Window_State, EveryWindowTakesTouches)
{
    EXPECT_TRUE(RegisterTouchWindow(parent.handle(), 0));
    EXPECT_FALSE(RegisterTouchWindow(nullptr, 0));
}
