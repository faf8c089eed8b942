#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <cstring>

using test::Test_Window;

namespace {

class Window : public ::testing::Test {
protected:
    Test_Window parent{nullptr, 300, 200};
};

HWND create(const char* class_name, DWORD style, HWND parent)
{
    return CreateWindowExA(0, class_name, "", style, 0, 0, 10, 10, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
}

}

TEST_F(Window, IsNotMadeOfAnUnknownClass)
{
    EXPECT_EQ(create("no such class", WS_CHILD, parent.handle()), nullptr);
}

TEST_F(Window, ClassNameIsTakenOnlyOnceUntilUnregistered)
{
    WNDCLASSA description{};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "taken once";
    EXPECT_NE(RegisterClassA(&description), 0);
    EXPECT_EQ(RegisterClassA(&description), 0);
    EXPECT_TRUE(UnregisterClassA("taken once", description.hInstance));
    EXPECT_FALSE(UnregisterClassA("taken once", description.hInstance));
    EXPECT_EQ(create("taken once", WS_CHILD, parent.handle()), nullptr);
}

TEST_F(Window, ClassStaysWhileAWindowOfItLives)
{
    EXPECT_FALSE(UnregisterClassA(test::test_class(), GetModuleHandleA(nullptr)));
    Test_Window another(parent.handle());
    EXPECT_TRUE(IsWindow(another.handle()));
}

TEST_F(Window, CreationTellsWhatWasAskedFor)
{
    CREATESTRUCTA seen{};
    Test_Window child(parent.handle(), 40, 30, [&](UINT message, WPARAM, LPARAM lparam) -> std::optional<LRESULT> {
        if (message == WM_CREATE)
            seen = *reinterpret_cast<const CREATESTRUCTA*>(lparam);
        return {};
    });
    EXPECT_EQ(seen.lpCreateParams, &child);
    EXPECT_EQ(seen.cx, 40);
    EXPECT_EQ(seen.cy, 30);
    EXPECT_EQ(seen.hwndParent, parent.handle());
    EXPECT_EQ(child.count(WM_CREATE), 1);
}

TEST_F(Window, CreationRefusedByItsProcedureGivesNone)
{
    Test_Window child(parent.handle(), 40, 30, [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        return message == WM_CREATE ? std::optional<LRESULT>(-1) : std::nullopt;
    });
    EXPECT_FALSE(IsWindow(child.handle()));
}

TEST_F(Window, KnowsItsParent)
{
    Test_Window child(parent.handle());
    EXPECT_EQ(GetParent(child.handle()), parent.handle());
    EXPECT_EQ(GetParent(parent.handle()), nullptr);
}

TEST_F(Window, DestroyedIsNoWindowAnyMore)
{
    Test_Window child(parent.handle());
    const HWND handle = child.handle();
    EXPECT_TRUE(IsWindow(handle));
    EXPECT_TRUE(DestroyWindow(handle));
    EXPECT_EQ(child.count(WM_DESTROY), 1);
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_FALSE(DestroyWindow(handle));
}

TEST_F(Window, DestroyedTakesItsChildrenAlong)
{
    Test_Window child(parent.handle());
    Test_Window grandchild(child.handle());
    DestroyWindow(child.handle());
    EXPECT_FALSE(IsWindow(grandchild.handle()));
    EXPECT_EQ(grandchild.count(WM_DESTROY), 1);
    EXPECT_TRUE(IsWindow(parent.handle()));
}

TEST_F(Window, MayDestroyItselfInItsProcedure)
{
    Test_Window child(parent.handle());
    child.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_USER)
            return {};
        DestroyWindow(child.handle());
        return 7;
    };
    EXPECT_EQ(SendMessageA(child.handle(), WM_USER, 0, 0), 7);
    EXPECT_FALSE(IsWindow(child.handle()));
    test::pump();
}

