#include "db/browse_view.h"
#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "tests/db/own_files.h"
#include "tests/frame/failing_memory.h"
#include "tests/support/reports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

// The database list when memory runs out: every allocation fails in turn.

// The linker gives the shared libraries this one too, so it has to be visible.
extern "C" char* __real_strdup(const char* text);
extern "C" VETRA_EXPORT char* __wrap_strdup(const char* text);

extern "C" char* __wrap_strdup(const char* text)
{
    return test::Allocation_Fails() ? nullptr : __real_strdup(text);
}

using namespace test;
using Lines = std::vector<std::string>;

namespace {

class DatabaseMemory : public ::testing::Test {
protected:
    DatabaseMemory()
    {
        own_tree::reset();
        Strato_2D* const root = own_tree::add_2d(nullptr, {"r", "Root", "r"});
        for (int i = 0; i < 3; ++i) {
            Strato_2D* const series = own_tree::add_2d(root, {"s", "Series", "s"});
            for (int k = 0; k < 3; ++k)
                own_tree::add_2d(series, {"i", "Image", "i", 0x2FFF, 0xAABA});
        }
        File_Record& file = files.add("/a/one.dcm", {1, 1});
        files.add("/b/two.dcm", {1});
        files.show();
        own_tree::show_window();
        Strato_2D* const parent = own_tree::add_2d(root, {"p", "Series"});
        shown = own_tree::add_2d(parent, {"o", "Image", "o", 0x2FFF, 0xAABA});
        own_tree::set_frame(shown, file.frames[0]);
        own_tree::set_delivered({shown});
    }
    ~DatabaseMemory() override { own_tree::reset(); }

    /// The text of a report without its line number.
    Lines memory_reports() const
    {
        Lines result;
        for (const std::string& text : reports.texts(1)) {
            EXPECT_EQ(text.compare(0, 5, "line "), 0) << text;
            EXPECT_EQ(text.substr(9, 4), " of ") << text;
            result.push_back(text.substr(13));
        }
        return result;
    }

    static std::string growth(const std::string& source, int rows)
    {
        return source + " \nmemory error in realloc (var=(*list_pt), dim=" + std::to_string(rows) + "x" +
               std::to_string(sizeof(DB_List)) + ")";
    }
    static std::string copy(const std::string& source, const std::string& field)
    {
        return source + " \nmemory error in strdup (var=(*list_pt)[nb]." + field + ")";
    }

    /// That rows are in pre-order, each within its folder.
    static void expect_sound(const Tool_DB_List& panel)
    {
        for (int i = 0; panel.list_pt && i < panel.nb; ++i) {
            EXPECT_LE(i + panel.list_pt[i].nb_desc, panel.nb - 1);
            EXPECT_TRUE(i == 0 || panel.list_pt[i].parent < i || panel.list_pt[i].level == 0);
        }
    }

    /// Uses a panel in every way that touches rows.
    static void use(Tool_DB_List& panel)
    {
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        DB_2D_Class_List_Paint(&panel);
        DB_2D_Class_List_Select(&panel);
        panel.Update(0x102);
        panel.Draw();
    }

    template <class Panel>
    Lines fail_each_allocation_of_building()
    {
        Lines seen;
        for (int n = 1;; ++n) {
            SCOPED_TRACE("allocation " + std::to_string(n));
            Panel panel;
            reports.clear();
            bool failed = false;
            {
                const Failing_New failing(n);
                panel.Update(0x400);
                failed = failing.has_failed();
            }
            const Lines told = memory_reports();
            seen.insert(seen.end(), told.begin(), told.end());
            EXPECT_EQ(told.size(), failed ? 1u : 0u);
            expect_sound(panel);
            use(panel);
            Panel copied(panel);
            panel.Update(0x400);
            EXPECT_GT(panel.nb, 5) << "the panel goes on";
            if (!failed)
                return seen;
            if (n > 1000)
                return {};
        }
    }

    Own_Files files;
    Strato_2D* shown;
    Reports reports;
};

}

TEST_F(DatabaseMemory, EveryAllocationOfTheClassesMayFail)
{
    const Lines seen = fail_each_allocation_of_building<Tool_DB_Class>();
    const auto count = [&](const std::string& text) { return std::count(seen.begin(), seen.end(), text); };
    EXPECT_EQ(count(growth("tool_db_class", 1)), 1);
    EXPECT_EQ(count(growth("tool_db_class", 9)), 1);
    EXPECT_EQ(count(copy("tool_db_class", "title")), 15);
    EXPECT_EQ(count(copy("tool_db_class", "name")), 14);
    EXPECT_EQ(static_cast<int>(seen.size()), 15 + 14 + 5);
}

