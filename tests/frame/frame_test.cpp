#include "frame/change_flags.h"
#include "frame/colors.h"
#include "frame/drawing.h"
#include "frame/events.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/tag_colors.h"
#include "frame/widget_state.h"
#include "tests/support/panel_host.h"

#include <chrono>
#include <future>
#include <thread>

using hostkit::Array_Variable;
using hostkit::Variable;

// ------------------------------------------------------------------------------------------------------- words

TEST(ChangeFlags, HaveTheBitsThatHostsSend)
{
    EXPECT_EQ(frame::change::frame_tree, 0x402ull);
    EXPECT_EQ(frame::change::current_frame, 0x200000ull);
    EXPECT_EQ(frame::change::current_tag, 0x400000ull);
    EXPECT_EQ(frame::change::brushes, 0x800000ull);
    EXPECT_EQ(frame::change::tag_colors, 0x4000000000ull);
    EXPECT_EQ(frame::change::tag_locks, 0x100000000000ull);
    EXPECT_EQ(frame::change::tag_enables, 0x200000000000ull);
    EXPECT_EQ(frame::change::tag_selections, 0x400000000000ull);
    EXPECT_EQ(frame::change::labels, 0x800000000000ull);
    EXPECT_EQ(frame::change::everything, 0x1000000000000000ull);
}

TEST(ChangeFlags, AnyOfTheBitsIsEnough)
{
    EXPECT_TRUE(frame::has_any(0x1000000000800000ull, frame::change::brushes | frame::change::everything));
    EXPECT_TRUE(frame::has_any(0x800000, frame::change::brushes | frame::change::everything));
    EXPECT_FALSE(frame::has_any(0x400000, frame::change::brushes | frame::change::everything));
    EXPECT_FALSE(frame::has_any(0, ~0ull));
    EXPECT_FALSE(frame::has_any(~0ull, 0));
}

TEST(ChangeFlags, APairNeedsBothItsBits)
{
    EXPECT_TRUE(frame::has_all(0x402, frame::change::frame_tree));
    EXPECT_TRUE(frame::has_all(~0ull, frame::change::frame_tree));
    EXPECT_FALSE(frame::has_all(0x2, frame::change::frame_tree));
    EXPECT_FALSE(frame::has_all(~0x400ull, frame::change::frame_tree));
}

TEST(Keys, AreTheLowSixteenBits)
{
    EXPECT_EQ(frame::key_code(2081), 2081);
    EXPECT_EQ(frame::key_code(0x70000 | 'b'), 'b');
    EXPECT_EQ(frame::key_code(-1), 0xffff);
}

TEST(UpDownWord, HasTheValuesThatHostsSend)
{
    EXPECT_EQ(frame::up_down::release, 0);
    EXPECT_EQ(frame::up_down::right_press, 2 + 64);
    EXPECT_EQ(frame::escape_key, 27);
}

TEST(WidgetState, HasTheValuesThatHostsCompare)
{
    EXPECT_EQ(frame::state::active, 0u);
    EXPECT_EQ(frame::state::greyed, 35u);
    EXPECT_EQ(frame::state::panel_box, 66u);
    EXPECT_EQ(frame::state::being_edited, 3u);
    EXPECT_EQ(frame::state::row_button, 0x400000u);
    EXPECT_EQ(frame::state::row_button_marked, 0x500000u);
    EXPECT_EQ(frame::state::slider, 0x8000004u);
    EXPECT_EQ(frame::state::hidden_slider, 7u);
    EXPECT_EQ(frame::state::select_list, 8448u);
    EXPECT_EQ(frame::state::greyed_select_list, 8483u);
    EXPECT_EQ(frame::state::editor, 0x80000000u);
    EXPECT_EQ(frame::state::closed_editor, 0x80000003u);
}

// ----------------------------------------------------------------------------------------------------- colours

