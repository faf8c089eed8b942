#include "tests/hostkit/gadgets/tga_file.h"
#include "tests/hostkit/gadgets/widget_fixture.h"

// On a screen that has four pixels for each of ours.

using namespace test;

namespace {

const std::string red{"\0\0\xff\xff", 4};
const std::string blue{"\xff\0\0\xff", 4};

class Icon_On_A_Fine_Screen : public Widgets {
protected:
    int Draw(const std::string& file)
    {
        Y_setup(main_window(), "test");
        const int drawn = Icon_Draw_Image(nullptr, 110, 110, folder.path().c_str(), file.c_str());
        Y_release();
        return drawn;
    }

    void Expect_Square(Colors color)
    {
        Boxs covered;
        Place_Widget(covered, 110, 110, 16, 16);
        for (const COLORREF pixel : Look(covered))
            ASSERT_EQ(pixel, color.get());
        EXPECT_FALSE(Spills(covered));
    }

    Icon_Folder folder;
};

}

TEST_F(Icon_On_A_Fine_Screen, IsThatOfTwiceTheSize)
{
    folder.write("a.tga", tga_square(16, red));
    folder.write("2x/a.tga", tga_square(32, blue));
    EXPECT_EQ(Draw("a.tga"), 1);
    Expect_Square({0, 0, 255});
}

TEST_F(Icon_On_A_Fine_Screen, IsTheUsualOneWhenThereIsNoOther)
{
    folder.write("a.tga", tga_square(16, red));
    folder.write("2x/a.tga", "broken");
    EXPECT_EQ(Draw("a.tga"), 1);
    Expect_Square({255, 0, 0});
}
