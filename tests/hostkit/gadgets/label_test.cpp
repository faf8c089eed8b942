#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr unsigned at_the_left = 8448;

class Label : public Widgets {
protected:
    Label()
    {
        Place_Widget(label, 20, 30, 120, 20);
        label.state = at_the_left;
        label.Set_Name("Warning!");
    }

    bool Has(Colors color)
    {
        const auto look = Look(label);
        return std::find(look.begin(), look.end(), color.get()) != look.end();
    }

    // The first column with something in it, from the left.
    int First_Column()
    {
        for (int x = label.x; x < label.x + label.width; ++x) {
            for (int y = label.y; y < label.y + label.height; ++y) {
                if (Pixel(x, y) != dark)
                    return x - label.x;
            }
        }
        return -1;
    }

    Labels label;
};

}

TEST_F(Label, IsItsTextOnTheBackground)
{
    label.Draw();
    EXPECT_EQ(Pixel(20, 30), dark);
    EXPECT_EQ(Pixel(139, 49), dark);
    EXPECT_TRUE(First_Column() >= 0 && First_Column() < 4);
    EXPECT_FALSE(Spills(label));
}

TEST_F(Label, TextHasItsOwnColorOrElseTheAreas)
{
    label.Set_Name("\u2588\u2588"); // blocks, which have pixels of the plain colour
    label.Draw();
    EXPECT_TRUE(Has(light));
    label.Set_Color(255, 0, 255);
    label.Draw();
    EXPECT_TRUE(Has({255, 0, 255}));
    EXPECT_FALSE(Has(light));
    label.Set_Color(0, 0, 1);
    label.Draw();
    EXPECT_TRUE(Has({0, 0, 1}));
}

TEST_F(Label, IsCentredUnlessItSaysOtherwise)
{
    label.state = 0;
    label.Draw();
    EXPECT_GT(First_Column(), 20);
}

TEST_F(Label, IsFaintWhenGreyedAndNotThereWhenInactive)
{
    label.Draw();
    const auto usual = Look(label);
    label.state = at_the_left | 35;
    label.Draw();
    EXPECT_NE(Look(label), usual);
    EXPECT_TRUE(First_Column() >= 0);
    Wipe();
    label.state = at_the_left | 3;
    label.Draw();
    EXPECT_TRUE(Untouched(label));
}

TEST_F(Label, WithoutAWindowDrawsNothing)
{
    Labels loose;
    loose.Set_Name("Warning!");
    loose.Init(nullptr);
    loose.Draw();
    EXPECT_EQ(loose.window, nullptr);
}