TEST_F(DatabaseMemory, ResultsTellWhatIsThere)
{
    for (int n = 1;; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        Tool_DB_Class classes;
        Tool_DB_File opened;
        bool failed[2];
        unsigned short result[2];
        Tool_DB_List* const panels[] = {&classes, &opened};
        for (const int i : {0, 1}) {
            const Failing_New failing(n);
            result[i] = panels[i]->List_Create_From_DB(&panels[i]->nb, &panels[i]->list_pt, 0, 0, nullptr);
            failed[i] = failing.has_failed();
        }
        const bool has_root = classes.list_pt && classes.list_pt[0].name;
        EXPECT_EQ(result[0], has_root ? classes.list_pt[0].nb_desc + 1 : 0);
        EXPECT_EQ(result[1], failed[1] ? 0 : 1);
        if (!failed[0] && !failed[1])
            break;
    }
}

TEST_F(DatabaseMemory, ClassesWithoutRoomAreLost)
{
    Tool_DB_Class panel;
    const Failing_New failing(4); // the second growth: root with two texts before
    EXPECT_EQ(panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr), 0);
    EXPECT_EQ(panel.list_pt, nullptr);
    EXPECT_EQ(panel.nb, 1);
    EXPECT_EQ(memory_reports(), Lines{growth("tool_db_class", 2)});
}

TEST_F(DatabaseMemory, ClassWithoutItsTextStaysAndIsNotCounted)
{
    Tool_DB_Class panel;
    const Failing_New failing(5); // growth, two texts, growth, the title of the first series
    EXPECT_EQ(panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr), 11);
    EXPECT_EQ(panel.nb, 12);
    EXPECT_EQ(panel.list_pt[1].title, nullptr);
    EXPECT_EQ(panel.list_pt[1].nb_desc, 0);
    EXPECT_EQ(memory_reports(), Lines{copy("tool_db_class", "title")});
}

TEST_F(DatabaseMemory, EveryAllocationOfTheFilesMayFail)
{
    const Lines seen = fail_each_allocation_of_building<Tool_DB_File>();
    const auto count = [&](const std::string& text) { return std::count(seen.begin(), seen.end(), text); };
    EXPECT_EQ(count(growth("tool_db_file", 1)), 1);
    EXPECT_EQ(count(growth("tool_db_file", 5)), 1);
    EXPECT_EQ(count(copy("tool_db_file", "title")), 7);
    EXPECT_EQ(count(copy("tool_db_file", "name")), 5);
    EXPECT_EQ(count("tool_db_file \nmemory error in new"), 2);
}

TEST_F(DatabaseMemory, FilesWithoutRoomKeepTheRowsSoFar)
{
    Tool_DB_File panel;
    const Failing_New failing(13); // the fifth row, of the second directory
    const unsigned short result = panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr);
    EXPECT_EQ(result, 0);
    EXPECT_NE(panel.list_pt, nullptr);
    EXPECT_EQ(panel.nb, 4);
    EXPECT_EQ(memory_reports(), Lines{growth("tool_db_file", 5)});
    expect_sound(panel);
}

TEST_F(DatabaseMemory, SelectionOfFilesNeedsItsTable)
{
    Tool_DB_File panel;
    panel.Update(0x400);
    own_tree::set_selected(shown, true);
    own_tree::take_calls();
    for (const bool writes : {false, true}) {
        reports.clear();
        const Failing_New failing(1);
        if (writes)
            panel.List_Select_To_DB(panel.nb, panel.list_pt);
        else
            panel.List_Select_From_DB(panel.nb, panel.list_pt);
        EXPECT_EQ(memory_reports(), Lines{"tool_db_file \nmemory error in new"});
    }
    EXPECT_EQ(own_tree::take_calls(), Lines());
    EXPECT_EQ(panel.list_pt[2].select, 0);
}

TEST_F(DatabaseMemory, CopyWithoutAnOwnerIsEmpty)
{
    Tool_DB_Class panel;
    panel.Update(0x400);
    const int rows = panel.nb;
    {
        const Failing_New failing(1);
        const Tool_DB_Class copied(panel);
        EXPECT_EQ(copied.nb, 0);
        EXPECT_EQ(copied.list_pt, nullptr);
    }
    EXPECT_EQ(memory_reports(), Lines{"tool_db_list \nmemory error in new"});
    EXPECT_EQ(panel.nb, rows);
    EXPECT_STREQ(panel.list_pt[0].title, "Root");
}
