#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <vector>

using namespace hostkit;

namespace {

class Segmentation : public ::testing::Test {
protected:
    Segmentation()
    {
        Registry_Reset();
        Segmentation_Reset();
    }
};

}

TEST_F(Segmentation, StartsWithWhatPanelsNeed)
{
    EXPECT_EQ(Variable<unsigned short>("$TAG_NB"), 16);
    EXPECT_EQ(Variable<unsigned short>("$MARKER_NB"), 8);
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_NB"), 5);
    for (unsigned tag = 0; tag < most_tags; ++tag) {
        EXPECT_EQ(Array_Variable<unsigned char>("$TAG_SELECT")[tag], 1);
        EXPECT_EQ(Array_Variable<unsigned char>("$TAG_ENABLE")[tag], 1);
        EXPECT_FALSE(Tag_Locked(tag));
        EXPECT_EQ(Tag_Label(tag), nullptr);
    }
    EXPECT_EQ(Array_Variable<unsigned short>("$BRUSH_SIZE")[4], 12);
    EXPECT_GE(Variable<unsigned short>("$BRUSH_RADIUS"), 12);
}

TEST_F(Segmentation, TheFirstTagsHaveDistinctColours)
{
    std::set<unsigned> colors;
    for (unsigned tag = 0; tag < 16; ++tag)
        colors.insert(Tag_Color(tag).get());
    EXPECT_EQ(colors.size(), 16u);
}

TEST_F(Segmentation, AColourIsInTheHighBytes)
{
    Tag_Color_Set(3, {0x12, 0x34, 0x56});
    EXPECT_EQ(Array_Variable<unsigned short>("$TAG_RED")[3], 0x1200);
    EXPECT_EQ(Array_Variable<unsigned short>("$TAG_GRN")[3], 0x3400);
    EXPECT_EQ(Array_Variable<unsigned short>("$TAG_BLU")[3], 0x5600);
    EXPECT_EQ(Tag_Color(3), (Colors{0x12, 0x34, 0x56}));
}

TEST_F(Segmentation, NamesAreCopiesAndAnEmptyNameIsNone)
{
    std::string name = "Liver";
    EXPECT_TRUE(Tag_Label_Set(2, name.c_str()));
    name[0] = 'R';
    EXPECT_STREQ(Tag_Label(2), "Liver");
    EXPECT_EQ(Array_Variable<char*>("$TAG_LABEL")[2], Tag_Label(2));
    EXPECT_TRUE(Tag_Label_Set(2, ""));
    EXPECT_EQ(Tag_Label(2), nullptr);
}

TEST_F(Segmentation, MarkersAreInTheirVariables)
{
    Marker_Color_Set(0, {0x12, 0x34, 0x56});
    EXPECT_EQ(Array_Variable<unsigned>("$MARKER_COLOR")[0], 0x563412u);
    EXPECT_EQ(Marker_Color(0), (Colors{0x12, 0x34, 0x56}));
    EXPECT_TRUE(Marker_Enabled(63));
    Marker_Enable(63, false);
    EXPECT_EQ(Array_Variable<unsigned char>("$MARKER_ENABLE")[63], 0);
    EXPECT_FALSE(Marker_Enabled(63));
    EXPECT_TRUE(Marker_Label_Set(2, "Nasion"));
    EXPECT_STREQ(Marker_Label(2), "Nasion");
    EXPECT_EQ(Array_Variable<char*>("$MARKER_LABEL")[2], Marker_Label(2));
    EXPECT_TRUE(Marker_Label_Set(2, nullptr));
    EXPECT_EQ(Marker_Label(2), nullptr);
    EXPECT_EQ(Tag_Label(2), nullptr);
}

TEST_F(Segmentation, ResetFreesNamesThatAnyoneStored)
{
    Array_Variable<char*>("$TAG_LABEL")[5] = strdup("from a panel");
    Array_Variable<char*>("$MARKER_LABEL")[5] = strdup("from a panel");
    Segmentation_Reset();
    EXPECT_EQ(Tag_Label(5), nullptr);
    EXPECT_EQ(Marker_Label(5), nullptr);
}

TEST_F(Segmentation, BrushesGetGridsOfTheLargestRadius)
{
    const std::vector<unsigned short> radii{3, 20, 7};
    ASSERT_TRUE(Brushes_Set(radii));
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_NB"), 3);
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_RADIUS"), 20);
    unsigned char*** grids = Array_Variable<unsigned char**>("$BRUSH_PT");
    for (int brush = 0; brush < 3; ++brush) {
        for (int row = 0; row <= 40; ++row)
            grids[brush][row][40] = static_cast<unsigned char>(brush + 1); // every byte is there
    }
    EXPECT_EQ(Brush_Shape(1)[40][40], 2);
    EXPECT_EQ(Brush_Shape(3), nullptr);
}

TEST_F(Segmentation, BrushesAreAtMostEightAndNoneIsTooLarge)
{
    const std::vector<unsigned short> radii{1, 2, 3, 4, 5, 6, 7, 400, 9, 10};
    ASSERT_TRUE(Brushes_Set(radii));
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_NB"), 8);
    EXPECT_EQ(Array_Variable<unsigned short>("$BRUSH_SIZE")[7], 181);
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_RADIUS"), 181);
}
