#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

namespace {

constexpr int left = 40, right = 60, bottom = 200, top = 224;
constexpr int connector = left + 7;
constexpr int row_top = bottom + 18; // what is above belongs to the row above
constexpr Colors line{0, 0, 255};

using Draw_Lead = void (*)(const Boxs*, int, int, int, int, int);

class Lead : public Widgets {
protected:
    void Draw(Draw_Lead draw, int more)
    {
        Wipe();
        Current_Color = line.get();
        Y_setup(main_window(), "test");
        draw(nullptr, more, left, right, bottom, top);
        Y_release();
    }

    bool Is_Line(int x, int from, int to)
    {
        for (int y = from; y < to; ++y) {
            if (Pixel(x, y) != line)
                return false;
        }
        return true;
    }

    // The pixels of the row that are not drawn on, and those that are, as a picture; the top row first.
    std::string Picture()
    {
        std::string result;
        for (int y = row_top - 1; y >= bottom; --y) {
            for (int x = left; x < right; ++x)
                result += Pixel(x, y) == line ? '#' : '.';
            result += '\n';
        }
        return result;
    }

    static constexpr Draw_Lead all[] = {Icon_Lead_Leaf, Icon_Lead_Expand, Icon_Lead_Collapse, Icon_Lead_No_Access};
};

}

TEST_F(Lead, StaysInItsRow)
{
    Boxs row;
    row.x = left;
    row.y = bottom;
    row.width = right - left;
    row.height = row_top - bottom;
    for (const Draw_Lead draw : all) {
        for (const int more : {0, 1}) {
            Draw(draw, more);
            EXPECT_FALSE(Untouched(row));
            EXPECT_FALSE(Spills(row));
        }
    }
}

TEST_F(Lead, MeetsTheConnectorAboveAndBelowWhenMoreFollow)
{
    for (const Draw_Lead draw : all) {
        Draw(draw, 1);
        EXPECT_TRUE(Is_Line(connector, row_top - 2, row_top));
        EXPECT_TRUE(Is_Line(connector, bottom, bottom + 7));
        Draw(draw, 0);
        EXPECT_TRUE(Is_Line(connector, row_top - 2, row_top));
        EXPECT_TRUE(Pixel(connector, bottom) == untouched);
    }
}

TEST_F(Lead, OfALeafIsACorner)
{
    Draw(Icon_Lead_Leaf, 0);
    EXPECT_EQ(Picture(), ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......##########...\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n"
                         "....................\n");
}

TEST_F(Lead, SignIsMinusWhenChildrenAreShownAndPlusWhenHidden)
{
    Draw(Icon_Lead_Collapse, 1);
    EXPECT_EQ(Picture(), ".......#............\n"
                         ".......#............\n"
                         "...#########........\n"
                         "...#.......#........\n"
                         "...#...#...#........\n"
                         "...#...#...#........\n"
                         "...#.#####.######...\n"
                         "...#...#...#........\n"
                         "...#...#...#........\n"
                         "...#.......#........\n"
                         "...#########........\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n"
                         ".......#............\n");
    const std::string plus = Picture();
    Draw(Icon_Lead_Expand, 1);
    std::string minus = plus;
    for (const size_t row : {4u, 5u, 7u, 8u})
        minus[row * 21 + 7] = '.';
    EXPECT_EQ(Picture(), minus);
}

TEST_F(Lead, OfWhatCannotBeUsedEndsInABar)
{
    Draw(Icon_Lead_Leaf, 0);
    const std::string leaf = Picture();
    Draw(Icon_Lead_No_Access, 0);
    EXPECT_NE(Picture(), leaf);
}

TEST_F(Lead, WithoutAContextDrawsNothing)
{
    for (const Draw_Lead draw : all)
        draw(nullptr, 1, left, right, bottom, top);
    EXPECT_EQ(Picture().find('#'), std::string::npos);
}
