#include "db/rows.h"
#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "tests/db/own_files.h"
#include "tests/support/reports.h"

#include <gtest/gtest.h>

// What the lists of classes and of files make of the host's objects, and what they ask of the host.

using namespace test;
using Lines = std::vector<std::string>;

namespace {

class Providers : public ::testing::Test {
protected:
    Providers() { own_tree::reset(); }
    ~Providers() override { own_tree::reset(); }

    template <class Panel>
    int build(Panel& panel)
    {
        panel.List_Free(&panel);
        return panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr);
    }

    static Lines titles_of(const Tool_DB_List& panel)
    {
        Lines result;
        for (int i = 0; i < panel.nb; ++i)
            result.push_back(panel.list_pt[i].title ? panel.list_pt[i].title : "-");
        return result;
    }

    Reports reports;
};

class ClassProvider : public Providers {
protected:
    Strato_2D* add(Strato_2D* parent, const char* title, unsigned class_a = 0x2001, unsigned magic = 0)
    {
        return own_tree::add_2d(parent, {title, title, nullptr, class_a, magic});
    }
    Strato_2D* add_leaf(Strato_2D* parent, const char* title) { return add(parent, title, 0x2FFF, 0xAABA); }

    Tool_DB_Class panel;
};

class FileProvider : public Providers {
protected:
    int build()
    {
        files.show();
        return Providers::build(panel);
    }

    Strato_2D* add_object(const std::string& id, const Frame_Record* shown, const char* parent_title = "Series")
    {
        Strato_2D* const parent = own_tree::add_2d(nullptr, {"parent", parent_title});
        Strato_2D* const object = own_tree::add_2d(parent, {.id = id});
        own_tree::set_frame(object, shown);
        objects.push_back(object);
        own_tree::set_delivered(objects);
        return object;
    }

    Own_Files files;
    std::vector<Strato_2D*> objects;
    Tool_DB_File panel;
};

}

// ------------------------------------------------------------------------------------------------------- classes

TEST_F(ClassProvider, WithoutARootThereIsNothing)
{
    EXPECT_EQ(build(panel), 0);
    EXPECT_EQ(panel.nb, 0);
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), (Lines{"update 258 4 null", "redraw 268435455 null null"}));
}

TEST_F(ClassProvider, OtherDimensionsAreOneEmptyFolder)
{
    add(nullptr, "root");
    for (const int mode : {0, 4, 15, 20}) {
        Tool_DB_Class other(mode);
        EXPECT_EQ(build(other), 1);
        ASSERT_EQ(other.nb, 1);
        const DB_List& row = other.list_pt[0];
        EXPECT_EQ(row.state, DB_List::expanded);
        EXPECT_STREQ(row.icon, "icon folder.tga");
        EXPECT_EQ(row.object, nullptr);
        EXPECT_EQ(row.title, nullptr);
        EXPECT_EQ(row.nb_child, 0);
        own_tree::take_calls();
        other.List_Select_From_DB(other.nb, other.list_pt);
        other.List_Select_To_DB(other.nb, other.list_pt);
        EXPECT_EQ(own_tree::take_calls(), Lines{"redraw 268435455 null null"});
    }
}

TEST_F(ClassProvider, EachDimensionHasItsRootClassAndWord)
{
    const own_tree::Description root{"r", "Root"}, leaf1{"l", "L", "n", 0x1FFF}, leaf3{"l", "L", "n", 0x3FFF};
    own_tree::add_1d(own_tree::add_1d(nullptr, root), leaf1);
    own_tree::add_3d(own_tree::add_3d(nullptr, root), leaf3);
    for (const auto& [mode, word] : {std::pair{1, "257"}, std::pair{3, "260"}}) {
        Tool_DB_Class other(mode);
        EXPECT_EQ(build(other), 2);
        EXPECT_EQ(other.list_pt[1].state, DB_List::leaf);
        other.list_pt[1].select = DB_List::selected;
        own_tree::take_calls();
        other.List_Select_To_DB(other.nb, other.list_pt);
        EXPECT_EQ(
            own_tree::take_calls(), (Lines{"flag_off r 48", "flag_on l 80", std::string("update ") + word + " 4 null",
                                        "redraw 268435455 null null"}));
        other.list_pt[1].select = 0;
        other.List_Select_From_DB(other.nb, other.list_pt);
        EXPECT_EQ(other.list_pt[1].select, DB_List::selected);
    }
}

