#include "hostkit/gadgets/opened_list_place.h"
#include "tests/hostkit/gadgets/widget_fixture.h"
#include "tests/support/modal_work.h"

#include <functional>

using namespace test;

// The opened select list, fed with messages while it waits.

namespace {

SIZE size_of(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

class OpenedList : public Widgets {
protected:
    static constexpr int row = 20;
    static constexpr int width = 160;

    OpenedList()
    {
        MoveWindow(main_window(), 0, 0, 400, 300, TRUE);
        Place_Widget(select, 30, 260, width, row);
        select.state = 8448;
        select.arrow = 16;
        Fill(5);
        select.Draw();
    }

    void Fill(int count)
    {
        select.Grow(count, 0);
        for (int i = 0; i < count; ++i)
            select.Set_Item(i, std::to_string(i + 1).c_str());
    }

    // Presses the select list and does some work while it is open. @return what was chosen
    int Open(std::function<void(HWND list)> work)
    {
        modal_.post(std::move(work));
        Point(100, 270);
        EXPECT_NE(select.Select(left_press), 0);
        const int chosen = select.Read();
        EXPECT_TRUE(modal_.done()) << "the list did not wait";
        return chosen;
    }

    // The middle of a row, counted from the top.
    static Place Row(HWND list, int number) { return {40, size_of(list).cy - 1 - row * number - row / 2 - 1}; }

    static void Press_Keys(HWND list, std::initializer_list<int> keys)
    {
        for (const int one : keys)
            key(list, one);
    }

    // Which rows are lighter than the others: the highlighted ones.
    static std::vector<int> Highlighted(HWND list, int rows)
    {
        std::vector<int> found;
        for (int i = 0; i < rows; ++i) {
            const Colors color = pixel(list, {width / 2, Row(list, i).y});
            if (color.red > 0x40)
                found.push_back(i);
        }
        return found;
    }

    Selects select;

private:
    Modal_Work modal_;
};

}

TEST_F(OpenedList, AClickChoosesAnItem)
{
    EXPECT_EQ(Open([&](HWND list) {
        EXPECT_TRUE(IsWindowVisible(list));
        click(list, Row(list, 3));
    }),
        3);
    EXPECT_EQ(select.value, 0);
}

TEST_F(OpenedList, ItemsMayHaveAHeightOfTheirOwn)
{
    constexpr int height = 13;
    select.item_height = height;
    const Selects copy(select);
    EXPECT_EQ(copy.item_height, height);
    EXPECT_EQ(Open([&](HWND list) {
        EXPECT_EQ(size_of(list).cy, 5 * height + 2);
        click(list, {40, size_of(list).cy - 1 - height * 3 - height / 2 - 1});
    }),
        3);
}

TEST_F(OpenedList, ReleasingTheButtonThatOpenedItChoosesToo)
{
    EXPECT_EQ(Open([&](HWND list) {
        move(list, Row(list, 1));
        release(list, Row(list, 2));
    }),
        2);
}

TEST_F(OpenedList, ReleasingItElsewhereKeepsTheListOpen)
{
    EXPECT_EQ(Open([&](HWND list) {
        release(list, {40, size_of(list).cy + 5}); // still over the closed list
        click(list, Row(list, 4));
    }),
        4);
}

TEST_F(OpenedList, APressElsewhereDismisses)
{
    for (const Place place : {Place{40, 500}, {-3, 50}, {500, 50}, {40, -10}}) {
        EXPECT_EQ(Open([&](HWND list) {
            press(list, place);
            click(list, Row(list, 1)); // too late
        }),
            -1)
            << place.x << ' ' << place.y;
    }
}

TEST_F(OpenedList, TheFrameChoosesNothing)
{
    EXPECT_EQ(Open([&](HWND list) {
        click(list, {40, 0});
        click(list, {0, 40});
        click(list, {40, size_of(list).cy - 1});
        click(list, {width - 1, 40});
        click(list, Row(list, 1));
    }),
        1);
}

TEST_F(OpenedList, EscapeFocusLossAndClosingDismiss)
{
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_DOWN, VK_ESCAPE, VK_RETURN}); }), -1);
    for (const UINT message : {WM_KILLFOCUS, WM_CLOSE}) {
        EXPECT_EQ(Open([&](HWND list) {
            SendMessageA(list, message, 0, 0);
            Press_Keys(list, {VK_RETURN});
        }),
            -1);
    }
}

