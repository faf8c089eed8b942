#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

class PushButton : public Widgets {
protected:
    PushButton()
    {
        Place_Widget(button, 20, 30, 40, 24);
        Point_Away();
    }

    std::vector<COLORREF> Drawn()
    {
        button.Draw();
        return Look(button);
    }

    Buttons button;
};

}

TEST_F(PushButton, TakesAPressOfAnyMouseButtonInside)
{
    for (const auto& [x, y] : {POINT{20, 30}, {59, 53}}) {
        Point(x, y);
        for (const int word : {18, 34, 66, 82, 2})
            EXPECT_NE(button.Select(word), 0) << word;
    }
}

TEST_F(PushButton, TakesNothingOutside)
{
    for (const auto& [x, y] : {POINT{19, 30}, {60, 30}, {20, 29}, {20, 54}}) {
        Point(x, y);
        EXPECT_EQ(button.Select(left_press), 0) << x << "," << y;
    }
}

TEST_F(PushButton, WordsWithoutAPressAreNotTaken)
{
    Point(30, 40);
    for (const int word : {0, 1, 16, 32, 64, 17, 65})
        EXPECT_EQ(button.Select(word), 0) << word;
}

TEST_F(PushButton, QuestionIsAnsweredWithoutAnEffect)
{
    const auto before = Drawn();
    const auto shown = button.shown;
    Point(30, 40);
    EXPECT_NE(button.Select(question), 0);
    EXPECT_EQ(button.shown, shown);
    EXPECT_EQ(Look(button), before);
    Point_Away();
    EXPECT_EQ(button.Select(question), 0);
    Point(30, 40);
    button.state = 35;
    EXPECT_EQ(button.Select(question), 0);
}

TEST_F(PushButton, InactiveTakesNothingAndDoesNotHighlight)
{
    Point(30, 40);
    for (const unsigned state : {1u, 2u, 3u, 32u, 35u}) {
        button.state = state;
        Wipe();
        const auto before = Drawn();
        EXPECT_EQ(button.Select(left_press), 0) << state;
        EXPECT_EQ(button.Select(0), 0) << state;
        EXPECT_EQ(Look(button), before) << state;
    }
}

TEST_F(PushButton, ShowsTheFourPicturesInTheirStates)
{
    const auto normal = Drawn();
    EXPECT_EQ(button.shown, 1);
    Point(30, 40);
    button.Select(0);
    const auto highlighted = Look(button);
    EXPECT_EQ(button.shown, 2);
    button.Select(left_press);
    const auto pressed = Look(button);
    EXPECT_EQ(button.shown, 3);
    button.Select(left_drag);
    EXPECT_EQ(Look(button), pressed) << "held";
    button.Deselect();
    EXPECT_EQ(Look(button), normal);
    button.cur = 1;
    button.Adjust();
    const auto current = Look(button);
    EXPECT_EQ(button.shown, 4);

    const std::vector<std::vector<COLORREF>> looks{normal, highlighted, pressed, current};
    for (size_t one = 0; one < looks.size(); ++one) {
        for (size_t other = 0; other < one; ++other)
            EXPECT_NE(looks[one], looks[other]) << one << " " << other;
    }
    EXPECT_FALSE(Spills(button));
}

TEST_F(PushButton, LeavingThePointerTakesTheHighlightOff)
{
    const auto normal = Drawn();
    Point(30, 40);
    button.Select(0);
    EXPECT_NE(Look(button), normal);
    Point_Away();
    button.Select(0);
    EXPECT_EQ(Look(button), normal);
}

TEST_F(PushButton, HoverDrawsOnlyOnAChange)
{
    button.Draw();
    Wipe();
    Point_Away();
    button.Select(0);
    EXPECT_TRUE(Untouched(button));
    Point(30, 40);
    button.Select(0);
    EXPECT_FALSE(Untouched(button));
    Wipe();
    button.Select(0);
    EXPECT_TRUE(Untouched(button));
}

TEST_F(PushButton, AdjustDrawsOnlyWhatIsNotShownYet)
{
    button.Draw();
    Wipe();
    button.Adjust();
    EXPECT_TRUE(Untouched(button));
    button.cur = 1;
    button.Adjust();
    EXPECT_FALSE(Untouched(button));
    Wipe();
    button.shown = 0;
    button.Adjust();
    EXPECT_FALSE(Untouched(button));
}

TEST_F(PushButton, ClearedShownFieldMakesTheNextEventDraw)
{
    button.Draw();
    Wipe();
    button.shown = 0;
    button.Select(0);
    EXPECT_FALSE(Untouched(button));
    EXPECT_EQ(button.shown, 1);
}

TEST_F(PushButton, GreyedLooksFaintAndFollowsItsPictures)
{
    const auto normal = Drawn();
    button.state = 35;
    const auto greyed = Drawn();
    EXPECT_NE(greyed, normal);
    const int middle_pixel = 12 * button.width + 20;
    button.Picture(1)[middle_pixel] = 0x00ff00;
    button.shown = 0;
    Point_Away();
    button.Select(0);
    const COLORREF painted = Look(button)[static_cast<size_t>(11 * button.width + 20)];
    EXPECT_GT(GetGValue(painted), 0x24 + 30) << "what is painted into the picture is seen";
    EXPECT_LT(GetGValue(painted), 0xc0) << "but faintly";
}

TEST_F(PushButton, ComesBackFromGreyWithoutAnOldHighlight)
{
    const auto normal = Drawn();
    Point(30, 40);
    button.Select(0);
    button.state = 35;
    Point_Away();
    button.Select(0);
    button.state = 0;
    EXPECT_EQ(Drawn(), normal);
}

TEST_F(PushButton, HiddenPaintsNothingAndIsDrawnWhenItComesBack)
{
    button.Draw();
    button.state = 3;
    Wipe();
    button.Draw();
    button.Adjust();
    EXPECT_TRUE(Untouched(button));
    button.state = 0;
    button.Adjust();
    EXPECT_FALSE(Untouched(button));
}

TEST_F(PushButton, CaptionIsDrawnInsideTheButton)
{
    const auto plain = Drawn();
    button.Set_Name("OK");
    EXPECT_NE(Drawn(), plain);
    button.Set_Name("a caption much wider than the button is");
    Wipe();
    Drawn();
    EXPECT_FALSE(Spills(button));
}

TEST_F(PushButton, CopiesHaveTheirOwnPictures)
{
    button.Picture(1)[0] = 0x123456;
    Buttons copy(button);
    copy.Picture(1)[0] = 0;
    EXPECT_EQ(button.Picture(1)[0], 0x123456u);
    copy = button;
    EXPECT_EQ(copy.Picture(1)[0], 0x123456u);
}
