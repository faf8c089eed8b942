#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/files.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/tree.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

using namespace hostkit;

namespace {

Frame_Description frame_of(unsigned short width, bool accessible = true)
{
    return {.record = {.modality = 0x4354, .width = width, .height = 20, .images_z = 1, .images_t = 1},
        .accessible = accessible};
}

class Files : public ::testing::Test {
protected:
    Files()
    {
        Tree_Reset();
        Registry_Reset();
        object = Frame_Add(Root_2D(), {.name = "shown", .class_a = frame_class});
    }
    ~Files() override { Tree_Reset(); }

    // As the file list reads them.
    static std::vector<File_Record*> listed()
    {
        auto* const* first =
            static_cast<File_Record**>(Fct_Variable_Value("$DB_2D_FILE_PT", nullptr, nullptr, nullptr));
        const auto count = reinterpret_cast<uintptr_t>(Fct_Variable_Value("$DB_2D_FILE_NB", nullptr, nullptr, nullptr));
        return {first, first + count};
    }

    using Files_Listed = std::vector<File_Record*>;
    Strato_2D* object;
};

}

TEST_F(Files, AreListedInTheOrderOfOpening)
{
    EXPECT_TRUE(listed().empty());
    File_Record* const one = File_Add("/data/one.dcm", {frame_of(10), frame_of(11, false)});
    File_Record* const other = File_Add("/data/other.dcm", {});
    EXPECT_EQ(listed(), (Files_Listed{one, other}));
    EXPECT_STREQ(one->path, "/data/one.dcm");
    ASSERT_EQ(one->nb_frames, 2);
    EXPECT_EQ(one->frames[0]->modality, 0x4354);
    EXPECT_EQ(one->frames[1]->width, 11);
    EXPECT_EQ(one->frame_flags[0] & inaccessible_frame, 0);
    EXPECT_NE(one->frame_flags[1] & inaccessible_frame, 0);
    EXPECT_EQ(other->nb_frames, 0);
}

TEST_F(Files, ObjectsShowAFrameOfOne)
{
    File_Record* const file = File_Add("one.dcm", {frame_of(10), frame_of(11)});
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
    Frame_Shows(object, file, 1);
    EXPECT_EQ(object->Frame_Record_Get(), file->frames[1]);
    Frame_Shows(object, file, 2);
    EXPECT_EQ(object->Frame_Record_Get(), nullptr) << "there is no such frame";
    Frame_Shows(object, file, 0);
    Frame_Shows(object, nullptr, 0);
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
}

TEST_F(Files, WhenOneIsClosedObjectsShowNoneOfIt)
{
    File_Record* const first = File_Add("first.dcm", {frame_of(10)});
    File_Record* const second = File_Add("second.dcm", {frame_of(11)});
    Strato_2D* const kept = Frame_Add(Root_2D(), {.name = "kept"});
    Frame_Shows(object, first, 0);
    Frame_Shows(kept, second, 0);
    File_Remove(first);
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
    EXPECT_EQ(kept->Frame_Record_Get(), second->frames[0]);
    EXPECT_EQ(listed(), Files_Listed{second});
    File_Remove(nullptr);
    EXPECT_EQ(listed(), Files_Listed{second});
    File_Remove(second);
    EXPECT_TRUE(listed().empty());
}

TEST_F(Files, RecordsStayUntilThePanelsHaveBeenTold)
{
    File_Record* const file = File_Add("one.dcm", {frame_of(10)});
    Frame_Shows(object, file, 0);
    int width_when_told = 0;
    size_t listed_when_told = 1;
    std::vector<unsigned long long> words;
    const Subscription subscription = On_Update([&](unsigned long long word) {
        words.push_back(word);
        width_when_told = file->frames[0]->width;
        listed_when_told = listed().size();
    });
    {
        const Panel_Call in_a_panel;
        File_Remove(file);
        EXPECT_TRUE(words.empty());
        EXPECT_EQ(file->frames[0]->width, 10);
    }
    EXPECT_EQ(words, std::vector<unsigned long long>{series_tree_changed});
    EXPECT_EQ(width_when_told, 10);
    EXPECT_EQ(listed_when_told, 0u);
}

TEST_F(Files, CloseWhileAnObjectThatShowsOneIsBeingRemoved)
{
    File_Record* const file = File_Add("one.dcm", {frame_of(10)});
    Frame_Shows(object, file, 0);
    const Panel_Call in_a_panel;
    Object_2D_Remove(object);
    EXPECT_NE(object->Frame_Record_Get(), nullptr);
    File_Remove(file);
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
}

TEST_F(Files, ObjectsMayGoBeforeTheFile)
{
    File_Record* const file = File_Add("one.dcm", {frame_of(10)});
    Frame_Shows(object, file, 0);
    Object_2D_Remove(object);
    EXPECT_EQ(file->frames[0]->width, 10);
}

TEST_F(Files, EmptySlotsAndRecordsAreTolerated)
{
    File_Record* const one = File_Add("one.dcm", {frame_of(10)});
    File_Record* const other = File_Add("other.dcm", {frame_of(11)});
    Frame_Shows(object, one, 0);
    one->frames[0] = nullptr;
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
    one->frames = nullptr;
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
    Array_Variable<File_Record*>("$DB_2D_FILE_PT")[0] = nullptr;
    File_Remove(other);
    EXPECT_EQ(listed(), Files_Listed{nullptr});
    File_Remove(one);
    EXPECT_EQ(object->Frame_Record_Get(), nullptr);
}

TEST_F(Files, AndFramesAreCountedInSixteenBits)
{
    EXPECT_THROW(File_Add("one.dcm", std::vector<Frame_Description>(65536)), std::length_error);
    EXPECT_TRUE(listed().empty());
    EXPECT_EQ(File_Add("one.dcm", std::vector<Frame_Description>(65535))->nb_frames, 65535);
    for (size_t count = 1; count < 65535; ++count)
        File_Add("more.dcm", {});
    EXPECT_EQ(listed().size(), 65535u);
    EXPECT_THROW(File_Add("one too many.dcm", {}), std::length_error);
    EXPECT_EQ(listed().size(), 65535u);
}

TEST_F(Files, AreClosedByAReset)
{
    Frame_Shows(object, File_Add("one.dcm", {frame_of(10)}), 0);
    Tree_Reset();
    EXPECT_TRUE(listed().empty());
    EXPECT_EQ(listed(), Files_Listed{});
}
