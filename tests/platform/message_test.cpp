#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>

using test::Test_Window;

namespace {

class Messages : public ::testing::Test {
protected:
    Messages() { test::pump(); }
    Test_Window window;
};

}

TEST_F(Messages, SentAreAnsweredAtOnce)
{
    window.handler = [](UINT message, WPARAM wparam, LPARAM lparam) -> std::optional<LRESULT> {
        return message == WM_USER ? std::optional<LRESULT>(static_cast<LRESULT>(wparam) + lparam) : std::nullopt;
    };
    EXPECT_EQ(SendMessageA(window.handle(), WM_USER, 40, 2), 42);
}

TEST_F(Messages, PostedWaitForTheLoopInTheirOrder)
{
    EXPECT_TRUE(PostMessageA(window.handle(), WM_USER, 1, 10));
    EXPECT_TRUE(PostMessageA(window.handle(), WM_USER + 1, 2, 20));
    EXPECT_EQ(window.count(WM_USER), 0);
    window.forget();
    test::pump();
    ASSERT_EQ(window.count(WM_USER), 1);
    ASSERT_EQ(window.count(WM_USER + 1), 1);
    EXPECT_EQ(window.last(WM_USER)->lparam, 10);
    EXPECT_LT(window.last(WM_USER), window.last(WM_USER + 1));
}

TEST_F(Messages, GetHandsOverOneAndTheDispatchCallsTheProcedure)
{
    PostMessageA(window.handle(), WM_USER + 5, 3, 4);
    MSG message{};
    do {
        ASSERT_GT(GetMessageA(&message, nullptr, 0, 0), 0);
    } while (message.message != WM_USER + 5 && DispatchMessageA(&message) >= 0);
    EXPECT_EQ(message.hwnd, window.handle());
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_EQ(message.lParam, 4);
    EXPECT_EQ(window.count(WM_USER + 5), 0);
    window.handler = [](UINT, WPARAM, LPARAM) -> std::optional<LRESULT> { return 9; };
    EXPECT_EQ(DispatchMessageA(&message), 9);
    EXPECT_EQ(window.count(WM_USER + 5), 1);
}

TEST_F(Messages, PeekLeavesThemUnlessToldToRemove)
{
    MSG message{};
    EXPECT_FALSE(PeekMessageA(&message, window.handle(), WM_USER, WM_USER, PM_REMOVE));
    PostMessageA(window.handle(), WM_USER, 6, 0);
    EXPECT_TRUE(PeekMessageA(&message, window.handle(), WM_USER, WM_USER, PM_NOREMOVE));
    EXPECT_EQ(message.wParam, 6u);
    EXPECT_TRUE(PeekMessageA(&message, window.handle(), WM_USER, WM_USER, PM_REMOVE));
    EXPECT_FALSE(PeekMessageA(&message, window.handle(), WM_USER, WM_USER, PM_REMOVE));
}

TEST_F(Messages, AreChosenByWindowAndRange)
{
    Test_Window other;
    test::pump();
    PostMessageA(other.handle(), WM_USER, 1, 0);
    PostMessageA(window.handle(), WM_USER + 1, 2, 0);
    PostMessageA(window.handle(), WM_USER + 2, 3, 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, window.handle(), WM_USER + 2, WM_USER + 9, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u);
    ASSERT_TRUE(PeekMessageA(&message, other.handle(), WM_USER, WM_USER + 9, PM_REMOVE));
    EXPECT_EQ(message.wParam, 1u);
    ASSERT_TRUE(PeekMessageA(&message, window.handle(), WM_USER, WM_USER + 9, PM_REMOVE));
    EXPECT_EQ(message.wParam, 2u);
}

TEST_F(Messages, PeekForSomeRunsNothingElse)
{
    InvalidateRect(window.handle(), nullptr, FALSE);
    PostMessageA(window.handle(), WM_USER + 1, 0, 0);
    window.forget();
    MSG message{};
    EXPECT_FALSE(PeekMessageA(&message, window.handle(), WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE));
    EXPECT_EQ(window.count(WM_PAINT), 0);
    EXPECT_EQ(window.count(WM_USER + 1), 0);
    test::pump();
    EXPECT_EQ(window.count(WM_PAINT), 1);
    EXPECT_EQ(window.count(WM_USER + 1), 1);
}

TEST_F(Messages, QuitEndsTheLoopWithItsCodeAfterWhatWasPosted)
{
    PostMessageA(window.handle(), WM_USER, 0, 0);
    PostQuitMessage(5);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0))
        DispatchMessageA(&message);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 5u);
    EXPECT_EQ(window.count(WM_USER), 1);
}

TEST_F(Messages, PostedToADestroyedWindowReachNobody)
{
    PostMessageA(window.handle(), WM_USER, 0, 0);
    DestroyWindow(window.handle());
    test::pump();
    EXPECT_EQ(window.count(WM_USER), 0);
}

TEST_F(Messages, DefaultProcedureAnswersZero)
{
    EXPECT_EQ(DefWindowProcA(window.handle(), WM_USER, 0, 0), 0);
}