TEST_F(OpenedList, IsGoneWithTheWindowItBelongsTo)
{
    EXPECT_EQ(Open([&](HWND list) { DestroyWindow(list); }), -1);
}

TEST_F(OpenedList, LeavesNoWindowFocusOrCaptureBehind)
{
    SetFocus(main_window());
    const HWND focus = GetFocus();
    SetCapture(main_window());
    HWND opened = nullptr;
    Open([&](HWND list) {
        opened = list;
        EXPECT_NE(list, main_window());
        EXPECT_EQ(GetFocus(), list);
        click(list, Row(list, 1));
    });
    EXPECT_FALSE(IsWindow(opened));
    EXPECT_EQ(GetFocus(), focus);
    EXPECT_EQ(GetCapture(), main_window()) << "whoever had the mouse has it again";
    ReleaseCapture();
}

TEST_F(OpenedList, EndsWithTheProgramWhichHearsOfIt)
{
    EXPECT_EQ(Open([&](HWND) { PostQuitMessage(3); }), -1);
    MSG message{};
    // What woke the list may be waiting still.
    BOOL more = GetMessageA(&message, nullptr, 0, 0);
    while (more)
        more = GetMessageA(&message, nullptr, 0, 0);
    EXPECT_EQ(message.message, WM_QUIT);
    EXPECT_EQ(message.wParam, 3u);
}

// -------------------------------------------------------------------------------------------------------- keys

TEST_F(OpenedList, EnterChoosesTheCurrentItemAtFirst)
{
    select.value = 3;
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_RETURN}); }), 3);
}

TEST_F(OpenedList, KeysMoveTheHighlight)
{
    Fill(100);
    select.value = 50;
    struct Case {
        int key;
        int to;
    };
    for (const Case& one : {Case{VK_UP, 49}, {VK_DOWN, 51}, {VK_LEFT, 49}, {VK_RIGHT, 51}, {VK_HOME, 0}, {VK_END, 99},
             {VK_SPACE, 50}, {VK_TAB, 50}})
        EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {one.key, VK_RETURN}); }), one.to) << one.key;
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_NEXT, VK_RETURN}); }), 50 + hostkit::most_opened_rows);
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_PRIOR, VK_RETURN}); }), 50 - hostkit::most_opened_rows);
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_HOME, VK_UP, VK_PRIOR, VK_RETURN}); }), 0);
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_END, VK_DOWN, VK_NEXT, VK_RETURN}); }), 99);
}

TEST_F(OpenedList, AMotionThatIsNoneLeavesTheKeysHighlight)
{
    EXPECT_EQ(Open([&](HWND list) {
        move(list, Row(list, 3));
        Press_Keys(list, {VK_HOME});
        move(list, Row(list, 3));
        Press_Keys(list, {VK_RETURN});
    }),
        0);
}

TEST_F(OpenedList, EnterChoosesTheItemUnderThePointer)
{
    EXPECT_EQ(Open([&](HWND list) {
        release(list, {40, 200});
        move(list, Row(list, 2));
        Press_Keys(list, {VK_RETURN});
    }),
        2);
}

TEST_F(OpenedList, ACurrentItemThatDoesNotExistIsTheLastOne)
{
    select.value = 900;
    EXPECT_EQ(Open([&](HWND list) { Press_Keys(list, {VK_RETURN}); }), 4);
}

// ------------------------------------------------------------------------------------------ drawing, scrolling

TEST_F(OpenedList, HighlightsOneRow)
{
    select.value = 1;
    Open([&](HWND list) {
        UpdateWindow(list);
        EXPECT_EQ(Highlighted(list, 5), (std::vector<int>{1}));
        move(list, Row(list, 3));
        EXPECT_EQ(Highlighted(list, 5), (std::vector<int>{3}));
        move(list, {-20, -20});
        EXPECT_EQ(Highlighted(list, 5), (std::vector<int>{3})) << "the last one";
    });
}

TEST_F(OpenedList, MarksTheCurrentItem)
{
    select.value = 1;
    Open([&](HWND list) {
        UpdateWindow(list);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(pixel(list, {2, Row(list, i).y}) == light, i == 1) << i;
        keep_picture(list, "opened_list");
    });
}

TEST_F(OpenedList, AShortListShowsAllItsItemsWithoutASlider)
{
    Open([&](HWND list) {
        EXPECT_EQ(size_of(list).cx, width);
        EXPECT_EQ(size_of(list).cy, 5 * row + 2);
        turn_wheel(list, Row(list, 0), -WHEEL_DELTA);
        click(list, {width - 3, Row(list, 0).y});
    });
    EXPECT_EQ(Open([&](HWND list) { click(list, {width - 3, Row(list, 0).y}); }), 0) << "no slider";
}

