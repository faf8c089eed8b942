#include "tests/hostkit/gadgets/valuator_fixture.h"

#include <cmath>

// Valuators under the pointer and the wheel.

using namespace test;

namespace {

using Valuator_Drag = Valuator;
using Valuator_Wheel = Valuator;

}

TEST_F(Valuator_Drag, PressBringsTheThumbToThePointer)
{
    Press(75); // the middle: the thumb's centre goes there
    EXPECT_NEAR(std::log10(valuator.Read()), -1.5, 0.03);
    EXPECT_EQ(valuator.Read(), valuator.value);
}

TEST_F(Valuator_Drag, TravelIsByDecadesOverTwoOfThemOrMore)
{
    valuator.minimum = 1;
    valuator.maximum = 100;
    Press(4 + 71);
    EXPECT_NEAR(valuator.Read(), 10, 0.01);
}

TEST_F(Valuator_Drag, TravelIsEvenOverLessAndFromZero)
{
    valuator.minimum = 1;
    valuator.maximum = 99;
    Press(4 + 71);
    EXPECT_NEAR(valuator.Read(), 50, 0.01);
    valuator.Select(0);
    Make_Even(0);
    Press(4 + 71);
    EXPECT_NEAR(valuator.Read(), 50, 0.01);
    valuator.Select(0);
    valuator.minimum = -100;
    Press(4 + 71);
    EXPECT_NEAR(valuator.Read(), 0, 0.01);
}

TEST_F(Valuator_Drag, EndsAreExactlyTheLimits)
{
    Press(0);
    EXPECT_EQ(valuator.Read(), 0.001f);
    Drag(149);
    EXPECT_EQ(valuator.Read(), 1.0f);
    Drag(-500);
    EXPECT_EQ(valuator.Read(), 0.001f);
    Drag(500);
    EXPECT_EQ(valuator.Read(), 1.0f);
    valuator.minimum = 0.1f;
    valuator.maximum = 0.7f;
    Drag(-500);
    EXPECT_EQ(valuator.Read(), 0.1f);
    Drag(500);
    EXPECT_EQ(valuator.Read(), 0.7f);
}

TEST_F(Valuator_Drag, PressOnTheThumbMovesNothingAndKeepsTheGrip)
{
    valuator.value = std::pow(10.0f, -1.5f);
    const float value = valuator.value; // the thumb is at 71 to 78
    for (const int position : {71, 75, 78}) {
        Press(position);
        EXPECT_EQ(valuator.Read(), value);
        Drag(position);
        EXPECT_EQ(valuator.Read(), value);
        valuator.Select(0);
    }
    Press(72);
    valuator.Read();
    Drag(72 + 71);
    EXPECT_EQ(valuator.Read(), 1.0f);
}

TEST_F(Valuator_Drag, MinimumIsAtTheTopWithBit26)
{
    valuator.state = upright_from_the_top;
    Press(149);
    EXPECT_EQ(valuator.Read(), 0.001f);
    Drag(0);
    EXPECT_EQ(valuator.Read(), 1.0f);
}

TEST_F(Valuator_Drag, MinimumIsAtTheLeftOfALyingOne)
{
    Place_Widget(valuator, 20, 30, 150, 16);
    valuator.state = lying;
    Point(20, 38);
    ASSERT_NE(valuator.Select(left_press), 0);
    EXPECT_EQ(valuator.Read(), 0.001f);
    Point(169, 38);
    ASSERT_NE(valuator.Select(left_drag), 0);
    EXPECT_EQ(valuator.Read(), 1.0f);
}

TEST_F(Valuator_Drag, EndsWithTheButtonAndWithDeselect)
{
    Press(75);
    valuator.Read();
    EXPECT_EQ(valuator.Select(0), 0);
    EXPECT_EQ(valuator.Select(left_drag), 0);
    Press(75);
    valuator.Read();
    valuator.Deselect();
    EXPECT_EQ(valuator.Select(left_drag), 0);
    const float value = valuator.value;
    Point(28, 40);
    EXPECT_EQ(valuator.Read(), value);
}

