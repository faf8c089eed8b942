#include "hostkit/gadgets/select_chooser.h"
#include "hostkit/structures/tree.h"
#include "tests/support/modal_work.h"
#include "tests/support/panel_host.h"
#include "tools/tool_brush.h"
#include "tools/tool_marker.h"
#include "tools/tool_propagate.h"
#include "tools/tool_tag.h"

using namespace test;
using hostkit::Panel_Rules;
using hostkit::Panel_Slot;
using hostkit::Variable;

// The panels as a program has them: in their slots, fed with window messages.

namespace {

constexpr unsigned long long current_tag = 1ull << 22;
constexpr unsigned long long brushes_changed = 1ull << 23;
constexpr unsigned long long locks = 1ull << 44;
constexpr unsigned long long labels = 1ull << 47;
constexpr int width = 408;

Panel_Rules choose_tag()
{
    return {.clicked = [](int tag) {
        if (tag < 0)
            return;
        Variable<unsigned short>("$TAG_CUR") = static_cast<unsigned short>(tag);
        Fct_Update(current_tag, nullptr, nullptr, nullptr);
    }};
}

class PanelsInHost : public Panel_Host {
protected:
    template <class Panel>
    void show(Panel_Slot<Panel>& slot, int height)
    {
        MoveWindow(slot.window(), 0, 0, width, height, TRUE);
        ShowWindow(slot.window(), SW_SHOW);
        broadcasts();
        reports.clear();
    }

    // The panel fills its window: margin 4, four columns of 100, rows of 22, tags 0 to 3 in the highest row of 16.
    static Place tag_place(int tag) { return {4 + tag % 4 * 100 + 40, 4 + (3 - tag / 4) * 22 + 11}; }
};

}

TEST_F(PanelsInHost, AClickMakesATagTheHostsCurrentOne)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    const auto before = pixels(slot.window());
    click(slot.window(), tag_place(6));
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 6);
    EXPECT_EQ(broadcasts(), std::vector{current_tag});
    EXPECT_EQ(slot.panel().Read(), 6);
    EXPECT_NE(pixels(slot.window()), before);
}

TEST_F(PanelsInHost, TagZeroIsAResultLikeAnyOther)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    click(slot.window(), tag_place(6));
    click(slot.window(), tag_place(0));
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 0);
    EXPECT_EQ(slot.panel().Read(), 0);
}

TEST_F(PanelsInHost, ATagIsRenamedByTheRightButtonAndKeys)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    click(slot.window(), tag_place(6), Button::right);
    type(slot.window(), "\b");
    type(slot.window(), "Spleen\r");
    ASSERT_NE(hostkit::Tag_Label(6), nullptr);
    EXPECT_STREQ(hostkit::Tag_Label(6), "Spleen");
    EXPECT_EQ(broadcasts(), std::vector{labels});
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 0);
    EXPECT_FALSE(slot.host().Editing());
}

TEST_F(PanelsInHost, ALongNameIsShownWholeOnceTheChangeIsDelivered)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    click(slot.window(), tag_place(6), Button::right);
    type(slot.window(), std::string(44, 'n') + "\r");
    click(slot.window(), tag_place(6), Button::right);
    type(slot.window(), "\r");
    EXPECT_EQ(std::string(hostkit::Tag_Label(6)).size(), 45u);
}

TEST_F(PanelsInHost, EscapeEndsARenaming)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    click(slot.window(), tag_place(6), Button::right);
    type(slot.window(), "xyz\x1b");
    EXPECT_EQ(hostkit::Tag_Label(6), nullptr);
    EXPECT_FALSE(slot.host().Editing());
}

TEST_F(PanelsInHost, ALockedTagIsNotChosen)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    hostkit::Tag_Lock(6, true);
    Fct_Update(locks, nullptr, nullptr, nullptr);
    click(slot.window(), tag_place(6));
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 0);
    hostkit::Tag_Lock(6, false);
    Fct_Update(locks, nullptr, nullptr, nullptr);
    click(slot.window(), tag_place(6));
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 6);
}

TEST_F(PanelsInHost, LocksAndTheCurrentTagOutliveANewSize)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    hostkit::Tag_Lock(6, true);
    Variable<unsigned short>("$TAG_CUR") = 9;
    show(slot, slot.panel().Height(4));
    EXPECT_EQ(slot.panel().Read(), 9);
    click(slot.window(), tag_place(6));
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 9);
    MoveWindow(slot.window(), 0, 0, width + 8, slot.panel().Height(4), TRUE);
    click(slot.window(), tag_place(6));
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 9);
}

TEST_F(PanelsInHost, TheWheelScrollsTheTags)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, 97 - 44); // half of the rows
    const Place lowest{60, 8};
    turn_wheel(slot.window(), lowest, -10 * WHEEL_DELTA);
    click(slot.window(), lowest);
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 12);
    turn_wheel(slot.window(), lowest, 10 * WHEEL_DELTA);
    click(slot.window(), {60, 53 - 8});
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 0);
}

