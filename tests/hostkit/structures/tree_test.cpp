#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"

#include <gtest/gtest.h>

#include <vector>

using namespace hostkit;

namespace {

void* word(uintptr_t number)
{
    return reinterpret_cast<void*>(number);
}

class Tree : public ::testing::Test {
protected:
    Tree()
    {
        Tree_Reset();
        Registry_Reset();
        series = Object_2D_Add(Root_2D(), {.name = "T1", .title = "Series", .class_a = 0x2005, .class_b = 3});
        for (unsigned i = 0; i < 3; ++i)
            frames.push_back(Frame_Add(series,
                {.name = "frame", .title = "Frame", .class_a = frame_class, .class_b = i, .magic = frame_magic}));
    }
    ~Tree() override { Tree_Reset(); }

    Strato_2D* series;
    std::vector<Strato_2D_Frame*> frames;
};

}

TEST_F(Tree, ObjectsKeepWhatTheyWereMadeWith)
{
    EXPECT_STREQ(series->Name_Get(), "T1");
    EXPECT_STREQ(series->Title_Get(), "Series");
    EXPECT_EQ(series->Class_A_Get(), 0x2005u);
    EXPECT_EQ(series->Class_B_Get(), 3u);
    EXPECT_EQ(frames[1]->Class_Magic_Get(), 0xAABAu);
    series->Name_Set("T2");
    EXPECT_STREQ(series->Name_Get(), "T2");
    series->Name_Set(nullptr);
    EXPECT_STREQ(series->Name_Get(), "");
}

TEST_F(Tree, ChildrenAndParentsFindEachOther)
{
    EXPECT_EQ(Object_Variable<Strato_2D>("$DB_2D_ROOT_PT"), Root_2D());
    EXPECT_EQ(Root_2D()->Parent_Get_Pt(), nullptr);
    EXPECT_EQ(Root_2D()->Child_Get_Nb(), 1);
    EXPECT_EQ(series->Child_Get_Nb(), 3);
    EXPECT_EQ(series->Child_Get_Pt(2), frames[2]);
    EXPECT_EQ(series->Child_Get_Pt(3), nullptr);
    EXPECT_EQ(series->Child_Get_Pt(-1), nullptr);
    EXPECT_EQ(frames[0]->Parent_Get_Pt(), series);
    EXPECT_EQ(Child_Index(frames[2]), 2);
}

TEST_F(Tree, FlagsBelongToAWordOfAnObject)
{
    EXPECT_EQ(frames[0]->Flag_Get_Bit(16, word(4), 512), 0);
    frames[0]->Flag_Set_On(16, word(4), 512 | 1);
    EXPECT_NE(frames[0]->Flag_Get_Bit(16, word(4), 512), 0);
    EXPECT_NE(frames[0]->Flag_Get_Bit(16, word(4), 512 | 2), 0) << "any bit of the mask";
    EXPECT_EQ(frames[0]->Flag_Get_Bit(16, word(8), 512), 0) << "another word";
    EXPECT_EQ(frames[0]->Flag_Get_Bit(0, word(4), 512), 0) << "the object was not asked for";
    EXPECT_EQ(frames[1]->Flag_Get_Bit(16, word(4), 512), 0);
    EXPECT_EQ(series->Flag_Get_Bit(16, word(4), 512), 0);
    frames[0]->Flag_Set_Off(16, word(4), 512);
    EXPECT_EQ(frames[0]->Flag_Get_Bit(16, word(4), 512), 0);
    EXPECT_NE(frames[0]->Flag_Get_Bit(16, word(4), 1), 0);
}

TEST_F(Tree, FlagsReachAncestorsAndDescendants)
{
    frames[1]->Flag_Set_On(80, word(4), 512);
    EXPECT_NE(series->Flag_Get_Bit(16, word(4), 512), 0);
    EXPECT_NE(Root_2D()->Flag_Get_Bit(16, word(4), 512), 0);
    EXPECT_EQ(frames[0]->Flag_Get_Bit(16, word(4), 512), 0);
    Root_2D()->Flag_Set_Off(48, word(4), 512);
    for (const Strato_2D* object : {Root_2D(), series, static_cast<Strato_2D*>(frames[1])})
        EXPECT_EQ(object->Flag_Get_Bit(16, word(4), 512), 0);
    series->Flag_Set_On(32, word(8), 1ull << 63);
    EXPECT_EQ(series->Flag_Get_Bit(16, word(8), 1ull << 63), 0) << "descendants alone";
    EXPECT_NE(frames[2]->Flag_Get_Bit(16, word(8), 1ull << 63), 0);
}

