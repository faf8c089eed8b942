#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr unsigned vertical = 0x8000004;
constexpr unsigned from_the_top = 0xC000004;
constexpr unsigned horizontal = 0x8000000;
constexpr unsigned hidden = 7;

class Slider : public Widgets {
protected:
    Slider()
    {
        Place_Widget(slider, 20, 30, 16, 100);
        slider.state = vertical;
        slider.maximum = 200;
        slider.step = 10;
        slider.Larg_Adjust(100, 300);
        Point_Away();
    }

    // The thumb as it is seen: first and last pixel along the slider that differ from the trough.
    std::pair<int, int> Thumb()
    {
        slider.Draw();
        const bool upright = (slider.state & 4) != 0;
        const int length = upright ? slider.height : slider.width;
        const auto at = [&](int i) {
            return upright ? Pixel(slider.x + slider.width / 2, slider.y + i)
                           : Pixel(slider.x + i, slider.y + slider.height / 2);
        };
        const Colors trough = upright ? Pixel(slider.x, slider.y) : Pixel(slider.x, slider.y);
        int first = 0;
        int last = length - 1;
        while (first < length && at(first) == trough)
            ++first;
        while (last >= 0 && at(last) == trough)
            --last;
        return {first, last};
    }

    Sliders slider;
};

}

TEST_F(Slider, VerticalHasItsMinimumAtTheBottom)
{
    slider.value = 0;
    EXPECT_LT(Thumb().first, 4);
    slider.value = 200;
    EXPECT_GT(Thumb().second, 95);
}

TEST_F(Slider, WithBit26HasItsMinimumAtTheTop)
{
    slider.state = from_the_top;
    slider.value = 0;
    EXPECT_GT(Thumb().second, 95);
    slider.value = 200;
    EXPECT_LT(Thumb().first, 4);
}

TEST_F(Slider, HorizontalHasItsMinimumAtTheLeft)
{
    Place_Widget(slider, 20, 30, 100, 16);
    slider.state = horizontal;
    slider.value = 0;
    EXPECT_LT(Thumb().first, 4);
    slider.value = 200;
    EXPECT_GT(Thumb().second, 95);
}

TEST_F(Slider, ThumbHasTheShareThatIsVisible)
{
    slider.Larg_Adjust(50, 100);
    const auto [first, last] = Thumb();
    EXPECT_NEAR(last - first + 1, 50, 5);
}

TEST_F(Slider, ThumbIsNeverShorterThanSixteenPixels)
{
    slider.Larg_Adjust(1, 1000000);
    slider.value = 0;
    // A press on each of the lowest sixteen pixels holds the thumb where it is; the next is trough.
    for (int i = 0; i < 16; ++i) {
        Point(28, 30 + i);
        ASSERT_NE(slider.Select(left_press), 0);
        EXPECT_EQ(slider.Read(), 0) << i;
        slider.Select(0);
    }
    Point(28, 46);
    slider.Select(left_press);
    EXPECT_GT(slider.Read(), 0);
}

TEST_F(Slider, SharesOutsideZeroToOneAreCut)
{
    slider.Larg_Adjust(300, 100);
    EXPECT_EQ(slider.thumb, 1.0f);
    slider.Larg_Adjust(-1, 100);
    EXPECT_EQ(slider.thumb, 0.0f);
    slider.Larg_Adjust(10, 0);
    EXPECT_EQ(slider.thumb, 1.0f);
}

// ------------------------------------------------------------------------------------------------------- scroll

TEST_F(Slider, ScrollMovesTheThumbDown)
{
    slider.value = 100;
    EXPECT_EQ(slider.Scroll(1), 1);
    EXPECT_EQ(slider.value, 90) << "downward is towards the minimum";
    EXPECT_EQ(slider.Scroll(-3), 1);
    EXPECT_EQ(slider.value, 120);
}

TEST_F(Slider, ScrollOfAReversedSliderRaisesTheValue)
{
    slider.state = from_the_top;
    slider.value = 100;
    EXPECT_EQ(slider.Scroll(2), 1);
    EXPECT_EQ(slider.value, 120);
}

TEST_F(Slider, ScrollMovesAHorizontalThumbRight)
{
    slider.state = horizontal;
    slider.value = 100;
    EXPECT_EQ(slider.Scroll(1), 1);
    EXPECT_EQ(slider.value, 110);
}