TEST_F(PanelsInHost, TheSliderIsDraggedBeyondTheWindow)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, 97 - 44);
    press(slot.window(), {10, 45});
    move(slot.window(), {10, -200});
    release(slot.window(), {10, -200});
    click(slot.window(), {60, 8});
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 12);
}

TEST_F(PanelsInHost, BrushesAreChosenAndRecolouredTogetherWithTheTags)
{
    Panel_Slot<Tool_Tag> tags(main_window(), choose_tag());
    show(tags, tags.panel().Height(4));
    std::unique_ptr<Panel_Slot<Tool_Brush>> brushes;
    brushes = std::make_unique<Panel_Slot<Tool_Brush>>(main_window(), Panel_Rules{.clicked = [&](int used) {
        if (!used)
            return;
        Variable<unsigned short>("$BRUSH_CUR") = static_cast<unsigned short>(brushes->panel().Read());
        Fct_Update(brushes_changed, nullptr, nullptr, nullptr);
    }});
    MoveWindow(brushes->window(), 0, 200, 308, brushes->panel().Height(), TRUE);
    ShowWindow(brushes->window(), SW_SHOW);
    EXPECT_NE(hostkit::Brush_Shape(2)[12][12], 0) << "the layout's refresh has built the shapes";

    click(tags.window(), tag_place(6));
    const Place fifth{4 + 4 * 60 + 30, 20};
    EXPECT_EQ(pixel(brushes->window(), fifth), hostkit::Tag_Color(6));
    click(brushes->window(), fifth);
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_CUR"), 4);
    EXPECT_EQ(brushes->panel().Read(), 4);
    keep_picture(tags.window(), "tag_panel");
    keep_picture(brushes->window(), "brush_panel");
}

TEST_F(PanelsInHost, ARowThatReachesOnePixelBeyondTheListIsStillDrawnAndHit)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, 65 + 2 * 4); // three rows of 22, less a pixel
    turn_wheel(slot.window(), {200, 30}, -20 * WHEEL_DELTA);
    constexpr int left_of_buttons = 4 + 16 + 4;
    click(slot.window(), {left_of_buttons + 10, 4 + 2 * 22 + 10});
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 4);
    click(slot.window(), {left_of_buttons + 10, 4 + 10});
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 12);
}

TEST_F(PanelsInHost, GreyingATagClearsTheVisibleButtonsAndUngreyingDoesNot)
{
    Panel_Slot<Tool_Tag> slot(main_window(), choose_tag());
    show(slot, slot.panel().Height(4));
    click(slot.window(), tag_place(1), Button::right);
    const Place in_editor{tag_place(1).x + 40, tag_place(1).y};
    const Colors editor = pixel(slot.window(), in_editor);
    const Colors back = hostkit::Panel_Look().back;
    ASSERT_NE(editor, back);

    hostkit::Tag_Lock(6, true);
    slot.panel().Update(locks); // not through the slot, which would draw the editor again
    EXPECT_EQ(pixel(slot.window(), in_editor), back);

    slot.host().Lay_Out();
    click(slot.window(), tag_place(1), Button::right);
    hostkit::Tag_Lock(6, false);
    slot.panel().Update(locks);
    EXPECT_EQ(pixel(slot.window(), in_editor), editor);
}

// ----------------------------------------------------------------------------------------------------- markers

TEST_F(PanelsInHost, AClickMakesAMarkerTheHostsCurrentOneAndItsNameCanBeEdited)
{
    Panel_Slot<Tool_Marker> slot(main_window(), {.clicked = [](int marker) {
        if (marker < 0)
            return;
        Variable<unsigned short>("$MARKER_CUR") = static_cast<unsigned short>(marker);
        Fct_Update(current_tag, nullptr, nullptr, nullptr);
    }});
    hostkit::Panel_Look look;
    look.state |= 0x100000;
    slot.host().Set_Look(look);
    hostkit::Array_Variable<unsigned char>("$MARKER_ENABLE")[3] = 0;
    show(slot, slot.panel().Height(2)); // eight markers
    const auto place = [](int marker) { return Place{4 + marker % 4 * 100 + 40, 4 + (1 - marker / 4) * 22 + 11}; };
    click(slot.window(), place(6));
    EXPECT_EQ(Variable<unsigned short>("$MARKER_CUR"), 6);
    EXPECT_EQ(slot.panel().Read(), 6);
    EXPECT_EQ(broadcasts(), std::vector{current_tag});
    click(slot.window(), place(1), Button::right);
    EXPECT_TRUE(slot.host().Editing());
    type(slot.window(), "\b"
                        "Apex\r");
    const char* const name = hostkit::Array_Variable<char*>("$MARKER_LABEL")[1];
    ASSERT_NE(name, nullptr);
    EXPECT_STREQ(name, "Apex");
    EXPECT_EQ(broadcasts(), std::vector{labels});
    click(slot.window(), place(2), Button::right);
    keep_picture(slot.window(), "marker_panel");
}

