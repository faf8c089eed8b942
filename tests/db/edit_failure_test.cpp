#include "db/edit_view.h"
#include "db/tool_db_class.h"
#include "tests/db/own_tree.h"
#include "tests/frame/failing_memory.h"
#include "tests/platform/test_window.h"
#include "tests/support/reports.h"

#include <gtest/gtest.h>

// The diagram when memory runs out, and with objects that have no texts.

using namespace test;
using Lines = std::vector<std::string>;

#ifndef _WIN32
namespace {

bool no_global_memory = false;
int refused = 0;

}

// Linked with --wrap of it.
extern "C" {
HGLOBAL __real__Z11GlobalAllocjm(UINT flags, SIZE_T bytes);
VETRA_EXPORT HGLOBAL __wrap__Z11GlobalAllocjm(UINT flags, SIZE_T bytes);

HGLOBAL __wrap__Z11GlobalAllocjm(UINT flags, SIZE_T bytes)
{
    if (!no_global_memory)
        return __real__Z11GlobalAllocjm(flags, bytes);
    ++refused;
    return nullptr;
}
}
#endif

class DiagramMemory : public ::testing::Test {
protected:
    DiagramMemory()
    {
        own_tree::reset();
        root = own_tree::add_2d(nullptr, {"root", "Root", "r"});
        first = own_tree::add_2d(root, {"first"}); // without texts
        own_tree::add_2d(first, {"inner", "Image", "i"});
        second = own_tree::add_2d(root, {"second", "Series", "s"});
        for (const char* id : {"one", "two", "three"})
            own_tree::add_2d(second, {id});
        Boxs area;
        area.window = window_.handle();
        area.width = 1300;
        area.height = 500;
        panel.Resize(&area);
        panel.Update(0x402);
        panel.Draw();
        own_tree::take_calls();
        reports.clear();
    }
    ~DiagramMemory() override
    {
        panel.List_Free(&panel);
        own_tree::reset();
    }

    // @param x from the left edge of the box of a row
    void point_at(int row, int x)
    {
        const auto origin = panel.Origin();
        RECT client{};
        GetClientRect(panel.list_box.window, &client);
        const DB_List& pointed = panel.list_pt[row];
        POINT place{origin.x + 330 * pointed.level + x, client.bottom - 1 - (origin.y - 50 * pointed.line - 30)};
        ClientToScreen(panel.list_box.window, &place);
        YCursor_X = place.x;
        YCursor_Y = place.y;
    }

    Lines memory_reports() const
    {
        Lines result;
        for (const std::string& text : reports.texts(1))
            result.push_back(text.substr(13)); // without its line
        return result;
    }

    static constexpr int body = 125, children = 250;

    Strato_2D* root;
    Strato_2D* first;
    Strato_2D* second;
    Tool_DB_Class panel{18};
    Reports reports;

private:
    const Test_Window window_{nullptr, 1300, 500};
};

TEST_F(DiagramMemory, WithoutRoomForWhatIsDraggedNothingIsMoved)
{
    point_at(3, children);
    panel.Click(18);
    point_at(1, children);
    {
        const Failing_New failing(1);
        EXPECT_EQ(panel.Click(0), 1);
        EXPECT_TRUE(failing.has_failed());
    }
    EXPECT_EQ(memory_reports(), Lines{"edit_click \nmemory error in new"});
    EXPECT_EQ(own_tree::take_calls(), Lines());
    EXPECT_EQ(second->Child_Get_Nb(), 3);
    panel.Click(0);
    EXPECT_EQ(second->Child_Get_Nb(), 3) << "and nothing is dragged any more";
}

TEST_F(DiagramMemory, WithoutRoomForANameItStays)
{
    point_at(3, body);
    {
        const Failing_New failing(1);
        EXPECT_EQ(panel.Click(66), 1);
        EXPECT_TRUE(failing.has_failed());
    }
    EXPECT_EQ(memory_reports(), Lines{"edit_click \nmemory error in new"});
    EXPECT_EQ(own_tree::take_calls(), Lines());
    EXPECT_STREQ(second->Name_Get(), "s");
}

#ifndef _WIN32
TEST_F(DiagramMemory, WithoutRoomForTheDialogTheNameStays)
{
    no_global_memory = true;
    refused = 0;
    for (const int row : {3, 1}) {
        point_at(row, body);
        EXPECT_EQ(panel.Click(66), 1);
    }
    no_global_memory = false;
    EXPECT_EQ(refused, 2);
    EXPECT_EQ(own_tree::take_calls(), Lines());
    EXPECT_STREQ(second->Name_Get(), "s");
    EXPECT_EQ(first->Name_Get(), nullptr);
}
#endif

TEST_F(DiagramMemory, ClassesWithoutTextsAreDrawnAndMoved)
{
    for (int row = 0; row < panel.nb; ++row) {
        for (const int x : {0, body, children, 290}) {
            point_at(row, x);
            EXPECT_EQ(panel.Motion(0), 1);
        }
    }
    point_at(4, 0);
    panel.Click(18);
    point_at(1, children);
    EXPECT_EQ(panel.Click(0), 1);
    EXPECT_EQ(own_tree::take_calls(), (Lines{"move one first null", "flag_on first 80 of 8 mask 268435456",
                                          "update 1026 null null", "redraw 268435455 null null"}));
    EXPECT_EQ(first->Child_Get_Nb(), 2);
}