TEST_F(ClassProvider, LeftOutObjectsAreNoticed)
{
    Strato_2D* const root = add(nullptr, "Root");
    Strato_2D* const cuda = add(root, "Cuda_Volume");
    add_leaf(cuda, "below");
    add_leaf(root, "Leaf");
    EXPECT_EQ(build(panel), 2);
    EXPECT_EQ(titles_of(panel), (Lines{"Root", "Leaf"}));
    EXPECT_EQ(panel.list_pt[0].nb_child, 2) << "as the host counts";
    EXPECT_EQ(panel.list_pt[0].nb_desc, 1);
    EXPECT_EQ(reports.lines(), Lines{"11 Cuda_Volume"});
    add(nullptr, "Cuda_Volume");
    EXPECT_EQ(build(panel), 0);
    EXPECT_EQ(panel.nb, 0);
}

TEST_F(ClassProvider, StatesOfSpecialObjects)
{
    Strato_2D* const root = add(nullptr, "Root");
    add(root, "Acquis", 0x2FFF, 0xAABA);
    add_leaf(add(root, "Unlisted", 0x2FFD), "hidden");
    add(root, "Other leaf", 0x2FFE);
    add(root, "Acqui", 0x2FFF);
    ASSERT_EQ(build(panel), 5);
    EXPECT_EQ(panel.list_pt[1].state, 0);
    EXPECT_EQ(panel.list_pt[2].state, DB_List::expanded);
    EXPECT_EQ(panel.list_pt[2].nb_child, 0);
    EXPECT_EQ(panel.list_pt[3].state, DB_List::leaf | DB_List::inaccessible);
    EXPECT_EQ(panel.list_pt[4].state, DB_List::leaf);
    EXPECT_EQ(panel.list_pt[4].parent, 0);
}

TEST_F(ClassProvider, NullChildrenAreSkipped)
{
    Strato_2D* const root = add(nullptr, "Root");
    own_tree::add_null(root);
    add_leaf(root, "Leaf");
    EXPECT_EQ(build(panel), 2);
    EXPECT_EQ(panel.list_pt[0].nb_child, 2);
}

TEST_F(ClassProvider, LeavesOfAnotherKindKeepTheirSelection)
{
    Strato_2D* const root = add(nullptr, "Root");
    Strato_2D* const other = add(root, "Other", 0x2FFF, 0xBEEF);
    own_tree::set_selected(other, true);
    ASSERT_EQ(build(panel), 2);
    EXPECT_EQ(panel.list_pt[1].select, DB_List::selected) << "when it is made";
    own_tree::set_selected(other, false);
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[1].select, DB_List::selected);
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), (Lines{"flag_off Root 48", "update 258 4 null", "redraw 268435455 null null"}));
}

TEST_F(ClassProvider, RefreshReplacesOrClearsTheMark)
{
    Strato_2D* const leaf = add_leaf(add(nullptr, "Root"), "Leaf");
    build(panel);
    panel.list_pt[1].select = 0x13;
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[1].select, 0x11);
    own_tree::set_selected(leaf, true);
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[1].select, 2);
}

TEST_F(ClassProvider, WithoutAWindowTheChildIsOfferedAllTheSame)
{
    add_leaf(add(nullptr, "Root"), "Leaf");
    build(panel);
    panel.list_pt[1].select = DB_List::selected;
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(
        own_tree::take_calls(), (Lines{"flag_off Root 48", "flag_on Leaf 80", "change_child null Leaf null",
                                    "update 2097152 null null", "update 258 4 null", "redraw 268435455 null null"}));
}

