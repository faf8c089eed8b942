#include "tests/hostkit/gadgets/tga_file.h"
#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

const std::string opaque_green{"\x20\xc0\x40\xff", 4};
const std::string half_white{"\xff\xff\xff\x80", 4};
constexpr Colors green{0x40, 0xc0, 0x20};

class Icon : public Widgets {
protected:
    Icon() { Place_Widget(box, 100, 100, 60, 40); }

    int Draw(const std::string& file, int x = 110, int y = 110)
    {
        Y_setup(main_window(), "test");
        const int drawn = Icon_Draw_Image(&box, x, y, folder.path().c_str(), file.c_str());
        Y_release();
        return drawn;
    }

    Icon_Folder folder;
    Boxs box;
};

}

TEST_F(Icon, HasItsLowerLeftCornerAtItsPlace)
{
    folder.write("a.tga", tga_square(16, opaque_green));
    EXPECT_EQ(Draw("a.tga"), 1);
    Boxs covered;
    Place_Widget(covered, 110, 110, 16, 16);
    for (const COLORREF color : Look(covered))
        ASSERT_EQ(color, green.get());
    EXPECT_FALSE(Spills(covered));
}

TEST_F(Icon, StandsUpright)
{
    std::string file = tga_head(2, 2, 32);
    for (const char* pixel : {"\1\1\1\xff", "\2\2\2\xff", "\3\3\3\xff", "\4\4\4\xff"})
        file += pixel;
    folder.write("corners.tga", file);
    EXPECT_EQ(Draw("corners.tga", 10, 20), 1);
    EXPECT_EQ(Pixel(10, 21), (Colors{1, 1, 1}));
    EXPECT_EQ(Pixel(11, 21), (Colors{2, 2, 2}));
    EXPECT_EQ(Pixel(10, 20), (Colors{3, 3, 3}));
    EXPECT_EQ(Pixel(11, 20), (Colors{4, 4, 4}));
}

TEST_F(Icon, LetsThroughWhatItsAlphaLeaves)
{
    box.state = 66;
    box.Draw();
    folder.write("half.tga", tga_square(16, half_white));
    EXPECT_EQ(Draw("half.tga"), 1);
    const Colors shown = Pixel(115, 115);
    EXPECT_NEAR(shown.red, (0xff + dark.red) / 2, 2);
    EXPECT_NEAR(shown.green, (0xff + dark.green) / 2, 2);
    EXPECT_NEAR(shown.blue, (0xff + dark.blue) / 2, 2);
}

TEST_F(Icon, IsCutByTheClip)
{
    folder.write("a.tga", tga_square(16, opaque_green));
    Y_setup(main_window(), "test");
    IntersectClipRect(Y_DC, 110, 119, 118, 109); // the left half, up to y 119
    EXPECT_EQ(Icon_Draw_Image(&box, 110, 110, folder.path().c_str(), "a.tga"), 1);
    EXPECT_EQ(Icon_Draw_Image(&box, 110, 126, folder.path().c_str(), "a.tga"), 1) << "the clip is still there";
    Y_release();
    EXPECT_EQ(Pixel(117, 119), green);
    EXPECT_EQ(Pixel(118, 119), untouched);
    EXPECT_EQ(Pixel(110, 130), untouched);
}

TEST_F(Icon, LeavesTheMappingAsItWas)
{
    folder.write("a.tga", tga_square(16, opaque_green));
    Y_setup(main_window(), "test");
    Icon_Draw_Image(&box, 110, 110, folder.path().c_str(), "a.tga");
    SetPixel(Y_DC, 7, 5, RGB(1, 2, 3));
    Y_release();
    EXPECT_EQ(Pixel(7, 5), (Colors{1, 2, 3}));
}

TEST_F(Icon, FolderMayEndInASeparator)
{
    folder.write("a.tga", tga_square(16, opaque_green));
    Y_setup(main_window(), "test");
    EXPECT_EQ(Icon_Draw_Image(nullptr, 110, 110, (folder.path() + "/").c_str(), "a.tga"), 1);
    Y_release();
    EXPECT_EQ(Pixel(110, 110), green);
}

TEST_F(Icon, ThatIsMissingOrBrokenDrawsNothing)
{
    folder.write("short.tga", tga_square(16, opaque_green).substr(0, 900));
    folder.write("empty.tga", "");
    for (const char* file : {"missing.tga", "short.tga", "empty.tga", "2x", ""})
        EXPECT_EQ(Draw(file), 0) << file;
    EXPECT_TRUE(Untouched(box));
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(Icon, NoFileIsReadTwice)
{
    EXPECT_EQ(Draw("late.tga"), 0);
    folder.write("late.tga", tga_square(16, opaque_green));
    EXPECT_EQ(Draw("late.tga"), 0);
    folder.write("a.tga", tga_square(16, opaque_green));
    EXPECT_EQ(Draw("a.tga"), 1);
    folder.write("a.tga", "");
    EXPECT_EQ(Draw("a.tga", 130), 1);
    EXPECT_EQ(Pixel(130, 110), green);
}

TEST_F(Icon, WithoutAContextOrANameDrawsNothing)
{
    EXPECT_EQ(Icon_Draw_Image(&box, 110, 110, nullptr, "icon folder.tga"), 0);
    Y_setup(main_window(), "test");
    EXPECT_EQ(Icon_Draw_Image(&box, 110, 110, nullptr, nullptr), 0);
    Y_release();
    EXPECT_TRUE(Untouched(box));
}

TEST_F(Icon, OfTheProgramIsDrawnWithoutAFolder)
{
    Y_setup(main_window(), "test");
    EXPECT_EQ(Icon_Draw_Image(&box, 110, 110, nullptr, "icon folder.tga"), 1);
    EXPECT_EQ(Icon_Draw_Image(&box, 130, 110, "", "icon folder.tga"), 1);
    Y_release();
    EXPECT_FALSE(Untouched(box));
    EXPECT_EQ(Pixel(118, 115), Pixel(138, 115));
}
