#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

// In a program of its own: what a panel asks of the system when it is built, before there is any window.

TEST(First_Call, ClassIsRegisteredAndItsWindowOpensAtTheUsualPlace)
{
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_EQ(LoadIconA(GetModuleHandleA(nullptr), "NO SUCH ICON"), nullptr);

    WNDCLASSEXA description{};
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = CreateSolidBrush(0xAAAAAA);
    description.lpszClassName = "first call";
    EXPECT_EQ(RegisterClassExA(&description), 0) << "without its size";
    description.cbSize = sizeof description;
    EXPECT_NE(RegisterClassExA(&description), 0);
    EXPECT_EQ(RegisterClassExA(&description), 0) << "once is enough";

    const HWND window =
        CreateWindowExA(WS_EX_ACCEPTFILES, "first call", "Opened first", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
            CW_USEDEFAULT, CW_USEDEFAULT, 800, 400, nullptr, nullptr, description.hInstance, nullptr);
    ASSERT_TRUE(IsWindow(window));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowEnabled(window));
    test::pump();
    UpdateWindow(window);
    EXPECT_EQ(GetActiveWindow(), window);
    RECT client{};
    ASSERT_TRUE(GetClientRect(window, &client));
    EXPECT_NEAR(client.right, 800, 30); // on Windows the frame is a part of it
    EXPECT_NEAR(client.bottom, 400, 60);
    const HDC dc = GetDC(window);
    EXPECT_EQ(GetPixel(dc, 5, 5), 0xAAAAAAu);
    ReleaseDC(window, dc);

    char title[20] = "";
    GetWindowTextA(window, title, sizeof title);
    EXPECT_STREQ(title, "Opened first");
    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_FALSE(PostMessageA(window, WM_USER, 0, 0));
    EXPECT_TRUE(UnregisterClassA("first call", description.hInstance));
}