TEST_F(ClassProvider, ListEndsAtTheLastRowNumber)
{
    Strato_2D* const root = add(nullptr, "Root");
    for (int i = 0; i < 3; ++i) {
        Strato_2D* const series = add(root, "Series");
        for (int k = 0; k < 30000; ++k)
            add_leaf(series, "i");
    }
    add_leaf(root, "never listed");
    EXPECT_EQ(build(panel), 65535);
    ASSERT_EQ(panel.nb, 65535);
    EXPECT_EQ(panel.list_pt[0].nb_desc, 65534);
    EXPECT_EQ(panel.list_pt[0].nb_child, 4);
    EXPECT_EQ(panel.list_pt[60003].nb_child, 30000);
    EXPECT_EQ(panel.list_pt[60003].nb_desc, 65534 - 60003);
    panel.Update(0x502);
    EXPECT_EQ(panel.list_pt[65534].line, 65534);
}

TEST_F(ClassProvider, DeepTreesAreListed)
{
    Strato_2D* folder = add(nullptr, "Root");
    for (int i = 0; i < 3000; ++i)
        folder = add(folder, "deeper");
    add_leaf(folder, "Leaf");
    EXPECT_EQ(build(panel), 3002);
    EXPECT_EQ(panel.list_pt[3001].level, 3001);
    EXPECT_EQ(panel.list_pt[0].nb_desc, 3001);
}

TEST_F(ClassProvider, WindowThatLocksItsSelectionGreysTheButtons)
{
    own_tree::show_window(2);
    panel.Update(0x100000);
    EXPECT_EQ(panel.select_all.state, 35u);
    EXPECT_EQ(panel.select_none.state, 35u);
    own_tree::show_window(1);
    panel.Update(0x100000);
    EXPECT_EQ(panel.select_all.state, 0u);
    EXPECT_EQ(panel.select_none.state, 0u);
}

// --------------------------------------------------------------------------------------------------------- files

TEST_F(FileProvider, WithoutFilesTheListIsEmpty)
{
    EXPECT_EQ(build(), 1);
    EXPECT_EQ(panel.list_pt, nullptr);
    files.pointers = {nullptr, nullptr};
    EXPECT_EQ(build(), 1);
    EXPECT_EQ(panel.nb, 0);
}

TEST_F(FileProvider, NeighboursShareADirectory)
{
    files.add("/a/one.dcm", {1});
    files.pointers.push_back(nullptr);
    files.add("/a/two.dcm", {1, 1, 10});
    files.add("/b/three.dcm", {});
    files.add("/a/four", {1});
    EXPECT_EQ(build(), 1);
    EXPECT_EQ(titles_of(panel),
        (Lines{"/a/", "File", "Frame", "File", "Frame", "Frame", "Frame", "/b/", "File", "/a/", "File", "Frame"}));
    const DB_List& directory = panel.list_pt[0];
    EXPECT_EQ(directory.nb_child, 2);
    EXPECT_EQ(directory.nb_desc, 6);
    EXPECT_EQ(directory.color, 0x00FFFFFFu);
    EXPECT_EQ(directory.object, nullptr);
    const DB_List& file = panel.list_pt[3];
    EXPECT_STREQ(file.name, "two.dcm");
    EXPECT_EQ(file.nb_child, 3);
    EXPECT_EQ(file.nb_desc, 3);
    EXPECT_EQ(file.parent, 0);
    EXPECT_EQ(file.code, 0x4354);
    EXPECT_EQ(file.object, files.pointers[2]);
    const DB_List& frame = panel.list_pt[6];
    EXPECT_STREQ(frame.name, "3 to 12 (256x256)");
    EXPECT_EQ(frame.index, 2);
    EXPECT_EQ(frame.parent, 3);
    EXPECT_EQ(frame.object, file.object);
    EXPECT_EQ(panel.list_pt[8].code, 0) << "without frames";
    EXPECT_STREQ(panel.list_pt[8].icon, "modality ot.tga");
    EXPECT_EQ(panel.list_pt[10].parent, 9);
}

TEST_F(FileProvider, FirstFileWithoutADirectoryHasARowForIt)
{
    files.add("one.dcm", {1});
    files.add("two.dcm", {1});
    build();
    EXPECT_EQ(titles_of(panel), (Lines{"-", "File", "Frame", "File", "Frame"}));
    EXPECT_EQ(panel.list_pt[0].nb_child, 2);
}

