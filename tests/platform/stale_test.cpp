#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

// In a program of its own: a stale handle that is not refused ends the process, and no other test is to be lost with
// it.

TEST(Context, OfADestroyedWindowIsRefusedThoughANewWindowTakesTheOldPlace)
{
    std::vector<HDC> stale;
    for (int i = 0; i < 20; ++i) {
        const test::Test_Window gone;
        stale.push_back(GetDC(gone.handle()));
    }
    const test::Test_Window fresh;
    for (const HDC dc : stale)
        EXPECT_EQ(SetPixel(dc, 1, 1, RGB(1, 2, 3)), CLR_INVALID);
}
