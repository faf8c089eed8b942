// Panels in a host whose variables do not exist at first.

#include "host/basics.h"
#include "host/gadgets.h"
#include "hostkit/basics/report.h"
#include "tests/tools/own_registry.h"
#include "tools/tool_brush.h"
#include "tools/tool_marker.h"
#include "tools/tool_propagate.h"
#include "tools/tool_tag.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>
#include <vector>

using namespace own_registry;

namespace {

LRESULT CALLBACK plain_window(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    return DefWindowProcA(window, message, wparam, lparam);
}

HWND make_window()
{
    WNDCLASSA description{};
    description.lpfnWndProc = plain_window;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "Vetra test";
    RegisterClassA(&description);
    const HWND window = CreateWindowExA(
        0, "Vetra test", "", WS_OVERLAPPEDWINDOW, 0, 0, 600, 400, nullptr, nullptr, description.hInstance, nullptr);
    ShowWindow(window, SW_SHOW);
    return window;
}

class MissingVariables : public ::testing::Test {
protected:
    MissingVariables()
    {
        hostkit::Set_Report_Sink({[this](const hostkit::Report& report) {
                                      reported_errors += report.level < 14;
                                      return true;
                                  },
            nullptr});
        area.window = make_window();
        area.width = 408;
        area.height = 97;
        area.border = 2;
        area.state = 66;
        take_sent();
    }

    ~MissingVariables() override
    {
        hostkit::Set_Report_Sink({});
        DestroyWindow(area.window);
    }

    void point_at(int x, int y) const
    {
        RECT client{};
        GetClientRect(area.window, &client);
        Y_Cursor(area.window, x, client.bottom - 1 - y);
    }

    template <class Panel>
    void send_everything(Panel& panel)
    {
        EXPECT_EQ(panel.Resize(&area), 1);
        panel.Draw();
        for (int bit = 0; bit < 64; ++bit)
            panel.Update(1ull << bit);
        panel.Update(~0ull);
        for (const int x : {5, 60, 300}) {
            point_at(x, 50);
            panel.Motion(0);
            panel.Click(18);
            panel.Motion(17);
            panel.Click(0);
            panel.Click(66);
            panel.Keyboard('a');
            panel.Keyboard(13);
            panel.Scroll(1);
        }
        panel.Leave();
        EXPECT_TRUE(take_sent().empty());
        EXPECT_EQ(reported_errors, 0);
        EXPECT_TRUE(asked_to_create().empty()) << "these panels create no variables";
    }

    Boxs area;
    int reported_errors = 0;
};

}

// In order: the panels keep addresses for the life of the process.

TEST_F(MissingVariables, NoPanelNeedsAnyVariable)
{
    Tool_Tag tags;
    EXPECT_EQ(tags.Height(4), 5);
    send_everything(tags);
    Tool_Brush brushes;
    EXPECT_EQ(brushes.Height(), 8);
    send_everything(brushes);
    Tool_Marker markers;
    EXPECT_EQ(markers.Height(4), 5);
    send_everything(markers);
    for (const int index : {tags.Read(), brushes.Read(), markers.Read()})
        EXPECT_EQ(index, 0);
    Tool_Propagate propagate;
    EXPECT_EQ(propagate.Height(), 0);
    propagate.Set([](void*, void*) { return 1; });
    send_everything(propagate);
    EXPECT_EQ(propagate.Propagate(1), 0);
    EXPECT_EQ(propagate.Propagate(-1), 0);
}

TEST_F(MissingVariables, ACountWithoutAnyArrayShowsNumbers)
{
    define_number("$TAG_NB", 16);
    define_dimension("$INTERFACE_BORDER_DIM", 2);
    define_dimension("$INTERFACE_BUTTON_DIM_SML", 20);
    Tool_Tag tags;
    ASSERT_EQ(tags.Resize(&area), 1);
    point_at(54, 15);
    EXPECT_EQ(tags.Click(18), 12);
    tags.Update(~0ull);
    EXPECT_EQ(tags.Click(66), -1);
    EXPECT_EQ(tags.Keyboard('a'), 0) << "no names to write into";
    define_number("$MARKER_NB", 16);
    Tool_Marker markers;
    ASSERT_EQ(markers.Resize(&area), 1);
    EXPECT_EQ(markers.Click(18), 12);
    markers.Update(~0ull);
    EXPECT_EQ(markers.Click(66), -1);
    EXPECT_EQ(markers.Keyboard('a'), 0);
    define_number("$BRUSH_NB", 4);
    Tool_Brush brushes;
    ASSERT_EQ(brushes.Resize(&area), 1);
    brushes.Update(~0ull);
    brushes.Draw();
    EXPECT_EQ(reported_errors, 0);
}

TEST_F(MissingVariables, VariablesThatComeLaterAreFound)
{
    static char* names[16] = {};
    static unsigned short words[16] = {};
    define_array("$TAG_LABEL", names);
    for (const char* name : {"$TAG_RED", "$TAG_GRN", "$TAG_BLU"})
        define_array(name, words);
    define_number("$TAG_CUR", 3);
    Tool_Tag tags;
    ASSERT_EQ(tags.Resize(&area), 1);
    point_at(54, 15);
    EXPECT_EQ(tags.Click(66), -1);
    EXPECT_EQ(tags.Keyboard('b'), 1);
    EXPECT_EQ(tags.Keyboard(13), 1);
    EXPECT_STREQ(names[12], "12b");
    std::free(names[12]);
    names[12] = nullptr;
    EXPECT_EQ(take_sent(), std::vector{0x800000000000ull});
    tags.Update(1ull << 22);
    EXPECT_EQ(tags.Read(), 3);
}

TEST_F(MissingVariables, MarkerNamesThatComeLaterAreFoundAndTheirTypeIsAskedFor)
{
    static char* names[16] = {};
    define_array("$MARKER_LABEL", names);
    Tool_Marker markers;
    ASSERT_EQ(markers.Resize(&area), 1);
    point_at(54, 15);
    EXPECT_EQ(markers.Click(66), -1);
    EXPECT_EQ(markers.Keyboard('b'), 1);
    EXPECT_TRUE(asked_for_type());
    EXPECT_EQ(markers.Keyboard(13), 1);
    EXPECT_STREQ(names[12], "12b");
    std::free(std::exchange(names[12], nullptr));
    EXPECT_EQ(take_sent(), std::vector{0x800000000000ull});
}

TEST_F(MissingVariables, ShapesAreBuiltOnceTheirGridsAreThere)
{
    unsigned short sizes[] = {2};
    unsigned char bytes[3][3] = {};
    unsigned char* rows[] = {bytes[0], bytes[1], bytes[2]};
    unsigned char** grids[] = {rows};
    define_number("$BRUSH_NB", 1);
    define_number("$BRUSH_RADIUS", 1);
    define_array("$BRUSH_SIZE", sizes);
    define_array("$BRUSH_PT", grids);
    Tool_Brush brushes;
    brushes.Update(1ull << 23);
    EXPECT_EQ(bytes[0][0] + bytes[1][1] + bytes[2][2], 3);
}
