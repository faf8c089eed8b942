#include "tests/tools/brush_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace {

constexpr Colors grey{170, 170, 170};
constexpr Colors three_channels{0x12, 0x34, 0x56};

void choose_tag(int tag)
{
    Variable<unsigned short>("$TAG_CUR") = static_cast<unsigned short>(tag);
}

}

TEST_F(BrushPanel, TagZeroPaintsTheDiscsGrey)
{
    hostkit::Tag_Color_Set(0, {0xff, 0, 0});
    Tool_Brush panel;
    lay_out(panel);
    for (int brush = 1; brush < 5; ++brush)
        EXPECT_TRUE(shows(brush, grey)) << brush;
    EXPECT_TRUE(shows(0, grey, State::current));
}

TEST_F(BrushPanel, DiscsHaveTheCurrentTagsColour)
{
    hostkit::Tag_Color_Set(3, three_channels);
    choose_tag(3);
    Tool_Brush panel;
    lay_out(panel);
    for (int brush = 1; brush < 5; ++brush)
        EXPECT_TRUE(shows(brush, three_channels)) << brush;
    EXPECT_EQ(pixel(main_window(), middle(button(4))), three_channels);
}

TEST_F(BrushPanel, ColoursAreTheHighBytes)
{
    Array_Variable<unsigned short>("$TAG_RED")[3] = 0x12ff;
    Array_Variable<unsigned short>("$TAG_GRN")[3] = 0x34fe;
    Array_Variable<unsigned short>("$TAG_BLU")[3] = 0x5680;
    choose_tag(3);
    Tool_Brush panel;
    lay_out(panel);
    EXPECT_EQ(pixel(main_window(), middle(button(4))), three_channels);
}

TEST_F(BrushPanel, AllFourPicturesShowTheDisc)
{
    choose_tag(3);
    const Colors color = hostkit::Tag_Color(3);
    Tool_Brush panel;
    lay_out(panel);
    EXPECT_TRUE(shows(2, color, State::normal));
    point(main_window(), middle(button(2)));
    panel.Motion(0);
    EXPECT_TRUE(shows(2, color, State::highlighted));
    panel.Motion(17);
    EXPECT_TRUE(shows(2, color, State::held));
    click_on(panel, 2);
    leave(panel);
    EXPECT_TRUE(shows(2, color, State::current));
}

TEST_F(BrushPanel, DiscsShareOneScaleWhateverTheButtonsShape)
{
    set_brushes({0, 1, 5, 30});
    choose_tag(3);
    const Colors color = hostkit::Tag_Color(3);
    for (const Extent place : {Extent{10, 20, 208, 48}, Extent{10, 20, 209, 61}, Extent{0, 0, 408, 41},
             Extent{5, 7, 105, 160}, Extent{5, 7, 333, 333}}) {
        Tool_Brush panel;
        lay_out(panel, place);
        EXPECT_TRUE(shows(0, color, State::current)) << place.width << 'x' << place.height;
        for (int brush = 1; brush < 4; ++brush)
            EXPECT_TRUE(shows(brush, color)) << brush << " in " << place.width << 'x' << place.height;
    }
}

TEST_F(BrushPanel, TheLargestBrushAloneFillsItsButton)
{
    for (const int size : {1, 2, 9, 60, 181}) {
        set_brushes({static_cast<unsigned short>(size)});
        Tool_Brush panel;
        lay_out(panel, {10, 20, 68, 48});
        EXPECT_TRUE(shows(0, grey, State::current)) << size;
    }
}

TEST_F(BrushPanel, TheDiscOfAPictureIncludesItsBoundary)
{
    set_brushes({9});
    Tool_Brush panel;
    lay_out(panel, {0, 0, 44, 44}); // a button of 36 x 36: 19 points on 28 pixels, limit trunc(13.26^2) = 175
    choose_tag(3);
    panel.Update(tag_changed);
    const Extent place = button(0);
    ASSERT_EQ(place, (Extent{4, 4, 36, 36}));
    const COLORREF color = hostkit::Tag_Color(3).get();
    const auto shown = picture(main_window(), place);
    for (int y = 0; y < 36; ++y) {
        for (int x = 0; x < 36; ++x) {
            const bool disc = (x - 18) * (x - 18) + (y - 18) * (y - 18) <= 175;
            ASSERT_EQ(shown[static_cast<size_t>(y * 36 + x)] == color, disc) << x << ' ' << y;
        }
    }
}

TEST_F(BrushPanel, TheOutlineIsBlack)
{
    set_brushes({9});
    choose_tag(3);
    Tool_Brush panel;
    lay_out(panel, {0, 0, 44, 44});
    const COLORREF color = hostkit::Tag_Color(3).get();
    const auto shown = picture(main_window(), button(0));
    const auto at = [&](int x, int y) { return shown[static_cast<size_t>(y * 36 + x)]; };
    EXPECT_EQ(at(18 + 13, 18), color);
    EXPECT_EQ(at(18 + 14, 18), 0u);
    EXPECT_EQ(at(18, 18 - 14), 0u);
    EXPECT_EQ(at(18 - 14, 18), 0u);
    EXPECT_NE(at(18 + 15, 18), 0u);
}

TEST_F(BrushPanel, AChangedTagRecoloursWithoutNewShapes)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    Array_Variable<unsigned char**>("$BRUSH_PT")[3][0][0] = 9;
    choose_tag(4);
    reports.clear();
    panel.Update(tag_changed);
    EXPECT_EQ(traces(), (std::vector<std::string>{"16 in Tool_Brush::Update()", "17 in Tool_Brush::Set_Color()"}));
    for (int brush = 1; brush < 5; ++brush)
        EXPECT_TRUE(shows(brush, hostkit::Tag_Color(4))) << "shown at once, outline kept: " << brush;
    EXPECT_TRUE(shows(0, hostkit::Tag_Color(4), State::current));
    EXPECT_EQ(Array_Variable<unsigned char**>("$BRUSH_PT")[3][0][0], 9);
}

