#include "hostkit/gadgets/track.h"
#include "tests/hostkit/gadgets/valuator_fixture.h"

#include <limits>

// What valuators show.

using namespace test;

namespace {

class Valuator_Look : public Valuator {
protected:
    // How many pixels of the middle column, from its lower end, have the colour of its third one.
    int Filled()
    {
        valuator.Draw();
        const Colors level = Pixel(28, 33);
        int filled = 3;
        while (filled < 150 && Pixel(28, 30 + filled) == level)
            ++filled;
        return filled;
    }

    std::vector<COLORREF> Drawn(float value)
    {
        valuator.value = value;
        valuator.Draw();
        return Look(valuator);
    }

    // Whether Adjust draws now.
    bool Adjusts()
    {
        Wipe();
        valuator.Adjust();
        return !Untouched(valuator);
    }

    void Show_No_Number() { valuator.state &= ~(1u << 25); }
};

std::string in_short(float value)
{
    return hostkit::short_number(value).data();
}

}

TEST_F(Valuator_Look, LevelReachesFromTheMinimumToTheThumb)
{
    Show_No_Number();
    Make_Even(50);
    EXPECT_NEAR(Filled(), 75, 3);
    valuator.value = 25;
    EXPECT_NEAR(Filled(), 4 + 142 / 4, 3);
    valuator.state |= 1u << 26;
    EXPECT_NEAR(Filled(), 150 - 4 - 142 / 4, 3);
}

TEST_F(Valuator_Look, LevelOfDecadesIsAtTheMiddleForTheGeometricMean)
{
    Show_No_Number();
    valuator.value = 0.0316f;
    EXPECT_NEAR(Filled(), 75, 3);
}

TEST_F(Valuator_Look, StaysInItsRectangle)
{
    for (const float value : {0.001f, 0.0316f, 0.25f, 1.0f}) {
        Wipe();
        Drawn(value);
        EXPECT_FALSE(Spills(valuator)) << value;
    }
}

TEST_F(Valuator_Look, OutsideItsLimitsIsAtTheirPlace)
{
    Show_No_Number();
    EXPECT_EQ(Drawn(7), Drawn(1));
    EXPECT_EQ(Drawn(0), Drawn(0.001f));
    EXPECT_EQ(Drawn(-3), Drawn(0.001f));
    EXPECT_EQ(Drawn(std::numeric_limits<float>::quiet_NaN()), Drawn(0.001f));
}

TEST_F(Valuator_Look, NumberIsShownWithItsBitOnly)
{
    const auto with_number = Drawn(0.25f);
    Show_No_Number();
    EXPECT_NE(Drawn(0.25f), with_number);
}

TEST_F(Valuator_Look, NumberSaysTheValueWhereTheThumbDoesNot)
{
    valuator.minimum = 0;
    valuator.maximum = 10000;
    EXPECT_NE(Drawn(6), Drawn(7));
    Show_No_Number();
    EXPECT_EQ(Drawn(6), Drawn(7));
}

TEST_F(Valuator_Look, NumberIsLeftOutWhereItCannotBeRead)
{
    for (const auto& [width, height] : {std::pair<short, short>{10, 150}, {16, 24}}) {
        valuator.state = upright;
        valuator.width = width;
        valuator.height = height;
        const auto with_bit = Drawn(0.25f);
        Show_No_Number();
        EXPECT_EQ(Drawn(0.25f), with_bit) << width << " x " << height;
    }
}

TEST_F(Valuator_Look, NumberIsBesideTheThumbOfALyingOneToo)
{
    Place_Widget(valuator, 20, 30, 150, 16);
    valuator.state = lying;
    for (const float value : {0.001f, 0.25f, 1.0f}) {
        valuator.state |= 1u << 25;
        Wipe();
        const auto with_number = Drawn(value);
        EXPECT_FALSE(Spills(valuator));
        Show_No_Number();
        EXPECT_NE(Drawn(value), with_number) << value;
    }
}

