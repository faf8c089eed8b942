#include "host/basics.h"
#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr Colors list_back{0x95, 0x9b, 0xa2};
constexpr Colors list_frame{0x5c, 0x63, 0x6b};

// As a panel draws it. @return 1 when it has its icon
int Draw_Box(Boxs& box, const std::string& title, const char* name, Color_Pair pair, Emphasis emphasis)
{
    constexpr short indent = 44;
    box.frame = list_frame;
    box.state = 0x2100;
    box.Set_Name(("  " + title).c_str());
    box.Fill_Select(pair, emphasis);
    box.Cadre();
    const int drawn = box.Icon(Prog_Name, ("class " + title + ".tga").c_str(), pair, 0);
    box.Text(indent, 2);
    Labels label;
    label.x = static_cast<short>(box.x + indent + 8);
    label.y = static_cast<short>(box.y + 4);
    label.width = static_cast<short>(box.width - indent - 12);
    label.height = static_cast<short>(box.height / 2 - 4);
    label.back = box.back;
    label.state = 0x2100;
    label.Set_Name(name);
    label.Set_Color(100, 100, 0);
    label.Init(box.window);
    label.Draw();
    return drawn;
}

class Diagram_Box : public Widgets {
protected:
    Diagram_Box()
    {
        Place_Widget(box, 100, 300, 250, 40);
        box.frame = {1, 2, 3};
    }

    /// How many pixels of a part of the window have a colour.
    std::ptrdiff_t Count(short x, short y, short width, short height, Colors color)
    {
        Boxs part;
        Place_Widget(part, x, y, width, height);
        const auto look = Look(part);
        return std::count(look.begin(), look.end(), color.get());
    }

    Boxs box;
};

constexpr Colors black{};

}

TEST_F(Diagram_Box, IsFilledAndOutlinedWithinItsRectangle)
{
    box.Fill_Select(Color_Pair::first, Emphasis::none);
    EXPECT_EQ(Count(100, 300, 250, 40, untouched), 0);
    EXPECT_FALSE(Spills(box));
    EXPECT_EQ(Pixel(200, 320), box.back);
    EXPECT_NE(Pixel(200, 301), box.back) << "the outline, inside the frame";
    EXPECT_EQ(Pixel(200, 302), box.back);
}

TEST_F(Diagram_Box, FacesAndOutlinesTellPairsAndStatesApart)
{
    std::vector<unsigned> faces, outlines;
    for (const Color_Pair pair : {Color_Pair::first, Color_Pair::second}) {
        for (const Emphasis emphasis : {Emphasis::none, Emphasis::hovered, Emphasis::refusing}) {
            box.Fill_Select(pair, emphasis);
            faces.push_back(Pixel(200, 320).get());
            outlines.push_back(Pixel(200, 301).get());
            EXPECT_EQ(Pixel(200, 302) == box.back, emphasis == Emphasis::none) << "twice as wide when it stands out";
        }
    }
    for (size_t i = 0; i < faces.size(); ++i)
        EXPECT_EQ(std::count(faces.begin(), faces.end(), faces[i]), 1) << i;
    EXPECT_NE(outlines[0], outlines[1]);
    EXPECT_NE(outlines[0], outlines[2]);
    EXPECT_NE(outlines[1], outlines[2]);
}

TEST_F(Diagram_Box, TextsOnItsFaceCanBeRead)
{
    for (const Color_Pair pair : {Color_Pair::first, Color_Pair::second}) {
        for (const Emphasis emphasis : {Emphasis::none, Emphasis::hovered, Emphasis::refusing}) {
            box.Fill_Select(pair, emphasis);
            constexpr int dark_enough = 150;
            EXPECT_GT(box.back.green - box.text.green, dark_enough);
            EXPECT_GT(box.back.green - 100, dark_enough / 2) << "what a name is written in";
        }
    }
}

TEST_F(Diagram_Box, TheFrameIsAsWideAsTheBorder)
{
    box.border = 3;
    box.Cadre();
    EXPECT_EQ(Count(100, 300, 250, 40, box.frame), 250 * 40 - 244 * 34);
    EXPECT_EQ(Count(103, 303, 244, 34, untouched), 244 * 34);
    EXPECT_FALSE(Spills(box));
    Wipe();
    box.border = 0;
    box.Cadre();
    EXPECT_TRUE(Untouched(box));
}