TEST_F(BrushPanel, TheSameTagIsNotPaintedAgain)
{
    choose_tag(4);
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(tag_changed);
    EXPECT_EQ(traces(), std::vector<std::string>{"16 in Tool_Brush::Update()"}) << "the layout showed it already";
    hostkit::Tag_Color_Set(4, three_channels);
    panel.Update(tag_changed);
    EXPECT_FALSE(shows(3, three_channels)) << "a colour's change has a word of its own";
}

TEST_F(BrushPanel, AChangeToAndFroIsNotMissed)
{
    Tool_Brush panel;
    lay_out(panel);
    choose_tag(4);
    panel.Resize(&area);
    choose_tag(0);
    panel.Update(tag_changed);
    EXPECT_TRUE(shows(3, grey));
}

TEST_F(BrushPanel, ChangedColoursAreShown)
{
    for (const auto word : {colours_changed, everything}) {
        hostkit::Segmentation_Reset();
        choose_tag(4);
        Tool_Brush panel;
        lay_out(panel);
        panel.Update(brushes_changed);
        hostkit::Tag_Color_Set(4, three_channels);
        reports.clear();
        panel.Update(word);
        EXPECT_EQ(traces(), (std::vector<std::string>{"16 in Tool_Brush::Update()", "17 in Tool_Brush::Set_Color()"}));
        EXPECT_TRUE(shows(3, three_channels));
    }
}

TEST_F(BrushPanel, TagAndColourBlocksBothRun)
{
    Tool_Brush panel;
    lay_out(panel);
    choose_tag(4);
    panel.Update(tag_changed | colours_changed);
    EXPECT_EQ(traces(), (std::vector<std::string>{"16 in Tool_Brush::Update()", "17 in Tool_Brush::Set_Color()",
                            "17 in Tool_Brush::Set_Color()"}));
}

TEST_F(BrushPanel, OtherBitsRecolourNothing)
{
    choose_tag(4);
    Tool_Brush panel;
    lay_out(panel);
    const Colors before = hostkit::Tag_Color(4);
    hostkit::Tag_Color_Set(4, three_channels);
    choose_tag(5);
    panel.Update(~(tag_changed | colours_changed | everything | brushes_changed));
    EXPECT_TRUE(shows(3, before));
    EXPECT_EQ(traces(), std::vector<std::string>{"16 in Tool_Brush::Update()"});
}

TEST_F(BrushPanel, AMissingColourArrayPaintsGrey)
{
    for (const char* name : {"$TAG_RED", "$TAG_GRN", "$TAG_BLU"}) {
        hostkit::Segmentation_Reset();
        choose_tag(4);
        Tool_Brush panel;
        lay_out(panel);
        Array_Variable<unsigned short>(name) = nullptr;
        panel.Update(colours_changed);
        EXPECT_TRUE(shows(3, grey)) << name;
    }
}

TEST_F(BrushPanel, ALayoutForgetsOldDiscs)
{
    set_brushes({12, 12});
    Tool_Brush panel;
    lay_out(panel, {10, 20, 108, 48});
    panel.Update(brushes_changed);
    set_brushes({2, 12});
    panel.Update(brushes_changed);
    EXPECT_TRUE(shows(0, grey, State::current));
    EXPECT_TRUE(shows(1, grey));
}

TEST_F(BrushPanel, PicturesUseTheSizesOfTheMoment)
{
    Tool_Brush panel;
    lay_out(panel); // before any update: nothing was kept yet
    EXPECT_TRUE(shows(4, grey));
}

TEST_F(BrushPanel, ButtonsNotLargerThanTheirMarginHaveNoDisc)
{
    choose_tag(3);
    for (const Extent place : {Extent{10, 20, 48, 48}, Extent{10, 20, 308, 16}, Extent{10, 20, 48, 16}}) {
        Tool_Brush panel;
        lay_out(panel, place); // buttons of 8 pixels one way or both
        for (int brush = 1; brush < 5; ++brush) {
            EXPECT_TRUE(shows(brush, hostkit::Tag_Color(3))) << place.width << 'x' << place.height;
            EXPECT_NE(pixel(main_window(), middle(button(brush))), hostkit::Tag_Color(3));
        }
    }
}

TEST_F(BrushPanel, FrameWidthIsTheAreas)
{
    for (const int border : {0, 1, 2}) {
        Tool_Brush panel;
        lay_out(panel, {10, 20, 308, 48}, static_cast<short>(border));
        EXPECT_TRUE(shows(2, grey)) << border;
    }
}

TEST_F(BrushPanel, ARadiusWhoseSquareLeavesSixteenBitsPaintsNoDisc)
{
    unsigned short sizes[] = {1};
    Array_Variable<unsigned short>("$BRUSH_SIZE") = sizes;
    Variable<unsigned short>("$BRUSH_NB") = 1;
    Tool_Brush panel;
    lay_out(panel, {0, 0, 508, 508}); // 500 x 500: scale 3 / 492, radius 164, limit 26896
    EXPECT_TRUE(shows(0, grey, State::current));
    lay_out(panel, {0, 0, 658, 658}); // radius 214, limit 45796 - 65536
    EXPECT_TRUE(shows(0, grey, State::current));
    EXPECT_NE(pixel(main_window(), middle(button(0))), grey);
}
