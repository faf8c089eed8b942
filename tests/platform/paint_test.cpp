#include "tests/platform/canvas.h"

using test::Test_Window;

namespace {

// Paints all of the window in one colour and remembers what it was asked for.
class Painting : public ::testing::Test {
protected:
    Painting()
    {
        window.handler = [this](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            if (message != WM_PAINT)
                return {};
            PAINTSTRUCT paint{};
            const HDC dc = BeginPaint(window.handle(), &paint);
            asked = paint.rcPaint;
            same_context = dc != nullptr && paint.hdc == dc;
            const RECT all{0, 0, 60, 40};
            HBRUSH brush = CreateSolidBrush(color);
            FillRect(dc, &all, brush);
            DeleteObject(brush);
            ended = EndPaint(window.handle(), &paint);
            return 0;
        };
        test::pump();
        UpdateWindow(window.handle());
        window.forget();
    }

    COLORREF pixel(int x, int y)
    {
        const HDC dc = GetDC(window.handle());
        const COLORREF result = GetPixel(dc, x, y);
        ReleaseDC(window.handle(), dc);
        return result;
    }

    Test_Window parent{nullptr, 300, 200};
    Test_Window window{parent.handle(), 60, 40};
    COLORREF color = RGB(10, 20, 30);
    RECT asked{};
    bool same_context = false;
    BOOL ended = FALSE;
};

}

TEST_F(Painting, HappensWhenAWindowIsFirstShown)
{
    EXPECT_EQ(pixel(30, 20), RGB(10, 20, 30));
    EXPECT_TRUE(same_context);
    EXPECT_TRUE(ended);
}

TEST_F(Painting, IsAskedForWhatIsInvalid)
{
    const RECT part{5, 6, 25, 16};
    EXPECT_TRUE(InvalidateRect(window.handle(), &part, FALSE));
    EXPECT_EQ(window.count(WM_PAINT), 0);
    EXPECT_TRUE(UpdateWindow(window.handle()));
    EXPECT_EQ(window.count(WM_PAINT), 1);
    EXPECT_EQ(asked.left, 5);
    EXPECT_EQ(asked.top, 6);
    EXPECT_EQ(asked.right, 25);
    EXPECT_EQ(asked.bottom, 16);
}

TEST_F(Painting, TouchesOnlyWhatIsInvalid)
{
    const RECT part{5, 6, 25, 16};
    color = RGB(200, 0, 0);
    InvalidateRect(window.handle(), &part, FALSE);
    UpdateWindow(window.handle());
    EXPECT_EQ(pixel(5, 6), RGB(200, 0, 0));
    EXPECT_EQ(pixel(24, 15), RGB(200, 0, 0));
    EXPECT_EQ(pixel(25, 16), RGB(10, 20, 30));
    EXPECT_EQ(pixel(50, 30), RGB(10, 20, 30));
}

TEST_F(Painting, ComesOnceForSeveralInvalidParts)
{
    const RECT one{0, 0, 5, 5};
    const RECT other{20, 20, 30, 30};
    InvalidateRect(window.handle(), &one, FALSE);
    InvalidateRect(window.handle(), &other, FALSE);
    test::pump();
    EXPECT_EQ(window.count(WM_PAINT), 1);
    EXPECT_EQ(asked.left, 0);
    EXPECT_EQ(asked.right, 30);
    test::pump();
    EXPECT_EQ(window.count(WM_PAINT), 1);
}

TEST_F(Painting, OfNoRectangleIsOfTheWholeWindow)
{
    InvalidateRect(window.handle(), nullptr, TRUE);
    UpdateWindow(window.handle());
    EXPECT_EQ(asked.right, 60);
    EXPECT_EQ(asked.bottom, 40);
}

TEST_F(Painting, IsNotAskedForWhenNothingIsInvalid)
{
    UpdateWindow(window.handle());
    EXPECT_EQ(window.count(WM_PAINT), 0);
}

