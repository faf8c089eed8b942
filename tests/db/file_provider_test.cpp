#include "db/tool_db_file.h"
#include "tests/db/own_files.h"
#include "tests/db/provider_fixture.h"

// What the list of files makes of the open files, and what it asks of the host.

using namespace test;

namespace {

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

TEST_F(FileProvider, FileHasTheIconOfItsFirstFramesModality)
{
    const std::pair<const char*, const char*> icons[] = {{"CT", "ct"}, {"MR", "mr"}, {"NM", "nm"}, {"PT", "nm"},
        {"ST", "nm"}, {"CR", "rx"}, {"PX", "rx"}, {"RG", "rx"}, {"US", "us"}, {"PH", "ph"}, {"SC", "ph"}, {"XA", "xa"},
        {"ct", "ot"}, {"OT", "ot"}, {"TC", "ot"}};
    for (const auto& [letters, icon] : icons)
        files.add("/a/x", {1, 1}).frames[0]->modality = static_cast<unsigned short>(letters[0] << 8 | letters[1]);
    build();
    for (size_t i = 0; i < std::size(icons); ++i) {
        const DB_List& file = panel.list_pt[1 + 3 * i];
        EXPECT_EQ(file.icon, std::string("modality ") + icons[i].second + ".tga") << icons[i].first;
        EXPECT_EQ(file.code, icons[i].first[0] * 256 + icons[i].first[1]);
    }
}

TEST_F(FileProvider, FramesAreDescribedByTheirImages)
{
    struct Kind {
        unsigned short flags, z, t;
        const char *icon, *text;
    };
    constexpr Kind kinds[] = {{0, 1, 1, "image", "1 (320x200)"}, {0, 0, 0, "folder", "2 (320x200)"},
        {0, 1, 0, "folder", "3 (320x200)"}, {0, 0, 1, "folder", "4 (320x200)"}, {0, 1, 7, "cine", "5 to 11"},
        {0, 0, 2, "cine", "6 to 7"}, {0, 5, 1, "volume", "7 to 11 (320x200)"}, {0, 5, 0, "volume", "8 to 12 (320x200)"},
        {0, 5, 7, "image", "9 to 13 (320x200)"}, {16, 1, 1, "scout", "10 (320x200)"},
        {16 | 1, 5, 1, "scout", "11 to 15 (320x200)"}, {0xFFEF, 1, 1, "image", "12 (320x200)"}};
    File_Record& file = files.add("/a/x", std::vector<unsigned short>(std::size(kinds), 1));
    for (size_t i = 0; i < std::size(kinds); ++i)
        *file.frames[i] = {0x4D52, kinds[i].flags, 320, 200, kinds[i].z, kinds[i].t};
    build();
    for (size_t i = 0; i < std::size(kinds); ++i) {
        const DB_List& frame = panel.list_pt[2 + i];
        EXPECT_EQ(frame.icon, std::string("icon ") + kinds[i].icon + ".tga") << i;
        EXPECT_STREQ(frame.name, kinds[i].text);
        EXPECT_STREQ(frame.title, "Frame");
        EXPECT_EQ(frame.color, 0u);
    }
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
