#include "hostkit/structures/tree.h"
#include "tests/workbench/session_fixture.h"
#include "workbench/model/host_words.h"

namespace {

namespace word = workbench::word;

// The trees of volumes and signals, as lists use them.
class SessionTrees : public test::SessionTest {
protected:
    static void* display_state() { return reinterpret_cast<void*>(4); }
    static bool is_selected(const Strato* object) { return object->Flag_Get_Bit(16, display_state(), 512) != 0; }
    static Strato_3D* volume(int index) { return hostkit::Root_3D()->Child_Get_Pt(0)->Child_Get_Pt(index); }
    static Strato_1D* signal(int index)
    {
        return hostkit::Root_1D()->Child_Get_Pt(0)->Child_Get_Pt(index)->Child_Get_Pt(0);
    }

    template <class Object>
    static void select_only(Object* root, Object* leaf, unsigned long long told)
    {
        root->Flag_Set_Off(48, display_state(), 512);
        if (leaf)
            leaf->Flag_Set_On(80, display_state(), 512);
        word::tell(told);
    }

    static int selected_frames(int series)
    {
        int count = 0;
        for (int z = 0; z < series_in_tree(series)->Child_Get_Nb(); ++z)
            count += is_selected(series_in_tree(series)->Child_Get_Pt(z));
        return count;
    }
};

TEST_F(SessionTrees, EachSeriesIsAVolumeAndHasAHistogram)
{
    open(8, 6, 5);
    open(8, 6, 3);
    const Strato_3D* volumes = hostkit::Root_3D();
    ASSERT_EQ(volumes->Child_Get_Nb(), 1) << "one study";
    EXPECT_STREQ(volumes->Name_Get(), "Volumes");
    EXPECT_STREQ(volumes->Child_Get_Pt(0)->Title_Get(), "Study");
    ASSERT_EQ(volumes->Child_Get_Pt(0)->Child_Get_Nb(), 2);
    EXPECT_EQ(volume(0)->Class_A_Get(), 0x3FFFu);
    EXPECT_STREQ(volume(0)->Title_Get(), "Volume");
    EXPECT_STREQ(volume(0)->Name_Get(), series_in_tree(0)->Name_Get());
    EXPECT_STREQ(volume(0)->Icon_Get(), "icon volume.tga");
    EXPECT_EQ(signal(1)->Class_A_Get(), 0x1FFFu);
    EXPECT_STREQ(signal(1)->Name_Get(), "Histogram");
    EXPECT_STREQ(signal(1)->Parent_Get_Pt()->Title_Get(), "Series");
    session.closeSeries();
    ASSERT_EQ(volumes->Child_Get_Pt(0)->Child_Get_Nb(), 1);
    session.closeSeries();
    EXPECT_EQ(volumes->Child_Get_Nb(), 0);
    EXPECT_EQ(hostkit::Root_1D()->Child_Get_Nb(), 0);
}

TEST_F(SessionTrees, AVolumeIsSelectedWhenAnyOfItsFramesIs)
{
    open(8, 6, 5);
    open(8, 6, 3);
    EXPECT_FALSE(is_selected(volume(0)));
    EXPECT_TRUE(is_selected(volume(1)));
    broadcasts();
    session.selection().chooseRange(1, 1);
    EXPECT_TRUE(is_selected(volume(1)));
    EXPECT_TRUE(is_selected(signal(1)));
    EXPECT_EQ(std::ranges::count(broadcasts(), word::selection_3D), 0) << "nothing changed there";
    session.showSeries(session.series()[0]);
    EXPECT_TRUE(is_selected(volume(0)));
    EXPECT_TRUE(is_selected(signal(0)));
    EXPECT_FALSE(is_selected(volume(1)));
    EXPECT_FALSE(is_selected(signal(1)));
    const auto told = broadcasts();
    EXPECT_EQ(std::ranges::count(told, word::selection_3D), 1);
    EXPECT_EQ(std::ranges::count(told, word::selection_1D), 1);
}

TEST_F(SessionTrees, SelectingAVolumeSelectsItsFramesAndShowsIt)
{
    open(8, 6, 5);
    open(8, 6, 3);
    select_only(hostkit::Root_3D(), volume(0), word::selection_3D);
    EXPECT_EQ(selected_frames(0), 5);
    EXPECT_EQ(selected_frames(1), 0);
    EXPECT_EQ(session.currentSeries(), session.series()[0]);
    EXPECT_TRUE(is_selected(signal(0)));
    EXPECT_FALSE(is_selected(signal(1)));
    select_only<Strato_3D>(hostkit::Root_3D(), nullptr, word::selection_3D);
    EXPECT_EQ(session.selection().count(), 0);
    EXPECT_FALSE(is_selected(signal(0)));
}

TEST_F(SessionTrees, AVolumeThatStaysSelectedLeavesItsFramesAlone)
{
    open(8, 6, 5);
    open(8, 6, 3);
    session.selection().chooseRange(1, 2);
    select_only(hostkit::Root_1D(), signal(1), word::selection_1D);
    EXPECT_EQ(session.selection().choice(), workbench::FrameSelection::Choice::range);
    signal(0)->Flag_Set_On(80, display_state(), 512);
    word::tell(word::selection_1D);
    EXPECT_EQ(selected_frames(0), 5);
    EXPECT_EQ(selected_frames(1), 2);
    EXPECT_TRUE(is_selected(volume(0)));
}

}