TEST_F(Window, CloseIsDestroyedOnlyByDefault)
{
    Test_Window child(parent.handle());
    child.handler = [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        return message == WM_CLOSE ? std::optional<LRESULT>(0) : std::nullopt;
    };
    SendMessageA(child.handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(child.handle()));
    child.handler = {};
    SendMessageA(child.handle(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(child.handle()));
}

TEST_F(Window, StaleHandleIsRefusedByEveryCall)
{
    Test_Window child(parent.handle());
    const HWND stale = child.handle();
    DestroyWindow(stale);
    RECT area{};
    POINT place{};
    PAINTSTRUCT paint{};
    char text[8] = "";
    EXPECT_FALSE(GetClientRect(stale, &area));
    EXPECT_FALSE(ClientToScreen(stale, &place));
    EXPECT_FALSE(ScreenToClient(stale, &place));
    EXPECT_FALSE(MoveWindow(stale, 0, 0, 5, 5, TRUE));
    EXPECT_FALSE(ShowWindow(stale, SW_SHOW));
    EXPECT_FALSE(IsWindowVisible(stale));
    EXPECT_FALSE(UpdateWindow(stale));
    EXPECT_FALSE(SetWindowTextA(stale, "x"));
    EXPECT_EQ(GetWindowTextA(stale, text, 8), 0);
    EXPECT_EQ(GetParent(stale), nullptr);
    EXPECT_EQ(GetDC(stale), nullptr);
    EXPECT_EQ(BeginPaint(stale, &paint), nullptr);
    EXPECT_EQ(SetWindowLongPtrA(stale, GWLP_USERDATA, 1), 0);
    EXPECT_EQ(GetWindowLongPtrA(stale, GWLP_USERDATA), 0);
    EXPECT_EQ(GetWindowLongPtrA(stale, GWLP_HINSTANCE), 0);
    EXPECT_FALSE(EnableWindow(stale, TRUE));
    EXPECT_FALSE(IsWindowEnabled(stale));
    EXPECT_FALSE(SetWindowPos(stale, HWND_TOP, 0, 0, 5, 5, 0));
    EXPECT_FALSE(BringWindowToTop(stale));
    EXPECT_FALSE(RegisterTouchWindow(stale, 0));
    EXPECT_EQ(SendMessageA(stale, WM_USER, 0, 0), 0);
    EXPECT_FALSE(PostMessageA(stale, WM_USER, 0, 0));
    EXPECT_EQ(create(test::test_class(), WS_CHILD, stale), nullptr);
}

TEST_F(Window, ShowTellsWhetherItWasVisible)
{
    Test_Window child(parent.handle(), 20, 20, {}, false);
    EXPECT_FALSE(IsWindowVisible(child.handle()));
    EXPECT_FALSE(ShowWindow(child.handle(), SW_SHOW));
    EXPECT_TRUE(IsWindowVisible(child.handle()));
    EXPECT_TRUE(ShowWindow(child.handle(), SW_HIDE));
    EXPECT_FALSE(IsWindowVisible(child.handle()));
}

TEST_F(Window, IsVisibleOnlyWhenItsParentIs)
{
    Test_Window child(parent.handle());
    EXPECT_TRUE(IsWindowVisible(child.handle()));
    ShowWindow(parent.handle(), SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(child.handle()));
}

TEST_F(Window, MoveTellsTheNewSizeOnlyWhenItChanged)
{
    Test_Window child(parent.handle(), 20, 20);
    test::pump();
    child.forget();
    MoveWindow(child.handle(), 5, 6, 33, 44, TRUE);
    ASSERT_EQ(child.count(WM_SIZE), 1);
    EXPECT_EQ(LOWORD(child.last(WM_SIZE)->lparam), 33);
    EXPECT_EQ(HIWORD(child.last(WM_SIZE)->lparam), 44);
    RECT area{};
    EXPECT_TRUE(GetClientRect(child.handle(), &area));
    EXPECT_EQ(area.left, 0);
    EXPECT_EQ(area.top, 0);
    EXPECT_EQ(area.right, 33);
    EXPECT_EQ(area.bottom, 44);
    MoveWindow(child.handle(), 15, 16, 33, 44, TRUE);
    test::pump();
    EXPECT_EQ(child.count(WM_SIZE), 1);
}

TEST_F(Window, ClientPointsBecomeScreenPointsAndBack)
{
    Test_Window child(parent.handle(), 20, 20);
    MoveWindow(child.handle(), 7, 9, 20, 20, TRUE);
    POINT of_parent{0, 0};
    POINT of_child{1, 2};
    ClientToScreen(parent.handle(), &of_parent);
    EXPECT_TRUE(ClientToScreen(child.handle(), &of_child));
    EXPECT_EQ(of_child.x - of_parent.x, 8);
    EXPECT_EQ(of_child.y - of_parent.y, 11);
    EXPECT_TRUE(ScreenToClient(child.handle(), &of_child));
    EXPECT_EQ(of_child.x, 1);
    EXPECT_EQ(of_child.y, 2);
}

TEST_F(Window, TextIsReturnedUpToTheRoomThereIs)
{
    EXPECT_TRUE(SetWindowTextA(parent.handle(), "vetra"));
    char text[16] = "";
    EXPECT_EQ(GetWindowTextA(parent.handle(), text, 16), 5);
    EXPECT_STREQ(text, "vetra");
    EXPECT_EQ(GetWindowTextA(parent.handle(), text, 4), 3);
    EXPECT_STREQ(text, "vet");
    EXPECT_EQ(GetWindowTextA(parent.handle(), text, 0), 0);
}

TEST_F(Window, UserDataStartsAtZeroAndIsExchanged)
{
    WNDCLASSA description{};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "user data";
    RegisterClassA(&description);
    const HWND window = create("user data", WS_CHILD, parent.handle());
    EXPECT_EQ(GetWindowLongPtrA(window, GWLP_USERDATA), 0);
    EXPECT_EQ(SetWindowLongPtrA(window, GWLP_USERDATA, 41), 0);
    EXPECT_EQ(SetWindowLongPtrA(window, GWLP_USERDATA, 42), 41);
    EXPECT_EQ(GetWindowLongPtrA(window, GWLP_USERDATA), 42);
    DestroyWindow(window);
    UnregisterClassA("user data", description.hInstance);
}

TEST_F(Window, KnowsTheInstanceThatItWasMadeWith)
{
    EXPECT_EQ(
        GetWindowLongPtrA(parent.handle(), GWLP_HINSTANCE), reinterpret_cast<LONG_PTR>(GetModuleHandleA(nullptr)));
}

TEST_F(Window, UsualPlaceAndSizeMakeAWindowWithAnArea)
{
    const HWND window = CreateWindowExA(0, test::test_class(), "", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    RECT area{};
    ASSERT_TRUE(GetClientRect(window, &area));
    EXPECT_GT(area.right, 0);
    EXPECT_GT(area.bottom, 0);
    DestroyWindow(window);
}