TEST_F(FileProvider, MissingPartsOfRecordsAreZero)
{
    files.add("/a/x", {1, 1}).frames[1] = nullptr;
    File_Record& bare = files.add("/a/y", {1});
    bare.frames = nullptr;
    bare.frame_flags = nullptr;
    files.add("/a/z").path = nullptr;
    EXPECT_EQ(build(), 1);
    EXPECT_STREQ(panel.list_pt[3].name, "2 (0x0)");
    EXPECT_STREQ(panel.list_pt[3].icon, "icon folder.tga");
    EXPECT_EQ(panel.list_pt[4].code, 0);
    EXPECT_STREQ(panel.list_pt[5].name, "1 (0x0)");
    EXPECT_EQ(panel.list_pt[6].title, nullptr) << "the directory of no path";
    EXPECT_EQ(panel.list_pt[7].name, nullptr);
    own_tree::show_window();
    add_object("o", nullptr);
    own_tree::set_selected(objects[0], true);
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[3].select, 0) << "no frame is not this frame";
}

TEST_F(FileProvider, InaccessibleFramesAreMarked)
{
    files.add("/a/x", {1, 1}).frame_flags[1] = 64 | 1;
    build();
    EXPECT_EQ(panel.list_pt[2].select, 0);
    EXPECT_EQ(panel.list_pt[3].select, DB_List::locked);
    EXPECT_EQ(panel.list_pt[3].state, DB_List::leaf);
}

TEST_F(FileProvider, WithoutAWindowOrAnIteratorNothingIsDone)
{
    File_Record& file = files.add("/a/x", {1});
    build();
    own_tree::set_selected(add_object("o", file.frames[0]), true);
    own_tree::take_calls();
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), Lines());
    own_tree::show_window();
    own_tree::fail_iterators(true);
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), Lines());
    EXPECT_EQ(panel.list_pt[2].select, 0);
}

TEST_F(FileProvider, ChangesAreWrittenEachWithItsWords)
{
    File_Record& file = files.add("/a/x", {1, 1});
    build();
    own_tree::show_window();
    add_object("on", file.frames[0]);
    own_tree::set_selected(add_object("off", file.frames[1]), true);
    own_tree::set_selected(add_object("out", file.frames[1], "Cuda_Volume"), true);
    panel.list_pt[2].select = DB_List::selected;
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(),
        (Lines{"begin Tool_DB_File::List_Select_To_DB", "flag_on on 16", "update 258 4 on", "redraw 1024 window on",
            "flag_off off 16", "update 258 4 null", "redraw 268435072 4 null", "end"}));
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), (Lines{"begin Tool_DB_File::List_Select_To_DB", "end"}));
    EXPECT_EQ(own_tree::open_iterators(), 0);
}

TEST_F(FileProvider, HostThatAnswersAtOnceLosesNoSelection)
{
    File_Record& file = files.add("/a/x", {1, 1, 1});
    build();
    own_tree::show_window();
    for (int i = 0; i < 3; ++i)
        add_object(std::to_string(i), file.frames[i]);
    for (int row = 2; row < 5; ++row)
        panel.list_pt[row].select = DB_List::selected;
    own_tree::on_update([&](unsigned long long word) { panel.Update(word); });
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    for (const Strato_2D* object : objects)
        EXPECT_TRUE(own_tree::is_selected(object));
}

TEST_F(FileProvider, ListEndsAtTheLastRowNumberWithCountsThatAgree)
{
    const std::vector<unsigned short> frames(30000, 1);
    for (const char* path : {"/a/1", "/a/2", "/b/3", "/c/4"})
        files.add(path, frames);
    EXPECT_EQ(build(), 0);
    ASSERT_EQ(panel.nb, 65535);
    EXPECT_EQ(panel.list_pt[0].nb_desc, 60002);
    EXPECT_EQ(panel.list_pt[60003].nb_desc, 65534 - 60003);
    EXPECT_EQ(panel.list_pt[60004].nb_child, 65534 - 60004);
    EXPECT_EQ(reports.lines(), Lines());
}
