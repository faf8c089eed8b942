#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

using Box = Widgets;

}

TEST_F(Box, HitIncludesItsCornersAndNothingAround)
{
    Boxs box;
    Place_Widget(box, 20, 30, 40, 10);
    for (const auto& [x, y] : {POINT{20, 30}, {59, 30}, {20, 39}, {59, 39}}) {
        Point(x, y);
        EXPECT_NE(box.Select(0), 0) << x << "," << y;
    }
    for (const auto& [x, y] : {POINT{19, 30}, {60, 30}, {20, 29}, {20, 40}}) {
        Point(x, y);
        EXPECT_EQ(box.Select(0), 0) << x << "," << y;
    }
}

TEST_F(Box, HitDoesNotDependOnStateOrWord)
{
    Boxs box;
    Place_Widget(box, 20, 30, 40, 10);
    Point(25, 35);
    for (const unsigned state : {0u, 3u, 35u, 66u, 80u, 83u}) {
        box.state = state;
        for (const int word : {0, 1, 2, 4, 18, 66})
            EXPECT_NE(box.Select(word), 0) << state << " " << word;
    }
    EXPECT_TRUE(Untouched(box));
}

TEST_F(Box, HasAFrameAndAFilledBackground)
{
    Boxs box;
    Place_Widget(box, 20, 30, 40, 20);
    box.state = 66;
    box.Draw();
    for (const auto& [x, y] : {POINT{20, 30}, {59, 30}, {20, 49}, {59, 49}})
        EXPECT_EQ(Pixel(x, y), edge) << x << "," << y;
    EXPECT_EQ(Pixel(21, 31), dark);
    EXPECT_EQ(Pixel(58, 48), dark);
    EXPECT_FALSE(Spills(box));
}

TEST_F(Box, WithoutAFrameWidthHasNoFrame)
{
    Boxs box;
    Place_Widget(box, 20, 30, 40, 20);
    box.border = 0;
    box.state = 66;
    box.Draw();
    EXPECT_EQ(Pixel(20, 30), dark);
}

TEST_F(Box, IsDrawnWhateverItsInactiveBits)
{
    Boxs box;
    Place_Widget(box, 20, 30, 40, 20);
    box.state = 83;
    box.Draw();
    EXPECT_EQ(Pixel(30, 40), dark);
}

TEST_F(Box, SunkenFrameIsAnotherOne)
{
    Boxs raised;
    Boxs sunken;
    Place_Widget(raised, 20, 30, 40, 20);
    Place_Widget(sunken, 120, 30, 40, 20);
    raised.state = 66;
    sunken.state = 80;
    raised.Draw();
    sunken.Draw();
    EXPECT_NE(Look(raised), Look(sunken));
}

TEST_F(Box, ItsCaptionLiesAlongTheUpperEdge)
{
    Boxs box;
    Place_Widget(box, 20, 30, 120, 60);
    box.state = 66;
    box.Draw();
    const auto without = Look(box);
    box.Set_Name("Propagate");
    box.Draw();
    const auto with = Look(box);
    int lowest = 60, highest = -1;
    for (int i = 0; i < 120 * 60; ++i) {
        if (with[static_cast<size_t>(i)] != without[static_cast<size_t>(i)]) {
            lowest = std::min(lowest, i / 120);
            highest = i / 120;
        }
    }
    EXPECT_GE(lowest, 40) << "in the height of one line";
    EXPECT_GE(highest, 50);
    EXPECT_LT(highest, 59) << "not on the frame";
    EXPECT_FALSE(Spills(box));
}

TEST_F(Box, ACaptionThatIsTooLongStaysInside)
{
    Boxs box;
    Place_Widget(box, 20, 30, 60, 40);
    box.state = 66;
    box.Set_Name("A caption that is too long");
    box.Draw();
    EXPECT_FALSE(Spills(box));
    for (int y = 30; y < 70; ++y)
        EXPECT_EQ(Pixel(79, y), edge);
}

TEST_F(Box, ClearFillsExactlyTheRectangle)
{
    Boxs box;
    Place_Widget(box, 20, 30, 3, 5);
    box.Clear({0x12, 0x34, 0x56});
    for (const COLORREF color : Look(box))
        EXPECT_EQ(color, COLORREF{0x563412});
    EXPECT_FALSE(Spills(box));
}

TEST_F(Box, InitWithoutAWindowKeepsTheOneItHas)
{
    Boxs box;
    Place_Widget(box, 20, 30, 40, 20);
    box.Init(nullptr);
    EXPECT_EQ(box.window, main_window());
}

TEST_F(Box, WidgetsWithoutAWindowDoNothing)
{
    Boxs box;
    Buttons button;
    Sliders slider;
    Texts editor;
    Point(0, 0);
    box.Init(nullptr);
    box.Draw();
    box.Clear(light);
    EXPECT_EQ(box.Select(left_press), 0);
    button.Draw();
    button.Adjust();
    EXPECT_EQ(button.Select(left_press), 0);
    button.Deselect();
    EXPECT_EQ(button.Picture(1), nullptr);
    slider.maximum = 10;
    slider.step = 1;
    slider.Draw();
    EXPECT_EQ(slider.Select(left_press), 0);
    EXPECT_EQ(slider.Read(), 0);
    slider.Deselect();
    editor.Draw();
    editor.Write();
    EXPECT_EQ(editor.Select(left_press, 0, 0), 0);
    EXPECT_TRUE(reports.all().empty());
}
