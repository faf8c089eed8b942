#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

class ButtonPictures : public Widgets {
protected:
    ButtonPictures() { Place_Widget(button, 20, 30, 40, 24); }

    int Count() const { return button.width * button.height; }

    void Check_Rules()
    {
        const unsigned* highlighted = button.Picture(2);
        const unsigned* pressed = button.Picture(3);
        const unsigned* current = button.Picture(4);
        for (int i = 0; i < Count(); ++i) {
            ASSERT_NE(highlighted[i], current[i]) << i;
            ASSERT_NE(pressed[i], 0u) << i;
        }
    }

    Buttons button;
};

}

TEST_F(ButtonPictures, SecondAndFourthDifferEverywhereAndThirdHasNoBlack)
{
    Check_Rules();
}

TEST_F(ButtonPictures, RulesHoldForEveryColourScheme)
{
    for (const Colors& color : {Colors{0, 0, 0}, Colors{255, 255, 255}, Colors{1, 1, 1}, Colors{0, 0, 255}}) {
        for (const Colors& other : {color, Colors{0, 0, 0}, Colors{255, 255, 255}}) {
            button.back = color;
            button.text = other;
            button.frame = color;
            button.Init(nullptr);
            Check_Rules();
        }
    }
}

TEST_F(ButtonPictures, AreRebuiltByInitAlone)
{
    button.Picture(1)[100] = 0x123456;
    button.Draw();
    EXPECT_EQ(button.Picture(1)[100], 0x123456u) << "kept while drawn";
    button.Init(nullptr);
    EXPECT_NE(button.Picture(1)[100], 0x123456u);
    EXPECT_EQ(button.shown, 0);
}

TEST_F(ButtonPictures, FollowTheSizeOfTheButton)
{
    button.Picture(1);
    button.width = 60;
    unsigned* pixels = button.Picture(4);
    ASSERT_NE(pixels, nullptr);
    pixels[60 * 24 - 1] = 1;
    Check_Rules();
}

TEST_F(ButtonPictures, AreShownUprightInTheirOwnColours)
{
    unsigned* pixels = button.Picture(1);
    pixels[0] = 0x123456;
    pixels[40 * 23 + 39] = 0x654321;
    button.Draw();
    EXPECT_EQ(Pixel(20, 53), (Colors{0x12, 0x34, 0x56})) << "the first row is the top one";
    EXPECT_EQ(Pixel(59, 30), (Colors{0x65, 0x43, 0x21}));
    EXPECT_FALSE(Spills(button));
}

TEST_F(ButtonPictures, EachStateShowsItsOwn)
{
    for (int number = 1; number <= 4; ++number)
        std::fill_n(button.Picture(number), Count(), 0x101010u * static_cast<unsigned>(number));
    button.Draw();
    EXPECT_EQ(Pixel(30, 40), (Colors{0x10, 0x10, 0x10}));
    Point(30, 40);
    button.Select(0);
    EXPECT_EQ(Pixel(30, 40), (Colors{0x20, 0x20, 0x20}));
    button.Select(left_press);
    EXPECT_EQ(Pixel(30, 40), (Colors{0x30, 0x30, 0x30}));
    button.cur = 1;
    Point_Away();
    button.Select(0);
    EXPECT_EQ(Pixel(30, 40), (Colors{0x40, 0x40, 0x40}));
}

TEST_F(ButtonPictures, ThereAreNoneForAnEmptyButtonOrAnotherNumber)
{
    EXPECT_EQ(button.Picture(0), nullptr);
    EXPECT_EQ(button.Picture(5), nullptr);
    button.height = 0;
    EXPECT_EQ(button.Picture(1), nullptr);
    button.Draw();
}