TEST(FrameColours, KeepTheirThreeOrdersApart)
{
    const Colors color = frame::from_tag_words(0x12ff, 0x3400, 0x567f);
    EXPECT_EQ(color, (Colors{0x12, 0x34, 0x56}));
    EXPECT_EQ(frame::to_picture_pixel(color), 0x123456u) << "blue in the low byte";
    EXPECT_EQ(color.get(), 0x563412u) << "the platform's: red in the low byte";
}

TEST(FrameColours, OfMarkersHaveRedInTheLowByte)
{
    EXPECT_EQ(frame::from_marker_word(0xff563412), (Colors{0x12, 0x34, 0x56})) << "the highest byte says nothing";
}

TEST(FrameColours, NoTagIsGrey)
{
    EXPECT_EQ(frame::no_tag_grey, (Colors{170, 170, 170}));
}

class FrameInHost : public test::Panel_Host {};

TEST_F(FrameInHost, TagColoursComeFromTheThreeArrays)
{
    frame::Kept_Tag_Colors kept;
    hostkit::Tag_Color_Set(0, {1, 2, 3});
    hostkit::Tag_Color_Set(5, {0x12, 0x34, 0x56});
    EXPECT_TRUE(kept.get().complete());
    EXPECT_EQ(kept.get().of(5), (Colors{0x12, 0x34, 0x56}));
    EXPECT_EQ(kept.get().of(0), frame::no_tag_grey);
    for (const char* name : {"$TAG_RED", "$TAG_GRN", "$TAG_BLU"}) {
        auto* const array = std::exchange(Array_Variable<unsigned short>(name), nullptr);
        EXPECT_FALSE(kept.get().complete()) << name;
        EXPECT_EQ(kept.get().of(5), frame::no_tag_grey) << name;
        Array_Variable<unsigned short>(name) = array;
    }
    EXPECT_EQ(kept.get().of(5), (Colors{0x12, 0x34, 0x56}));
}

// ---------------------------------------------------------------------------------------------------- registry

TEST_F(FrameInHost, NumbersAreUnsignedAndDimensionsSigned)
{
    Variable<unsigned short>("$TAG_CUR") = 65535;
    Variable<short>("$INTERFACE_SPACE_DIM") = -3;
    EXPECT_EQ(frame::number("$TAG_CUR"), 65535);
    EXPECT_EQ(frame::dimension("$INTERFACE_SPACE_DIM"), -3);
}

TEST_F(FrameInHost, WhatIsMissingIsZero)
{
    EXPECT_EQ(frame::value_of("$NO_SUCH_VARIABLE"), nullptr);
    EXPECT_EQ(frame::number("$NO_SUCH_VARIABLE"), 0);
    EXPECT_EQ(frame::dimension("$NO_SUCH_VARIABLE"), 0);
    EXPECT_EQ(frame::array<unsigned char>("$NO_SUCH_VARIABLE"), nullptr);
}

TEST_F(FrameInHost, AnArrayIsItsFirstElement)
{
    EXPECT_EQ(frame::array<unsigned char>("$TAG_LOCK"), Array_Variable<unsigned char>("$TAG_LOCK"));
    Array_Variable<unsigned char>("$TAG_LOCK") = nullptr;
    EXPECT_EQ(frame::array<unsigned char>("$TAG_LOCK"), nullptr);
}

TEST_F(FrameInHost, AnAddressIsAskedForUntilItIsThere)
{
    frame::Kept_Address<unsigned short> kept("$FRAME_TEST_LATER");
    EXPECT_EQ(kept.get(), nullptr);
    EXPECT_EQ(kept.value(), 0);
    auto& number = Variable<unsigned short>("$FRAME_TEST_LATER");
    number = 12;
    EXPECT_EQ(kept.get(), &number);
    EXPECT_EQ(kept.value(), 12);
    number = 13;
    EXPECT_EQ(kept.value(), 13) << "the value is read each time";
}