TEST_F(Painting, FollowsAResize)
{
    MoveWindow(window.handle(), 0, 0, 70, 50, TRUE);
    UpdateWindow(window.handle());
    test::pump();
    EXPECT_GE(window.count(WM_PAINT), 1);
}

TEST_F(Painting, LeftToTheDefaultIsNotAskedForAgain)
{
    window.handler = {};
    InvalidateRect(window.handle(), nullptr, FALSE);
    UpdateWindow(window.handle());
    window.forget();
    UpdateWindow(window.handle());
    test::pump();
    EXPECT_EQ(window.count(WM_PAINT), 0);
}

TEST_F(Painting, OutsideAPaintMessageStays)
{
    const HDC dc = GetDC(window.handle());
    SetPixel(dc, 3, 4, RGB(1, 2, 3));
    ReleaseDC(window.handle(), dc);
    test::pump();
    EXPECT_EQ(pixel(3, 4), RGB(1, 2, 3));
    EXPECT_EQ(window.count(WM_PAINT), 0);
}

TEST_F(Painting, ClassBackgroundIsLaidUnderIt)
{
    HBRUSH brush = CreateSolidBrush(RGB(9, 8, 7));
    WNDCLASSA description{};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hbrBackground = brush;
    description.lpszClassName = "with background";
    RegisterClassA(&description);
    const HWND child = CreateWindowExA(0, "with background", "", WS_CHILD | WS_VISIBLE, 0, 0, 20, 20, parent.handle(),
        nullptr, description.hInstance, nullptr);
    test::pump();
    UpdateWindow(child);
    const HDC dc = GetDC(child);
    EXPECT_EQ(GetPixel(dc, 10, 10), RGB(9, 8, 7));
    ReleaseDC(child, dc);
    DestroyWindow(child);
    UnregisterClassA("with background", description.hInstance);
    EXPECT_FALSE(DeleteObject(brush)) << "it went with its class";
}

TEST_F(Painting, ClassBackgroundIsLaidOnlyWhereItIsAskedFor)
{
    WNDCLASSEXA description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hbrBackground = CreateSolidBrush(RGB(9, 8, 7));
    description.lpszClassName = "with background, erased";
    ASSERT_NE(RegisterClassExA(&description), 0);
    const HWND child = CreateWindowExA(0, description.lpszClassName, "", WS_CHILD | WS_VISIBLE, 0, 0, 20, 20,
        parent.handle(), nullptr, description.hInstance, nullptr);
    test::pump();
    UpdateWindow(child);
    const HDC dc = GetDC(child);
    SetPixel(dc, 10, 10, RGB(1, 2, 3));
    InvalidateRect(child, nullptr, FALSE);
    UpdateWindow(child);
    EXPECT_EQ(GetPixel(dc, 10, 10), RGB(1, 2, 3));
    const RECT corner{0, 0, 1, 1};
    InvalidateRect(child, nullptr, FALSE);
    InvalidateRect(child, &corner, TRUE);
    UpdateWindow(child);
    EXPECT_EQ(GetPixel(dc, 10, 10), RGB(9, 8, 7)) << "one part to be erased has all of them erased";
    ReleaseDC(child, dc);
    DestroyWindow(child);
    UnregisterClassA(description.lpszClassName, description.hInstance);
}

TEST_F(Painting, SaysWhetherTheBackgroundIsStillToBeLaid)
{
    BOOL to_erase = FALSE;
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_PAINT)
            return {};
        PAINTSTRUCT paint{};
        BeginPaint(window.handle(), &paint);
        to_erase = paint.fErase;
        EndPaint(window.handle(), &paint);
        return 0;
    };
    InvalidateRect(window.handle(), nullptr, TRUE);
    UpdateWindow(window.handle());
    EXPECT_TRUE(to_erase) << "its class has no brush";
    InvalidateRect(window.handle(), nullptr, FALSE);
    UpdateWindow(window.handle());
    EXPECT_FALSE(to_erase);
}
