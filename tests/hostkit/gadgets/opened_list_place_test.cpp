#include "hostkit/gadgets/opened_list_place.h"

#include <gtest/gtest.h>

namespace {

using hostkit::place_opened_list;

constexpr RECT screen{100, 50, 1100, 850};

void expect_place(const hostkit::Opened_List_Place& place, int left, int top, int right, int bottom, int rows)
{
    EXPECT_EQ(place.window.left, left);
    EXPECT_EQ(place.window.top, top);
    EXPECT_EQ(place.window.right, right);
    EXPECT_EQ(place.window.bottom, bottom);
    EXPECT_EQ(place.rows, rows);
}

}

TEST(OpenedListPlace, BelowAndAsWideAsTheWidget)
{
    expect_place(place_opened_list({200, 100, 360, 124}, screen, 5, 20, 1), 200, 124, 360, 226, 5);
    expect_place(place_opened_list({200, 100, 360, 124}, screen, 1, 20, 1), 200, 124, 360, 146, 1);
}

TEST(OpenedListPlace, NeverMoreThanSixteenRows)
{
    expect_place(place_opened_list({200, 100, 360, 124}, screen, 5000, 20, 1), 200, 124, 360, 446, 16);
}

TEST(OpenedListPlace, AboveWhereThereIsNoRoomBelow)
{
    expect_place(place_opened_list({200, 800, 360, 824}, screen, 5, 20, 1), 200, 698, 360, 800, 5);
    expect_place(place_opened_list({200, 724, 360, 748}, screen, 5, 20, 1), 200, 748, 360, 850, 5);
    expect_place(place_opened_list({200, 725, 360, 749}, screen, 5, 20, 1), 200, 623, 360, 725, 5);
}

TEST(OpenedListPlace, WithTheRowsThatFitWhereThereIsMoreRoom)
{
    constexpr RECT low_screen{0, 0, 500, 200};
    expect_place(place_opened_list({10, 60, 170, 80}, low_screen, 100, 20, 1), 10, 80, 170, 182, 5);
    expect_place(place_opened_list({10, 140, 170, 160}, low_screen, 100, 20, 1), 10, 18, 170, 140, 6);
    expect_place(place_opened_list({10, 90, 170, 110}, low_screen, 100, 20, 1), 10, 110, 170, 192, 4);
}

TEST(OpenedListPlace, StaysOnTheScreen)
{
    expect_place(place_opened_list({40, 100, 200, 124}, screen, 3, 20, 1), 100, 124, 260, 186, 3);
    expect_place(place_opened_list({1050, 100, 1210, 124}, screen, 3, 20, 1), 940, 124, 1100, 186, 3);
    expect_place(place_opened_list({1050, 900, 1210, 924}, screen, 3, 20, 1), 940, 788, 1100, 850, 3);
    expect_place(place_opened_list({200, -90, 360, -66}, screen, 3, 20, 1), 200, 50, 360, 112, 3);
    expect_place(place_opened_list({0, 100, 5000, 124}, screen, 3, 20, 1), 100, 124, 1100, 186, 3);
}

TEST(OpenedListPlace, OneRowIsTheLeast)
{
    constexpr RECT tiny{0, 0, 100, 10};
    const auto place = place_opened_list({0, 0, 100, 10}, tiny, 100, 20, 1);
    EXPECT_EQ(place.rows, 1);
    EXPECT_EQ(place.window.top, 0);
}
