#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr int enter = 13;

class EditorPointer : public Widgets {
protected:
    EditorPointer()
    {
        Place_Widget(editor, 20, 30, 200, 24);
        editor.state = 0x80000000;
        editor.Read("mmmmmmmm");
        editor.Draw();
    }

    // What a letter typed now does to the text.
    std::string Typed()
    {
        editor.Input('X');
        editor.Input(enter);
        return editor.Update();
    }

    Texts editor;
};

}

TEST_F(EditorPointer, InactiveTakesNothing)
{
    Point(100, 40);
    for (const unsigned state : {0x80000003u, 35u, 3u}) {
        editor.state = state;
        EXPECT_EQ(editor.Select(left_press, 0, 0), 0) << state;
        EXPECT_EQ(editor.Select(1, 0, 0), 0) << state;
    }
}

TEST_F(EditorPointer, QuestionWhetherItIsActiveNeedsNoPointer)
{
    Point_Away();
    EXPECT_EQ(editor.Select(1, 0, 0), 1);
    EXPECT_EQ(editor.Select(left_press, 0, 0), 0);
}

TEST_F(EditorPointer, HitRectangleGrowsByTheMargins)
{
    Point(17, 28);
    EXPECT_EQ(editor.Select(0, 0, 0), 0);
    EXPECT_EQ(editor.Select(0, 3, 0), 0);
    EXPECT_NE(editor.Select(0, 3, 2), 0);
    EXPECT_EQ(editor.Select(0, 2, 2), 0);
    Point(222, 55);
    EXPECT_NE(editor.Select(0, 3, 2), 0);
    EXPECT_EQ(editor.Select(0, 2, 2), 0);
}

TEST_F(EditorPointer, PressPutsTheCaretAtTheNearestEdge)
{
    Point(21, 40);
    EXPECT_NE(editor.Select(left_press, 0, 0), 0);
    EXPECT_EQ(Typed(), "Xmmmmmmmm");
    editor.Read("mmmmmmmm");
    Point(215, 40);
    editor.Select(left_press, 0, 0);
    EXPECT_EQ(Typed(), "mmmmmmmmX");
}

TEST_F(EditorPointer, PressInTheMiddleMovesRightWithThePointer)
{
    size_t last = 0;
    for (int x = 22; x < 216; x += 4) {
        editor.Read("mmmmmmmm");
        Point(x, 40);
        editor.Select(left_press, 0, 0);
        editor.Select(0, 0, 0);
        const size_t place = Typed().find('X');
        EXPECT_GE(place, last) << x;
        EXPECT_LE(place, last + 1) << x;
        last = place;
    }
    EXPECT_EQ(last, 8u);
}

TEST_F(EditorPointer, CaretStaysBetweenWholeCharacters)
{
    for (int x = 22; x < 100; x += 2) {
        editor.Read("\xc3\xa9\xe2\x82\xac\xc3\xa9");
        Point(x, 40);
        editor.Select(left_press, 0, 0);
        std::string text = Typed();
        text.erase(text.find('X'), 1);
        EXPECT_EQ(text, "\xc3\xa9\xe2\x82\xac\xc3\xa9");
        editor.Read("\xc3\xa9\xe2\x82\xac\xc3\xa9");
        editor.Select(left_press, 0, 0);
        const std::string typed = Typed();
        const size_t place = typed.find('X');
        EXPECT_TRUE(place == 0 || place == 2 || place == 5 || place == 7) << place;
    }
}

TEST_F(EditorPointer, DragSelectsAlsoBeyondTheField)
{
    Point(21, 40);
    editor.Select(left_press, 0, 0);
    Point(400, 200);
    EXPECT_EQ(editor.Select(left_drag, 0, 0), 0) << "the pointer is outside";
    EXPECT_EQ(Typed(), "X") << "all was selected";
}

TEST_F(EditorPointer, DragThatBeganElsewhereSelectsNothing)
{
    Point(21, 40);
    editor.Select(left_drag, 0, 0);
    editor.Select(65, 0, 0);
    EXPECT_EQ(Typed(), "mmmmmmmmX");
}

TEST_F(EditorPointer, DragEndsWithTheRelease)
{
    Point(21, 40);
    editor.Select(left_press, 0, 0);
    editor.Select(0, 0, 0);
    Point(215, 40);
    editor.Select(left_drag, 0, 0);
    EXPECT_EQ(Typed(), "Xmmmmmmmm");
}

TEST_F(EditorPointer, HoverChangesNothing)
{
    Wipe();
    Point(100, 40);
    EXPECT_NE(editor.Select(0, 0, 0), 0);
    EXPECT_NE(editor.Select(question, 0, 0), 0);
    EXPECT_TRUE(Untouched(editor));
    EXPECT_EQ(Typed(), "mmmmmmmmX");
}
