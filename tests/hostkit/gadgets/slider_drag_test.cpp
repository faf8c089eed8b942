#include "tests/hostkit/gadgets/widget_fixture.h"

#include <cmath>

using namespace test;

namespace {

constexpr unsigned vertical = 0x8000004;
constexpr unsigned from_the_top = 0xC000004;

// A slider of 100 pixels with a thumb of 20: its start moves over 80 pixels, of 10 values each.
class SliderDrag : public Widgets {
protected:
    SliderDrag()
    {
        Place_Widget(slider, 20, 30, 16, 100);
        slider.state = vertical;
        slider.maximum = 800;
        slider.Larg_Adjust(20, 100);
        Point_Away();
    }

    void Press(int position)
    {
        Point(28, 30 + position);
        ASSERT_NE(slider.Select(left_press), 0);
    }

    void Drag(int position)
    {
        Point(28, 30 + position);
        ASSERT_NE(slider.Select(left_drag), 0);
    }

    Sliders slider;
};

}

TEST_F(SliderDrag, PressOnTheThumbKeepsTheGrip)
{
    slider.value = 400; // the thumb is at 40 to 59
    Press(45);
    EXPECT_EQ(slider.Read(), 400);
    Drag(50);
    EXPECT_FLOAT_EQ(slider.Read(), 450);
    EXPECT_FLOAT_EQ(slider.value, 450);
    Drag(25);
    EXPECT_FLOAT_EQ(slider.Read(), 200);
}

TEST_F(SliderDrag, PressOnTheThumbNeverMovesIt)
{
    for (int value = 0; value <= 800; ++value) {
        slider.value = static_cast<float>(value);
        const int start = static_cast<int>(std::lround(static_cast<float>(value) / 10));
        for (const int position : {start, start + 7, start + 19}) {
            Press(position);
            ASSERT_EQ(slider.Read(), static_cast<float>(value)) << position;
            Drag(position);
            ASSERT_EQ(slider.Read(), static_cast<float>(value)) << position;
            slider.Select(0);
        }
    }
}

TEST_F(SliderDrag, PressOnTheTroughBringsTheThumbsCentre)
{
    slider.value = 0;
    Press(70);
    EXPECT_FLOAT_EQ(slider.Read(), 600);
    Drag(71);
    EXPECT_FLOAT_EQ(slider.Read(), 610);
}

TEST_F(SliderDrag, ReversedSliderFollowsThePointerToo)
{
    slider.state = from_the_top;
    slider.value = 800; // the thumb is at the bottom
    Press(5);
    EXPECT_EQ(slider.Read(), 800);
    Drag(15);
    EXPECT_FLOAT_EQ(slider.Read(), 700);
}

TEST_F(SliderDrag, HorizontalSliderFollowsThePointerToo)
{
    Place_Widget(slider, 20, 30, 100, 16);
    slider.state = 0x8000000;
    slider.value = 0;
    Point(25, 38);
    ASSERT_NE(slider.Select(left_press), 0);
    EXPECT_EQ(slider.Read(), 0);
    Point(35, 300);
    ASSERT_NE(slider.Select(left_drag), 0) << "the pointer may leave it";
    EXPECT_FLOAT_EQ(slider.Read(), 100);
}

TEST_F(SliderDrag, ValuesStopAtTheEnds)
{
    slider.value = 400;
    Press(45);
    slider.Read();
    Drag(500);
    EXPECT_EQ(slider.Read(), 800);
    Drag(-500);
    EXPECT_EQ(slider.Read(), 0);
}

TEST_F(SliderDrag, RangesNeedNotBeginAtZero)
{
    slider.minimum = -100;
    slider.maximum = 700;
    slider.value = -100;
    Press(0);
    EXPECT_EQ(slider.Read(), -100);
    Drag(80);
    EXPECT_EQ(slider.Read(), 700);
}

TEST_F(SliderDrag, EndsWithTheFirstWordWithoutAButton)
{
    Press(5);
    slider.Read();
    EXPECT_EQ(slider.Select(0), 0);
    EXPECT_EQ(slider.Select(left_drag), 0) << "no longer held";
    const float value = slider.value;
    Point(28, 110);
    EXPECT_EQ(slider.Read(), value);
}

TEST_F(SliderDrag, EndsWithDeselectAndWithAPressElsewhere)
{
    Press(5);
    slider.Deselect();
    EXPECT_EQ(slider.Select(left_drag), 0);
    Press(5);
    Point_Away();
    EXPECT_EQ(slider.Select(left_press), 0);
    Point(28, 35);
    EXPECT_EQ(slider.Select(left_drag), 0);
}

TEST_F(SliderDrag, EndsWhenTheSliderIsHidden)
{
    Press(5);
    slider.state = 7;
    EXPECT_EQ(slider.Select(left_drag), 0);
    slider.state = vertical;
    EXPECT_EQ(slider.Select(left_drag), 0);
}

TEST_F(SliderDrag, QuestionSaysWhetherThePointerIsOverWithoutAnEffect)
{
    slider.Draw();
    Wipe();
    Point(28, 60);
    EXPECT_NE(slider.Select(question), 0);
    EXPECT_TRUE(Untouched(slider));
    Point_Away();
    EXPECT_EQ(slider.Select(question), 0);
    Press(5);
    Point_Away();
    slider.Select(question);
    EXPECT_NE(slider.Select(left_drag), 0) << "still held";
}

TEST_F(SliderDrag, HeldButtonFromElsewhereDoesNotGrab)
{
    Point(28, 60);
    EXPECT_EQ(slider.Select(left_drag), 0);
    EXPECT_EQ(slider.Select(16), 0);
}

TEST_F(SliderDrag, HoverDrawsOnlyOnAChange)
{
    slider.Draw();
    Wipe();
    slider.Select(0);
    EXPECT_TRUE(Untouched(slider));
    Point(28, 60);
    EXPECT_EQ(slider.Select(0), 0);
    EXPECT_FALSE(Untouched(slider));
    Wipe();
    slider.Select(0);
    EXPECT_TRUE(Untouched(slider));
    slider.Deselect();
    EXPECT_FALSE(Untouched(slider));
}