TEST_F(FrameInHost, AskingForAnAddressCreatesNoVariable)
{
    frame::Kept_Address<unsigned short> kept("$FRAME_TEST_NEVER");
    EXPECT_EQ(kept.get(), nullptr);
    EXPECT_EQ(Fct_Variable_Get("$FRAME_TEST_NEVER", nullptr, nullptr, nullptr, 0), nullptr);
}

// ----------------------------------------------------------------------------------------------------- reports

TEST_F(FrameInHost, MemoryFailuresNameLineSourceAndVariable)
{
    frame::report_new_failed(7, "tool_tag");
    frame::report_strdup_failed(225, "tool_tag", "(*TAG_Label_Pt)[Tag_Label_Cur]");
    const std::vector<test::Report> expected{{1, "line 7    of tool_tag \nmemory error in new"},
        {1, "line 225  of tool_tag \nmemory error in strdup (var=(*TAG_Label_Pt)[Tag_Label_Cur])"}};
    EXPECT_EQ(reports.all(), expected);
}

TEST(ReportLevel, TracesHaveTheirOwnLevels)
{
    EXPECT_EQ(frame::level::memory, 1);
    EXPECT_EQ(frame::level::warning, 2);
    EXPECT_EQ(frame::level::marker_trace, 15);
    EXPECT_EQ(frame::level::handler_trace, 16);
    EXPECT_EQ(frame::level::internal_trace, 17);
}

// ----------------------------------------------------------------------------------------------------- drawing

namespace {

// Whether another thread can enter the critical section. A thread that cannot is left waiting.
bool critical_is_free()
{
    auto entered = std::make_shared<std::promise<void>>();
    auto told = entered->get_future();
    std::thread([entered] {
        EnterCriticalSection(&Critical);
        LeaveCriticalSection(&Critical);
        entered->set_value();
    }).detach();
    return told.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
}

}

TEST_F(FrameInHost, DrawingOpensAndClosesTheContext)
{
    {
        const frame::Drawing drawing(main_window(), "Test");
        EXPECT_TRUE(drawing.ready());
        EXPECT_NE(Y_DC, nullptr);
        EXPECT_EQ(Y_Window, main_window());
        EXPECT_EQ(Critical_Flag, 1);
    }
    EXPECT_EQ(Y_DC, nullptr);
    EXPECT_EQ(Y_Window, nullptr);
    EXPECT_TRUE(reports.all().empty());
    EXPECT_TRUE(critical_is_free());
}

TEST_F(FrameInHost, DrawingNowhereReportsAndReleases)
{
    {
        const frame::Drawing drawing(nullptr, "Test");
        EXPECT_FALSE(drawing.ready());
        EXPECT_EQ(Y_DC, nullptr);
        EXPECT_EQ(reports.all(), (std::vector<test::Report>{{11, "Y_setup(Test) GetDC failed"}}));
        reports.clear();
    }
    EXPECT_EQ(reports.all(), (std::vector<test::Report>{{11, "Y_release() Failed!"}}));
    EXPECT_EQ(Y_DC, nullptr);
    EXPECT_EQ(Y_Window, nullptr);
    EXPECT_TRUE(critical_is_free());
}

TEST_F(FrameInHost, ANamelessCallerIsReportedWithDashes)
{
    {
        const frame::Drawing drawing(nullptr, nullptr);
    }
    EXPECT_EQ(reports.texts(11), (std::vector<std::string>{"Y_setup(---) GetDC failed", "Y_release() Failed!"}));
}

TEST_F(FrameInHost, DrawingInDrawingKeepsTheContext)
{
    const frame::Drawing outer(main_window(), "Outer");
    const HDC context = Y_DC;
    {
        const frame::Drawing inner(main_window(), "Inner");
        EXPECT_EQ(Y_DC, context);
    }
    EXPECT_EQ(Y_DC, context);
    EXPECT_EQ(Y_Window, main_window());
    {
        const frame::Drawing nowhere(nullptr, "Nowhere");
        EXPECT_EQ(Y_DC, nullptr);
    }
    EXPECT_EQ(Y_DC, context) << "the outer context comes back";
}