TEST_F(Valuator_Look, AdjustDrawsOnlyAnotherLook)
{
    EXPECT_TRUE(Adjusts()) << "nothing was shown yet";
    EXPECT_FALSE(Adjusts());
    valuator.value = 0.999999f;
    EXPECT_FALSE(Adjusts()) << "the same pixel and the same number";
    valuator.value = 0.5f;
    EXPECT_TRUE(Adjusts());
    EXPECT_FALSE(Adjusts());
}

TEST_F(Valuator_Look, AdjustDrawsAnotherNumberOnlyWhereOneIsShown)
{
    valuator.minimum = 0;
    valuator.maximum = 10000;
    Drawn(6);
    valuator.value = 7;
    EXPECT_TRUE(Adjusts());
    Show_No_Number();
    Drawn(6);
    valuator.value = 7;
    EXPECT_FALSE(Adjusts());
}

TEST_F(Valuator_Look, AdjustDrawsOtherLimitsOrAnotherStateOrPlace)
{
    Drawn(0.5f);
    valuator.minimum = 0.1f;
    EXPECT_TRUE(Adjusts());
    valuator.state |= 35;
    EXPECT_TRUE(Adjusts());
    valuator.state = upright;
    EXPECT_TRUE(Adjusts());
    Place_Widget(valuator, 60, 30, 16, 150);
    EXPECT_TRUE(Adjusts());
    EXPECT_FALSE(Adjusts());
}

TEST_F(Valuator_Look, AdjustAfterAPressShowsThatItIsHeld)
{
    Drawn(0.5f);
    Press(130);
    valuator.Read();
    EXPECT_TRUE(Adjusts());
    EXPECT_FALSE(Adjusts());
}

TEST_F(Valuator_Look, HoverAndDeselectDrawOnlyOnAChange)
{
    Drawn(0.5f);
    Point(28, 60);
    Wipe();
    EXPECT_EQ(valuator.Select(0), 0);
    EXPECT_FALSE(Untouched(valuator));
    Wipe();
    valuator.Select(0);
    EXPECT_TRUE(Untouched(valuator));
    valuator.Deselect();
    EXPECT_FALSE(Untouched(valuator));
    Wipe();
    valuator.Deselect();
    EXPECT_TRUE(Untouched(valuator));
}

TEST_F(Valuator_Look, GreyedIsShownFaintly)
{
    const auto active = Drawn(0.5f);
    valuator.state |= 35;
    EXPECT_NE(Drawn(0.5f), active);
}

TEST_F(Valuator_Look, HiddenErasesItselfOnce)
{
    Drawn(0.5f);
    valuator.state |= 3;
    valuator.Adjust();
    for (const COLORREF color : Look(valuator))
        ASSERT_EQ(color, dark.get());
    EXPECT_FALSE(Adjusts()) << "other widgets lie there now";
}

TEST_F(Valuator_Look, WithoutAWindowDrawsNothingAndTakesNothing)
{
    Valuators none;
    none.maximum = 1;
    none.Draw();
    none.Adjust();
    EXPECT_EQ(none.Select(left_press), 0);
    EXPECT_EQ(none.Read(), 0.0f);
}

TEST(Short_Number, HasAtMostFiveCharacters)
{
    EXPECT_EQ(in_short(1), "1");
    EXPECT_EQ(in_short(0), "0");
    EXPECT_EQ(in_short(0.25f), "0.25");
    EXPECT_EQ(in_short(0.0312f), "0.031");
    EXPECT_EQ(in_short(0.001f), "0.001");
    EXPECT_EQ(in_short(0.70795f), "0.71");
    EXPECT_EQ(in_short(0.00123f), "0.001");
    EXPECT_EQ(in_short(12.3456f), "12.35");
    EXPECT_EQ(in_short(-7.5f), "-7.5");
    EXPECT_EQ(in_short(12345), "12345");
    EXPECT_EQ(in_short(123456), "1e+05");
    EXPECT_EQ(in_short(0.00001f), "1e-05");
    EXPECT_EQ(in_short(-0.00001f), "") << "it takes six";
    for (float value = 1e-30f; value < 1e30f; value *= 1.7f)
        EXPECT_LE(in_short(value).size(), 5u) << value;
}