TEST_F(Valuator_Drag, QuestionHasNoEffect)
{
    valuator.Draw();
    Wipe();
    Point(28, 60);
    EXPECT_NE(valuator.Select(question), 0);
    Point_Away();
    EXPECT_EQ(valuator.Select(question), 0);
    EXPECT_TRUE(Untouched(valuator));
    EXPECT_EQ(valuator.Select(left_drag), 0);
}

TEST_F(Valuator_Drag, GreyedOrHiddenTakesNothing)
{
    for (const unsigned bits : {1u, 3u, 32u, 35u}) {
        valuator.state = upright | bits;
        Point(28, 60);
        EXPECT_EQ(valuator.Select(left_press), 0) << bits;
        EXPECT_EQ(valuator.Select(question), 0) << bits;
        EXPECT_EQ(valuator.Scroll(1), 0) << bits;
        EXPECT_EQ(valuator.Read(), 1.0f) << bits;
    }
}

TEST_F(Valuator_Wheel, GoesATwentiethOfTheTravelDown)
{
    EXPECT_EQ(valuator.Scroll(1), 1);
    EXPECT_NEAR(valuator.value, std::pow(10.0, -0.15), 1e-5);
    EXPECT_EQ(valuator.Scroll(9), 1);
    EXPECT_NEAR(valuator.value, std::pow(10.0, -1.5), 1e-6);
    EXPECT_EQ(valuator.Scroll(-10), 1);
    EXPECT_EQ(valuator.value, 1.0f);
    Make_Even(40);
    EXPECT_EQ(valuator.Scroll(-1), 1);
    EXPECT_NEAR(valuator.value, 45, 1e-4);
}

TEST_F(Valuator_Wheel, StopsAtBothEnds)
{
    EXPECT_EQ(valuator.Scroll(-1), 0);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(valuator.Scroll(1), 1) << i;
    EXPECT_EQ(valuator.value, 0.001f);
    EXPECT_EQ(valuator.Scroll(1), 0);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(valuator.Scroll(-1), 1) << i;
    EXPECT_EQ(valuator.value, 1.0f);
    EXPECT_EQ(valuator.Scroll(-1), 0);
    EXPECT_EQ(valuator.Scroll(1000), 1);
    EXPECT_EQ(valuator.value, 0.001f);
}

TEST_F(Valuator_Wheel, MovesTheThumbDownWhicheverWayTheValueGrows)
{
    valuator.state = upright_from_the_top;
    valuator.value = 0.1f;
    EXPECT_EQ(valuator.Scroll(1), 1);
    EXPECT_GT(valuator.value, 0.1f);
}

TEST_F(Valuator_Wheel, GoesByTheStepThatIsSet)
{
    Make_Even(40);
    valuator.step = 3;
    EXPECT_EQ(valuator.Scroll(2), 1);
    EXPECT_FLOAT_EQ(valuator.value, 34);
    EXPECT_EQ(valuator.Scroll(-1000), 1);
    EXPECT_EQ(valuator.value, 100.0f);
}

TEST_F(Valuator_Wheel, NotTurnedLeavesTheValueAlone)
{
    valuator.value = 0.3f;
    valuator.Draw();
    Wipe();
    EXPECT_EQ(valuator.Scroll(0), 0);
    EXPECT_EQ(valuator.value, 0.3f);
    EXPECT_TRUE(Untouched(valuator));
}

TEST_F(Valuator_Wheel, FromBetweenTwoNotchesGoesToOne)
{
    valuator.value = 0.9f;
    EXPECT_EQ(valuator.Scroll(1), 1);
    EXPECT_NEAR(valuator.value, std::pow(10.0, -0.15), 1e-5);
    valuator.value = 0.9f;
    EXPECT_EQ(valuator.Scroll(-1), 1);
    EXPECT_EQ(valuator.value, 1.0f);
}

TEST_F(Valuator_Wheel, WithoutARangeDoesNothing)
{
    valuator.maximum = valuator.minimum = valuator.value = 1;
    EXPECT_EQ(valuator.Scroll(1), 0);
    Point(28, 60);
    EXPECT_EQ(valuator.Select(left_press), 0);
    valuator.Draw();
    EXPECT_EQ(valuator.value, 1.0f);
}