TEST_F(Tree, RemovingTellsAndKeepsTheObjectUntilEveryoneHasHeard)
{
    std::vector<unsigned long long> heard;
    int children_when_told = -1;
    std::string name_when_told;
    const auto subscription = On_Update([&](unsigned long long flags) {
        heard.push_back(flags);
        children_when_told = series->Child_Get_Nb();
        name_when_told = frames[0]->Name_Get();
    });
    Object_2D_Remove(frames[0]);
    EXPECT_EQ(heard, (std::vector<unsigned long long>{0x402}));
    EXPECT_EQ(children_when_told, 2);
    EXPECT_EQ(name_when_told, "frame");
    EXPECT_EQ(Child_Index(frames[1]), 0);
    EXPECT_EQ(Child_Index(frames[2]), 1);
}

TEST_F(Tree, RemovingLetsNoVariableNameTheObjectOrWhatIsBelowIt)
{
    Strato_Window* window = Window_Add("View");
    Fct_Change_Child(window, frames[1], nullptr);
    Object_Variable<Strato_2D>("$FRAME_OVR") = frames[2];
    Object_2D_Remove(series);
    EXPECT_EQ(Window_Frame(window), nullptr);
    EXPECT_EQ(Object_Variable<Strato_2D>("$FRAME_OVR"), nullptr);
    EXPECT_EQ(Root_2D()->Child_Get_Nb(), 0);
}

TEST_F(Tree, FramesHaveTheSizeOfTheirPixels)
{
    static const unsigned char pixels[6 * 4 * 3] = {};
    EXPECT_EQ(Frame_Size(frames[0]), (Pixel_Size{0, 0}));
    Series_Pixels_Set(series, {Pixel_Type::u8, pixels, 6, 4, 3});
    EXPECT_EQ(Frame_Size(frames[2]), (Pixel_Size{6, 4}));
    Series_Pixels_Set(series, {});
    EXPECT_EQ(Frame_Size(frames[2]), (Pixel_Size{0, 0}));
}

TEST_F(Tree, TheRootAndNothingCannotBeRemoved)
{
    Object_2D_Remove(nullptr);
    Object_2D_Remove(Root_2D());
    EXPECT_EQ(Root_2D()->Child_Get_Nb(), 1);
}

TEST_F(Tree, ADeepTreeIsClearedWithoutRecursion)
{
    Strato_2D* deepest = series;
    for (int i = 0; i < 100000; ++i)
        deepest = Object_2D_Add(deepest, {});
    deepest->Flag_Set_On(80, word(4), 512);
    EXPECT_NE(series->Flag_Get_Bit(16, word(4), 512), 0);
    Root_2D()->Flag_Set_Off(48, word(4), 512);
    EXPECT_EQ(deepest->Flag_Get_Bit(16, word(4), 512), 0);
}

TEST_F(Tree, OneAndThreeDimensionsHaveTreesOfTheirOwn)
{
    Strato_1D* const signal = Object_1D_Add(Root_1D(), {.name = "ECG", .title = "Signal", .class_a = signal_class});
    Strato_3D* const surface = Object_3D_Add(Root_3D(), {.name = "skull", .title = "Surface", .class_a = object_class});
    EXPECT_EQ(Object_Variable<Strato_1D>("$DB_1D_ROOT_PT"), Root_1D());
    EXPECT_EQ(Object_Variable<Strato_3D>("$DB_3D_ROOT_PT"), Root_3D());
    EXPECT_EQ(Root_1D()->Child_Get_Nb(), 1);
    EXPECT_EQ(Root_1D()->Child_Get_Pt(0), signal);
    EXPECT_EQ(Root_1D()->Child_Get_Pt(1), nullptr);
    EXPECT_EQ(signal->Parent_Get_Pt(), Root_1D());
    EXPECT_EQ(signal->Class_A_Get(), 0x1FFFu);
    EXPECT_EQ(Root_3D()->Child_Get_Pt(0), surface);
    EXPECT_EQ(surface->Parent_Get_Pt(), Root_3D());
    EXPECT_STREQ(surface->Title_Get(), "Surface");
    EXPECT_EQ(Root_2D()->Child_Get_Nb(), 1) << "the series";
    surface->Flag_Set_On(80, word(4), 512);
    EXPECT_NE(Root_3D()->Flag_Get_Bit(16, word(4), 512), 0);
    EXPECT_EQ(Root_1D()->Flag_Get_Bit(16, word(4), 512), 0);
    Tree_Reset();
    EXPECT_EQ(Object_Variable<Strato_1D>("$DB_1D_ROOT_PT"), nullptr);
    EXPECT_EQ(Object_Variable<Strato_3D>("$DB_3D_ROOT_PT"), nullptr);
}

TEST_F(Tree, IconsAreThoseOfTheDescription)
{
    EXPECT_EQ(series->Icon_Get(), nullptr);
    const Strato* const signal = Object_1D_Add(Root_1D(), {.icon = "icon signal.tga"});
    EXPECT_STREQ(signal->Icon_Get(), "icon signal.tga");
}