TEST_F(OpenedList, ALongListShowsSixteenRowsAroundTheCurrentItem)
{
    Fill(3000);
    select.value = 1500;
    EXPECT_EQ(Open([&](HWND list) {
        EXPECT_EQ(size_of(list).cy, 16 * row + 2);
        UpdateWindow(list);
        keep_picture(list, "opened_list_long");
        click(list, Row(list, 0));
    }),
        1500 - 8);
    select.value = 0;
    EXPECT_EQ(Open([&](HWND list) { click(list, Row(list, 0)); }), 0);
    select.value = 2999;
    EXPECT_EQ(Open([&](HWND list) { click(list, Row(list, 15)); }), 2999);
}

TEST_F(OpenedList, TheWheelScrollsThreeRowsANotch)
{
    Fill(100);
    EXPECT_EQ(Open([&](HWND list) {
        turn_wheel(list, Row(list, 0), -2 * WHEEL_DELTA);
        turn_wheel(list, Row(list, 0), WHEEL_DELTA);
        click(list, Row(list, 0));
    }),
        3);
    EXPECT_EQ(Open([&](HWND list) {
        turn_wheel(list, Row(list, 2), -WHEEL_DELTA);
        Press_Keys(list, {VK_RETURN});
    }),
        5)
        << "the item that has come under the pointer";
}

TEST_F(OpenedList, TheWheelStopsAtTheEndsAndKeepsItsRest)
{
    Fill(100);
    EXPECT_EQ(Open([&](HWND list) {
        turn_wheel(list, Row(list, 0), -100 * WHEEL_DELTA);
        click(list, Row(list, 15));
    }),
        99);
    EXPECT_EQ(Open([&](HWND list) {
        turn_wheel(list, Row(list, 0), 5 * WHEEL_DELTA);
        turn_wheel(list, Row(list, 0), -60);
        turn_wheel(list, Row(list, 0), -60);
        click(list, Row(list, 0));
    }),
        3);
}

TEST_F(OpenedList, KeysScrollNoFurtherThanNeeded)
{
    Fill(100);
    EXPECT_EQ(Open([&](HWND list) {
        for (int i = 0; i < 16; ++i)
            Press_Keys(list, {VK_DOWN});
        click(list, Row(list, 0));
    }),
        1);
    select.value = 99;
    EXPECT_EQ(Open([&](HWND list) {
        for (int i = 0; i < 16; ++i)
            Press_Keys(list, {VK_UP});
        click(list, Row(list, 15));
    }),
        98);
}

TEST_F(OpenedList, TheSliderScrollsAndChoosesNothing)
{
    Fill(100);
    EXPECT_EQ(Open([&](HWND list) {
        const Place low{width - 8, 2};
        const Place high{width - 8, size_of(list).cy - 3};
        press(list, low);
        move(list, {width - 8, -100}); // the mouse may leave the list
        release(list, Row(list, 3));   // even to an item
        EXPECT_EQ(Highlighted(list, 16), std::vector<int>{}) << "the highlighted item is out of sight";
        press(list, high);
        move(list, {width - 8, 500});
        release(list, high);
        click(list, Row(list, 0));
    }),
        0);
    EXPECT_EQ(Open([&](HWND list) {
        press(list, {width - 8, 2});
        move(list, {width - 8, -100});
        release(list, {width - 8, -100});
        click(list, Row(list, 15));
    }),
        99);
}

TEST_F(OpenedList, LeavesTheItemsAlone)
{
    Fill(20);
    Selects before(select);
    Open([&](HWND list) { Press_Keys(list, {VK_END, VK_RETURN}); });
    EXPECT_EQ(select.value, before.value);
    EXPECT_EQ(select.Count(), 20);
    EXPECT_STREQ(select.Item(19), "20");
}

// ------------------------------------------------------------------------------------------------------- place

TEST_F(OpenedList, OpensBelowItsWidget)
{
    Open([&](HWND list) {
        POINT corner{0, 0};
        ClientToScreen(list, &corner);
        POINT widget{30, 300 - 260};
        ClientToScreen(main_window(), &widget);
        EXPECT_EQ(corner.x, widget.x);
        EXPECT_EQ(corner.y, widget.y);
    });
}
