#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

class DrawingContext : public Widgets {
protected:
    HWND Child()
    {
        return CreateWindowExA(0, "Vetra test", "", WS_CHILD | WS_VISIBLE, 100, 100, 50, 40, main_window(), nullptr,
            GetModuleHandleA(nullptr), nullptr);
    }

    POINT To_Device(int x, int y)
    {
        POINT point{x, y};
        LPtoDP(Y_DC, &point, 1);
        return point;
    }
};

}

TEST_F(DrawingContext, GrowsUpwardFromTheLowerLeftCorner)
{
    RECT client{};
    GetClientRect(main_window(), &client);
    ASSERT_EQ(Y_setup(main_window(), "test"), 1);
    EXPECT_EQ(Y_Window, main_window());
    EXPECT_NE(Y_DC, nullptr);
    EXPECT_EQ(To_Device(0, 0).y, client.bottom - 1);
    EXPECT_EQ(To_Device(0, 0).x, 0);
    EXPECT_EQ(To_Device(7, client.bottom - 1).y, 0);
    EXPECT_EQ(To_Device(7, 3).x, 7);
    Y_release();
    EXPECT_EQ(Y_DC, nullptr);
    EXPECT_EQ(Y_Window, nullptr);
    EXPECT_EQ(Critical_Flag, 1);
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(DrawingContext, NestingOnOneWindowKeepsContextAndClip)
{
    Y_setup(main_window(), "outer");
    const HDC context = Y_DC;
    const HRGN region = CreateRectRgn(0, 0, 10, 10);
    SelectClipRgn(Y_DC, region);
    DeleteObject(region);
    EXPECT_EQ(Y_setup(main_window(), "inner"), 1);
    EXPECT_EQ(Y_DC, context);
    Y_release();
    EXPECT_EQ(Y_DC, context);
    EXPECT_EQ(Y_Window, main_window());

    Boxs box;
    Place_Widget(box, 100, 100, 20, 20);
    box.state = 66;
    box.Draw();
    EXPECT_EQ(Y_DC, context);
    Y_release();
    EXPECT_EQ(Y_DC, nullptr);
    EXPECT_TRUE(Untouched(box)) << "the painter's clip holds for the widgets that it draws";
}

TEST_F(DrawingContext, WidgetsLeaveThePaintersStateAlone)
{
    Buttons button;
    Place_Widget(button, 100, 100, 60, 24);
    button.Set_Name("caption");
    Y_setup(main_window(), "outer");
    SetTextColor(Y_DC, 0x123456);
    button.Draw();
    EXPECT_EQ(SetTextColor(Y_DC, 0), COLORREF{0x123456});
    EXPECT_EQ(To_Device(0, 1).y, To_Device(0, 0).y - 1);
    Y_release();
}

TEST_F(DrawingContext, AnotherWindowIsPutAside)
{
    const HWND child = Child();
    Y_setup(main_window(), "outer");
    const HDC context = Y_DC;
    EXPECT_EQ(Y_setup(child, "inner"), 1);
    EXPECT_EQ(Y_Window, child);
    EXPECT_NE(Y_DC, context);
    EXPECT_EQ(To_Device(0, 0).y, 39);
    Y_release();
    EXPECT_EQ(Y_Window, main_window());
    EXPECT_EQ(Y_DC, context);
    Y_release();
}

TEST_F(DrawingContext, FailuresNameTheCallerAndNeedTheirRelease)
{
    EXPECT_EQ(Y_setup(nullptr, "Some::Draw"), 0);
    EXPECT_EQ(Y_DC, nullptr);
    Y_release();
    EXPECT_EQ(Y_setup(nullptr, nullptr), 0);
    Y_release();
    const std::vector<Report> expected{{11, "Y_setup(Some::Draw) GetDC failed"}, {11, "Y_release() Failed!"},
        {11, "Y_setup(---) GetDC failed"}, {11, "Y_release() Failed!"}};
    EXPECT_EQ(reports.all(), expected);
    EXPECT_EQ(Y_setup(main_window(), "test"), 1) << "usable afterwards";
    Y_release();
}

TEST_F(DrawingContext, DestroyedWindowFails)
{
    const HWND child = Child();
    DestroyWindow(child);
    EXPECT_EQ(Y_setup(child, "late"), 0);
    Y_release();
    EXPECT_EQ(reports.texts(11).size(), 2u);
    EXPECT_EQ(Y_DC, nullptr);
}

TEST_F(DrawingContext, FailureInsideABracketLeavesTheOuterOne)
{
    Y_setup(main_window(), "outer");
    const HDC context = Y_DC;
    EXPECT_EQ(Y_setup(nullptr, "inner"), 0);
    EXPECT_EQ(Y_DC, nullptr);
    Y_release();
    EXPECT_EQ(Y_DC, context);
    Y_release();
}

TEST_F(DrawingContext, ReleaseWithoutSetupOnlyReports)
{
    Y_release();
    EXPECT_EQ(reports.texts(11), std::vector<std::string>{"Y_release() Failed!"});
    EXPECT_EQ(Y_setup(main_window(), "test"), 1);
    Y_release();
}

TEST_F(DrawingContext, NestingDeeperThanThereIsRoomForFailsAndRecovers)
{
    const HWND child = Child();
    constexpr int depth = 40;
    int opened = 0;
    for (int i = 0; i < depth; ++i)
        opened += Y_setup(i % 2 ? child : main_window(), "nested");
    EXPECT_GE(opened, 16);
    EXPECT_LT(opened, depth);
    for (int i = 0; i < depth; ++i)
        Y_release();
    EXPECT_EQ(Y_DC, nullptr);
    EXPECT_EQ(Y_setup(main_window(), "test"), 1);
    Y_release();
}

TEST_F(DrawingContext, CursorIsRecordedInScreenCoordinates)
{
    POINT expected{12, 34};
    ClientToScreen(main_window(), &expected);
    Y_Cursor(main_window(), 12, 34);
    EXPECT_EQ(YCursor_X, expected.x);
    EXPECT_EQ(YCursor_Y, expected.y);
}

TEST_F(DrawingContext, CursorZeroZeroIsTheScreensCursor)
{
    SetCursorPos(55, 66);
    Y_Cursor(main_window(), 0, 0);
    EXPECT_EQ(YCursor_X, 55);
    EXPECT_EQ(YCursor_Y, 66);
}

TEST_F(DrawingContext, FontsGrowWithScaleAndTakeNullForTheirNames)
{
    const auto height = [this](HFONT font) {
        Y_setup(main_window(), "test");
        const HGDIOBJ before = SelectObject(Y_DC, font);
        TEXTMETRICA metrics{};
        GetTextMetricsA(Y_DC, &metrics);
        SelectObject(Y_DC, before);
        Y_release();
        DeleteObject(font);
        return metrics.tmHeight;
    };
    const int small = height(Y_Create_Font(nullptr, 9, nullptr));
    EXPECT_GE(small, 12) << "9 points are 12 pixels";
    EXPECT_LE(small, 22);
    EXPECT_GT(height(Y_Create_Font("", 18, "")), small + 8);
}

TEST_F(DrawingContext, BoldFontsAreBold)
{
    const auto weight = [this](const char* name) {
        const HFONT font = Y_Create_Font(nullptr, 10, name);
        Y_setup(main_window(), "test");
        const HGDIOBJ before = SelectObject(Y_DC, font);
        TEXTMETRICA metrics{};
        GetTextMetricsA(Y_DC, &metrics);
        SelectObject(Y_DC, before);
        Y_release();
        DeleteObject(font);
        return metrics.tmWeight;
    };
    EXPECT_EQ(weight("bold"), FW_BOLD);
    EXPECT_EQ(weight(""), FW_NORMAL);
    EXPECT_EQ(weight(nullptr), FW_NORMAL);
}

TEST_F(DrawingContext, KeysAndButtonsAreThoseOfTheKeyboardState)
{
    EXPECT_EQ(getkey(VK_SHIFT), 0);
    EXPECT_EQ(getbutton(VK_LBUTTON), 0);
    {
        const Held_Key shift(VK_SHIFT);
        const Held_Key left(VK_LBUTTON);
        EXPECT_NE(getkey(VK_SHIFT), 0);
        EXPECT_NE(getbutton(VK_LBUTTON), 0);
        EXPECT_EQ(getbutton(VK_RBUTTON), 0);
    }
    EXPECT_EQ(getkey(VK_SHIFT), 0);
}