TEST_F(Diagram_Box, TheIconLiesInAFieldAtTheLeftEnd)
{
    EXPECT_EQ(box.Icon(Prog_Name, "class Root.tga", Color_Pair::first, 0), 1);
    EXPECT_EQ(Count(103, 303, 34, 34, untouched), 0);
    EXPECT_EQ(Count(137, 300, 213, 40, untouched), 213 * 40);
    EXPECT_NE(Pixel(120, 318), Pixel(104, 304)) << "the picture in the field";
    EXPECT_FALSE(Spills(box));
}

TEST_F(Diagram_Box, TheFieldCanBeLeftOut)
{
    EXPECT_EQ(box.Icon(Prog_Name, "class Root.tga", Color_Pair::first, 1), 1);
    EXPECT_EQ(Pixel(104, 304), untouched);
    EXPECT_NE(Pixel(120, 318), untouched);
}

TEST_F(Diagram_Box, AnIconThatIsMissingLeavesItsFieldEmpty)
{
    EXPECT_EQ(box.Icon(Prog_Name, "class Nowhere.tga", Color_Pair::second, 0), 0);
    EXPECT_EQ(Count(103, 303, 34, 34, Pixel(104, 304)), 34 * 34);
    EXPECT_EQ(box.Icon(Prog_Name, nullptr, Color_Pair::second, 0), 0);
    box.height = 2;
    EXPECT_EQ(box.Icon(Prog_Name, "class Root.tga", Color_Pair::first, 0), 0) << "there is no room";
}

TEST_F(Diagram_Box, TheCaptionIsInTheUppermostRow)
{
    box.Clear(list_back);
    box.state = 0x2100;
    box.text = black;
    box.Set_Name("Series");
    box.Text(50, 2);
    EXPECT_LT(Count(150, 320, 60, 20, list_back), 60 * 20);
    EXPECT_EQ(Count(100, 300, 250, 20, list_back), 250 * 20);
    EXPECT_EQ(Count(100, 320, 50, 20, list_back), 50 * 20);
}

TEST_F(Diagram_Box, TheCaptionIsInTheMiddleOrAtTheLeft)
{
    box.text = black;
    box.Set_Name("Series");
    box.Clear(list_back);
    box.Text();
    EXPECT_EQ(Count(100, 300, 60, 40, list_back), 60 * 40);
    EXPECT_LT(Count(190, 310, 70, 20, list_back), 70 * 20);
    box.Clear(list_back);
    box.state = 0x100;
    box.Text();
    EXPECT_LT(Count(100, 310, 60, 20, list_back), 60 * 20);
}

TEST_F(Diagram_Box, MarksOfEmphasisAreNotShown)
{
    box.text = black;
    box.state = 0x100;
    box.Clear(list_back);
    box.Set_Name("name of this");
    box.Text();
    const auto plain = Look(box);
    box.Clear(list_back);
    box.Set_Name("\x02name \x01of\x02 this");
    box.Text();
    EXPECT_EQ(Look(box), plain);
}

TEST_F(Diagram_Box, GivesItsCaptionBack)
{
    box.Set_Name("Series");
    box.Free();
    EXPECT_STREQ(box.name.get(), "");
    box.Free();
}

TEST_F(Diagram_Box, DrawsNothingWithoutAWindow)
{
    Boxs nowhere;
    nowhere.width = nowhere.height = 100;
    nowhere.border = 1;
    nowhere.Set_Name("Series");
    nowhere.Fill_Select(Color_Pair::first, Emphasis::none);
    nowhere.Cadre();
    nowhere.Text();
    EXPECT_EQ(nowhere.Icon(Prog_Name, "class Root.tga", Color_Pair::first, 0), 0);
}

// All pairs and states, on the colour of a list.
TEST_F(Diagram_Box, PictureIsKept)
{
    Boxs all;
    Place_Widget(all, 0, 0, 800, 800);
    all.Clear(list_back);
    short y = 700;
    for (const std::string title : {"Root", "Study", "Series", "Frame", "Signal", "Surface"}) {
        const Color_Pair pair = title == "Frame" || title == "Signal" ? Color_Pair::second : Color_Pair::first;
        short x = 10;
        for (const Emphasis emphasis : {Emphasis::none, Emphasis::hovered, Emphasis::refusing}) {
            Place_Widget(box, x, y, 250, 40);
            EXPECT_EQ(Draw_Box(box, title, "T1 weighted, sagittal, after contrast", pair, emphasis), 1) << title;
            x = static_cast<short>(x + 260);
        }
        y = static_cast<short>(y - 50);
    }
    keep_picture(main_window(), "diagram_boxes");
}
