#include "hostkit/gadgets/button_mark.h"
#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr unsigned row = 0x400000;
constexpr unsigned marked_row = 0x500000;
constexpr Colors orange{0xd0, 0x80, 0x20};

class RowButton : public Widgets {
protected:
    RowButton()
    {
        Place_Widget(button, 20, 30, 90, 24);
        button.state = row;
        button.color = orange;
        button.Set_Name("Left atrium");
        Point_Away();
    }

    std::vector<COLORREF> Drawn()
    {
        button.Draw();
        return Look(button);
    }

    bool Shows(Colors color)
    {
        const auto look = Look(button);
        return std::find(look.begin(), look.end(), color.get()) != look.end();
    }

    Buttons button;
};

}

TEST_F(RowButton, ShowsItsColourAndStaysInItsPlace)
{
    Drawn();
    EXPECT_TRUE(Shows(orange));
    EXPECT_EQ(Pixel(24, 42), orange);
    EXPECT_FALSE(Spills(button));
}

TEST_F(RowButton, EveryPixelIsDrawn)
{
    const auto look = Drawn();
    EXPECT_EQ(std::count(look.begin(), look.end(), untouched.get()), 0) << "nothing shines through after scrolling";
}

TEST_F(RowButton, CurrentIsFramedInTheTextColour)
{
    Drawn();
    EXPECT_NE(Pixel(21, 31), light);
    button.cur = 1;
    button.Adjust();
    for (const auto& [x, y] : {POINT{21, 31}, {108, 31}, {21, 52}, {108, 52}})
        EXPECT_EQ(Pixel(x, y), light) << x << "," << y;
    EXPECT_TRUE(Shows(orange));
}

TEST_F(RowButton, HoverAndPressLookDifferentAndGoAway)
{
    const auto normal = Drawn();
    Point(30, 40);
    button.Select(0);
    const auto hovered = Look(button);
    EXPECT_NE(hovered, normal);
    EXPECT_NE(button.Select(left_press), 0);
    EXPECT_NE(Look(button), hovered);
    button.Deselect();
    EXPECT_EQ(Look(button), normal);
}

TEST_F(RowButton, GreyedIsFaint)
{
    Drawn();
    button.state = row | 35;
    Wipe();
    Drawn();
    EXPECT_FALSE(Shows(orange));
    EXPECT_FALSE(Untouched(button));
    Point(30, 40);
    EXPECT_EQ(button.Select(left_press), 0);
}

TEST_F(RowButton, GreyedByBitFiveAloneIsStillShown)
{
    button.state = row | 32;
    Drawn();
    EXPECT_FALSE(Untouched(button));
    EXPECT_FALSE(Shows(orange));
}

TEST_F(RowButton, UnderAnEditorPaintsNothing)
{
    button.state = row | 3;
    button.Draw();
    button.Adjust();
    Point(30, 40);
    EXPECT_EQ(button.Select(0), 0);
    button.Deselect();
    EXPECT_TRUE(Untouched(button));
}

TEST_F(RowButton, MarkIsShownOnlyWhereTheStateAsksForIt)
{
    const auto plain = Drawn();
    button.state = marked_row;
    const auto off = Drawn();
    button.pressed = 1;
    button.Adjust();
    const auto on = Look(button);
    EXPECT_NE(plain, off);
    EXPECT_NE(off, on);
    button.state = row;
    EXPECT_EQ(Drawn(), plain) << "the mark's value shows nothing without the bit";
}

TEST_F(RowButton, APressTellsWhetherItWasOnTheMark)
{
    const auto press_at = [&](int x) {
        Point(x, 40);
        EXPECT_NE(button.Select(left_press), 0);
        return hostkit::Pressed_On_Mark();
    };
    button.state = marked_row;
    Drawn();
    EXPECT_TRUE(press_at(102)); // its middle
    EXPECT_FALSE(press_at(90));
    EXPECT_TRUE(press_at(109));
    Point_Away();
    button.Select(left_press);
    EXPECT_TRUE(hostkit::Pressed_On_Mark()) << "it did not take this one";
    button.width = 25; // too narrow for a mark
    EXPECT_FALSE(press_at(42));
    button.width = 90;
    button.state = row;
    EXPECT_FALSE(press_at(102));
}

TEST_F(RowButton, CaptionIsCutToTheRoomThatThereIs)
{
    button.Set_Name("A name that is thirty-nine letters long");
    for (const short width : {short{40}, short{48}, short{60}, short{90}, short{300}}) {
        Wipe();
        button.width = width;
        Drawn();
        EXPECT_FALSE(Spills(button)) << width;
    }
}

TEST_F(RowButton, NarrowButtonsStillTellColourAndMark)
{
    button.width = 40;
    button.state = marked_row;
    const auto off = Drawn();
    EXPECT_TRUE(Shows(orange));
    button.pressed = 1;
    EXPECT_NE(Drawn(), off);
    for (short width = 1; width < 12; ++width) {
        button.width = width;
        Wipe();
        Drawn();
        EXPECT_FALSE(Spills(button)) << width;
    }
}

TEST_F(RowButton, NarrowButtonsKeepRoomForATagsNumber)
{
    button.width = 50;
    button.state = marked_row;
    button.Set_Name("");
    const auto empty = Drawn();
    button.Set_Name("12");
    EXPECT_NE(Drawn(), empty);
}

TEST_F(RowButton, TextsInOtherScriptsAndBrokenOnesAreDrawn)
{
    const auto empty = [&] {
        button.Set_Name("");
        return Drawn();
    }();
    for (const char* name : {"Gr\xc3\xb6\xc3\x9f"
                             "e",
             "\xe5\xb7\xa6\xe5\xbf\x83", "bad \xff\xc3"}) {
        button.Set_Name(name);
        EXPECT_NE(Drawn(), empty) << name;
    }
}