// --------------------------------------------------------------------------------------------------- propagate

namespace {

int carried = 0;

int count_carried(void*, void*)
{
    ++carried;
    return 1;
}

class PropagateInHost : public PanelsInHost {
protected:
    PropagateInHost()
    {
        carried = 0;
        series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "T1"});
        for (int i = 0; i < 12; ++i)
            hostkit::Frame_Add(series, {.class_a = hostkit::frame_class});
        window = hostkit::Window_Add("images");
        Fct_Change_Child(window, series->Child_Get_Pt(5), nullptr);
        slot.panel().Set(count_carried);
        MoveWindow(slot.window(), 0, 0, 260, slot.panel().Height(), TRUE);
        ShowWindow(slot.window(), SW_SHOW);
        Fct_Update(1ull << 60, nullptr, nullptr, nullptr);
        broadcasts();
    }
    ~PropagateInHost() override
    {
        hostkit::Set_Select_Chooser({});
        hostkit::Tree_Reset();
    }

    int shown_index() const { return series->Child_Get_Cur(window); }

    static constexpr Place on_down{20, 15};
    static constexpr Place on_list{130, 15};
    static constexpr Place on_up{240, 15};

    Panel_Slot<Tool_Propagate> slot{main_window(), {}};
    Strato_2D* series;
    Strato_Window* window;
};

}

TEST_F(PropagateInHost, ClicksWheelAndKeysGoThroughTheSeries)
{
    click(slot.window(), on_up);
    EXPECT_EQ(shown_index(), 6);
    click(slot.window(), on_down);
    click(slot.window(), on_down);
    EXPECT_EQ(shown_index(), 4);
    EXPECT_EQ(carried, 3);
    turn_wheel(slot.window(), on_list, -3 * WHEEL_DELTA);
    EXPECT_EQ(shown_index(), 7);
    move(slot.window(), on_list);
    key(slot.window(), VK_HOME);
    EXPECT_EQ(shown_index(), 0);
    key(slot.window(), VK_NEXT);
    EXPECT_EQ(shown_index(), 10);
    key(slot.window(), VK_RIGHT);
    EXPECT_EQ(shown_index(), 11);
    hostkit::Set_Select_Chooser([](const Selects&) { return 8; });
    click(slot.window(), on_list);
    EXPECT_EQ(shown_index(), 8);
    EXPECT_EQ(carried, 3) << "only the buttons carry";
    keep_picture(slot.window(), "propagate_panel");
}

TEST_F(PropagateInHost, TheChangeOfTheFrameGreysTheButtons)
{
    hostkit::Set_Select_Chooser([](const Selects&) { return 11; });
    click(slot.window(), on_list);
    click(slot.window(), on_up);
    EXPECT_EQ(shown_index(), 11) << "there is no further one";
    EXPECT_EQ(carried, 0);
    click(slot.window(), on_down);
    EXPECT_EQ(shown_index(), 10);
    click(slot.window(), on_up);
    EXPECT_EQ(shown_index(), 11);
    EXPECT_EQ(carried, 2);
    keep_picture(slot.window(), "propagate_panel_last");
}

TEST_F(PropagateInHost, AKeyOfAnotherPanelMovesNoList)
{
    Panel_Slot<Tool_Tag> tags(main_window(), {});
    show(tags, tags.panel().Height(4));
    key(tags.window(), VK_END);
    move(slot.window(), on_list);
    EXPECT_EQ(slot.panel().Keyboard(2083), 1);
    EXPECT_EQ(shown_index(), 5) << "nobody recorded this key";
}

TEST_F(PropagateInHost, TheOpenedListSwallowsTheReleaseAndThePanelGoesOn)
{
    Modal_Work modal;
    modal.post([](HWND list) {
        RECT client{};
        GetClientRect(list, &client);
        EXPECT_EQ(client.bottom, 12 * 24 + 2) << "all frames";
        release(list, {60, client.bottom + 10}); // of the press that opened it
        click(list, {60, client.bottom - 1 - 24 * 9 - 12});
    });
    press(slot.window(), on_list);
    EXPECT_TRUE(modal.done());
    EXPECT_EQ(shown_index(), 9);
    EXPECT_EQ(GetCapture(), nullptr);
    click(slot.window(), on_up);
    EXPECT_EQ(shown_index(), 10);
}

TEST_F(PropagateInHost, APressBesideTheOpenedListEndsWhereItBegan)
{
    Modal_Work modal;
    modal.post([](HWND list) {
        release(list, {60, 1000});
        press(list, {60, 1000});
    });
    press(slot.window(), on_list);
    EXPECT_EQ(shown_index(), 5) << "dismissed";
    EXPECT_EQ(GetCapture(), slot.window());
    release(slot.window(), {600, 600});
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(carried, 0);
}
