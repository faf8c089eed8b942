#include "hostkit/gadgets/select_chooser.h"
#include "hostkit/structures/tree.h"
#include "tests/support/panel_host.h"
#include "tools/tool_brush.h"
#include "tools/tool_marker.h"
#include "tools/tool_propagate.h"
#include "tools/tool_tag.h"

#include <array>
#include <cstdlib>
#include <random>

// Random events, changes and odd hosts, thousands of them: nothing crashes, no name leaks, and the panels still work
// afterwards. Run under the sanitizers this finds what nobody thought of.

namespace {

using hostkit::Array_Variable;
using hostkit::Object_Variable;
using hostkit::Variable;

int carry(void*, void*)
{
    Fct_Update(1ull << 21, nullptr, nullptr, nullptr);
    return 1;
}

class Storm {
public:
    Storm(std::vector<HWND> windows, Tool_Propagate& propagate, unsigned seed)
        : windows_(std::move(windows)), propagate_(propagate), random_(seed)
    {
        hostkit::Set_Select_Chooser([this](const Selects& select) { return pick(-2, select.Count()); });
    }
    ~Storm() { hostkit::Set_Select_Chooser({}); }
    Storm(const Storm&) = delete;
    Storm& operator=(const Storm&) = delete;

    void blow(int steps)
    {
        for (int i = 0; i < steps; ++i)
            step();
        Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") = 0;
        for (const HWND one : windows_)
            test::release(one, {0, 0});
    }

private:
    int pick(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
    HWND window() { return windows_[static_cast<size_t>(pick(0, static_cast<int>(windows_.size()) - 1))]; }
    test::Place place() { return {pick(-20, 320), pick(-20, 220)}; }
    test::Button button()
    {
        return std::array{
            test::Button::left, test::Button::middle, test::Button::right}[static_cast<size_t>(pick(0, 2))];
    }

    void step()
    {
        switch (pick(0, 16)) {
        case 0:
            return test::press(window(), place(), button());
        case 1:
            return test::release(window(), place());
        case 2:
        case 3:
            return test::move(window(), place());
        case 4:
            return test::turn_wheel(window(), place(), pick(-5, 5) * 60);
        case 5:
            return test::type(window(), std::string(1, static_cast<char>(pick(1, 255))));
        case 6:
            return test::type(window(), std::string(1, static_cast<char>(pick(0, 1) ? 13 : 27)));
        case 7:
            return test::key(window(), pick(33, 46));
        case 8:
            return resize();
        case 9:
            return change_counts();
        case 10:
            return change_arrays();
        case 11:
            return change_dimensions();
        case 12:
            SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
            return;
        case 13:
            return change_frames();
        case 14:
            return change_window();
        case 15:
            Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") = pick(0, 3) == 0;
            return;
        default:
            Fct_Update(1ull << pick(0, 63) | 1ull << pick(20, 47), nullptr, nullptr, nullptr);
        }
    }

    void resize() { MoveWindow(window(), 0, 0, pick(0, 400), pick(0, 300), TRUE); }

    void change_counts()
    {
        Variable<unsigned short>("$TAG_NB") = static_cast<unsigned short>(pick(0, 300));
        Variable<unsigned short>("$TAG_CUR") = static_cast<unsigned short>(pick(0, 255));
        Variable<unsigned short>("$MARKER_NB") = static_cast<unsigned short>(pick(0, 64));
        Variable<unsigned short>("$MARKER_CUR") = static_cast<unsigned short>(pick(0, 80));
        Variable<unsigned short>("$BRUSH_CUR") = static_cast<unsigned short>(pick(0, 9));
        std::vector<unsigned short> radii(static_cast<size_t>(pick(0, 10)));
        for (auto& radius : radii)
            radius = static_cast<unsigned short>(pick(0, 40));
        hostkit::Brushes_Set(radii);
        Variable<unsigned short>("$TAG_NB") = std::min<unsigned short>(Variable<unsigned short>("$TAG_NB"), 256);
        Fct_Update(1ull << 60 | 1ull << 23 | 1ull << 38, nullptr, nullptr, nullptr);
    }

    // An array goes away and comes back.
    void change_arrays()
    {
        const char* names[] = {"$TAG_RED", "$TAG_SELECT", "$TAG_LOCK", "$TAG_ENABLE", "$TAG_LABEL", "$BRUSH_SIZE",
            "$BRUSH_PT", "$MARKER_COLOR", "$MARKER_ENABLE", "$MARKER_LABEL", "$FRAME_CUR"};
        auto*& array = Array_Variable<unsigned char>(names[pick(0, 10)]);
        auto* const kept = array;
        array = nullptr;
        Fct_Update(0x1000F04000E00000ull, nullptr, nullptr, nullptr);
        test::press(window(), place(), button());
        test::type(window(), "x\r");
        array = kept;
    }

    // Frames and series come and go; most of the time the window shows one of them.
    void change_frames()
    {
        Strato_2D* const root = hostkit::Root_2D();
        if (root->Child_Get_Nb() == 0 || pick(0, 9) == 0)
            hostkit::Object_2D_Add(root, {});
        Strato_2D* const series = root->Child_Get_Pt(pick(0, root->Child_Get_Nb() - 1));
        for (int i = pick(0, 5); i > 0; --i)
            hostkit::Frame_Add(series, {.class_a = hostkit::frame_class});
        if (pick(0, 3) == 0)
            hostkit::Object_2D_Remove(series->Child_Get_Pt(pick(0, 3)));
        if (pick(0, 9) == 0)
            return hostkit::Object_2D_Remove(series);
        auto* const shown = series->Child_Get_Pt(pick(0, 5));
        Fct_Change_Child(Object_Variable<Strato_Window>("$WINDOW_CUR"), shown, nullptr);
        Fct_Update(pick(0, 1) ? 0x402 : 1ull << 60, nullptr, nullptr, nullptr);
    }

    void change_window()
    {
        auto*& current = Object_Variable<Strato_Window>("$WINDOW_CUR");
        auto* const kept = std::exchange(current, nullptr);
        test::press(window(), place(), button());
        propagate_.Set(pick(0, 4) == 0 ? nullptr : carry);
        propagate_.Propagate(pick(-2, 2));
        current = kept;
        propagate_.Propagate(pick(-2, 2));
    }

    void change_dimensions()
    {
        for (const char* name : {"$INTERFACE_SPACE_DIM", "$INTERFACE_BORDER_DIM", "$INTERFACE_CURSOR_DIM",
                 "$INTERFACE_BUTTON_DIM_SML", "$INTERFACE_LIST_DIM_SML", "$INTERFACE_LIST_DIM_ARROW"})
            Variable<short>(name) = static_cast<short>(pick(0, 40));
        BORDER = static_cast<short>(pick(0, 8));
        SPACE = static_cast<short>(pick(0, 8));
    }

    std::vector<HWND> windows_;
    Tool_Propagate& propagate_;
    std::mt19937 random_;
};

class EventStorm : public test::Panel_Host, public ::testing::WithParamInterface<unsigned> {};

}

TEST_P(EventStorm, LeavesWorkingPanels)
{
    int chosen = -1;
    hostkit::Panel_Slot<Tool_Tag> tags(main_window(), {.clicked = [&](int tag) { chosen = tag; }},
        static_cast<unsigned short>(GetParam() % 2 ? 32 : 1 | 16 | 256 | 512));
    hostkit::Panel_Slot<Tool_Brush> brushes(main_window(), {});
    hostkit::Panel_Slot<Tool_Marker> markers(main_window(), {});
    hostkit::Panel_Slot<Tool_Propagate> propagate(main_window(), {});
    hostkit::Window_Add("images");
    propagate.panel().Set(carry);
    const std::vector<HWND> windows = {tags.window(), brushes.window(), markers.window(), propagate.window()};
    for (const HWND window : windows) {
        MoveWindow(window, 0, 0, 300, 200, TRUE);
        ShowWindow(window, SW_SHOW);
    }
    Storm(windows, propagate.panel(), GetParam()).blow(3000);

    hostkit::Tree_Reset();
    hostkit::Registry_Reset();
    hostkit::Segmentation_Reset();
    MoveWindow(tags.window(), 0, 0, 420, tags.panel().Height(4), TRUE);
    tags.host().Lay_Out();
    test::click(tags.window(), {30, 15});
    EXPECT_EQ(chosen, 12) << "the tag at the lower left";
    Fct_Update(1ull << 60, nullptr, nullptr, nullptr);
    EXPECT_EQ(hostkit::Brush_Shape(0)[12][12], 1);
    markers.host().Lay_Out();
    EXPECT_EQ(markers.panel().Read(), 0);

    Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {});
    hostkit::Frame_Add(series, {});
    hostkit::Frame_Add(series, {});
    Strato_Window* const window = hostkit::Window_Add("images");
    propagate.panel().Set(carry);
    Fct_Change_Child(window, series->Child_Get_Pt(0), nullptr);
    EXPECT_EQ(propagate.panel().Propagate(1), 1);
    EXPECT_EQ(series->Child_Get_Cur(window), 1);
}

INSTANTIATE_TEST_SUITE_P(Seeds, EventStorm, ::testing::Range(1u, 13u));