TEST_F(Slider, ScrollStopsAtTheEnds)
{
    slider.value = 5;
    EXPECT_EQ(slider.Scroll(1), 1);
    EXPECT_EQ(slider.value, 0);
    EXPECT_EQ(slider.Scroll(1), 0);
    EXPECT_EQ(slider.Scroll(-1000), 1);
    EXPECT_EQ(slider.value, 200);
    EXPECT_EQ(slider.Scroll(-1), 0);
}

TEST_F(Slider, ScrollRedrawsOnlyOnAChange)
{
    slider.value = 100;
    slider.Draw();
    Wipe();
    slider.Scroll(0);
    EXPECT_TRUE(Untouched(slider));
    slider.Scroll(1);
    EXPECT_FALSE(Untouched(slider));
}

TEST_F(Slider, InactiveDoesNotScroll)
{
    slider.value = 100;
    for (const unsigned bits : {1u, 2u, 32u, 35u}) {
        slider.state = vertical | bits;
        EXPECT_EQ(slider.Scroll(1), 0) << bits;
        EXPECT_EQ(slider.value, 100) << bits;
    }
}

TEST_F(Slider, WithoutARangeKeepsItsValueAndTakesNothing)
{
    for (const float maximum : {0.0f, -30.0f}) {
        slider.maximum = maximum;
        slider.value = maximum;
        const auto [first, last] = Thumb();
        EXPECT_LT(first, 4) << "a full thumb";
        EXPECT_GT(last, 95);
        EXPECT_EQ(slider.Scroll(1), 0);
        Point(28, 80);
        EXPECT_EQ(slider.Select(left_press), 0);
        EXPECT_EQ(slider.Read(), maximum);
        EXPECT_EQ(slider.value, maximum);
    }
}

// ------------------------------------------------------------------------------------------------------- hiding

TEST_F(Slider, HiddenErasesItselfOnce)
{
    slider.Draw();
    slider.state = hidden;
    slider.Init(nullptr);
    slider.Draw();
    for (const COLORREF color : Look(slider))
        ASSERT_EQ(color, dark.get());
    Wipe();
    slider.Draw();
    EXPECT_TRUE(Untouched(slider)) << "other widgets lie there now";
}

TEST_F(Slider, HiddenFromTheStartPaintsNothing)
{
    slider.state = hidden;
    slider.Draw();
    EXPECT_TRUE(Untouched(slider));
    Point(28, 80);
    EXPECT_EQ(slider.Select(left_press), 0);
    EXPECT_EQ(slider.Select(question), 0);
    EXPECT_TRUE(Untouched(slider));
}

TEST_F(Slider, ErasesItselfAgainAfterItWasShownAgain)
{
    slider.state = hidden;
    slider.Draw();
    slider.state = vertical;
    slider.Draw();
    slider.state = hidden;
    slider.Draw();
    EXPECT_EQ(Pixel(28, 80), dark);
}

TEST_F(Slider, GreyedIsShownFaintly)
{
    slider.Draw();
    const auto active = Look(slider);
    slider.state = vertical | 35;
    slider.Draw();
    EXPECT_NE(Look(slider), active);
    EXPECT_FALSE(Spills(slider));
}

TEST_F(Slider, AdjustDrawsOnlyAnotherThumbOrState)
{
    const auto adjusts = [this] {
        Wipe();
        slider.Adjust();
        return !Untouched(slider);
    };
    EXPECT_TRUE(adjusts()) << "nothing was shown yet";
    EXPECT_FALSE(adjusts());
    slider.value = 0.1f;
    EXPECT_FALSE(adjusts()) << "the same pixels";
    slider.value = 100;
    EXPECT_TRUE(adjusts());
    slider.value = 0;
    EXPECT_TRUE(adjusts());
    slider.Larg_Adjust(100, 200);
    EXPECT_TRUE(adjusts()) << "a longer thumb from the same pixel";
    slider.state = vertical | 35;
    EXPECT_TRUE(adjusts());
    EXPECT_FALSE(adjusts());
    slider.state = hidden;
    EXPECT_TRUE(adjusts()) << "what was shown goes";
    EXPECT_FALSE(adjusts());
}
