#include "tests/tools/brush_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace {

/// Sizes the host's own writer would refuse: into arrays of the test.
class Own_Brushes {
public:
    Own_Brushes(unsigned short half_size, std::vector<unsigned short> sizes)
        : side_(2u * half_size + 1), sizes_(std::move(sizes)), bytes_(sizes_.size() * side_ * side_, 7),
          rows_(sizes_.size() * side_), grids_(sizes_.size())
    {
        for (size_t row = 0; row < rows_.size(); ++row)
            rows_[row] = bytes_.data() + row * side_;
        for (size_t brush = 0; brush < grids_.size(); ++brush)
            grids_[brush] = rows_.data() + brush * side_;
        Variable<unsigned short>("$BRUSH_NB") = static_cast<unsigned short>(sizes_.size());
        Variable<unsigned short>("$BRUSH_RADIUS") = half_size;
        Array_Variable<unsigned short>("$BRUSH_SIZE") = sizes_.data();
        Array_Variable<unsigned char**>("$BRUSH_PT") = grids_.data();
    }
    ~Own_Brushes() { hostkit::Segmentation_Reset(); }
    Own_Brushes(const Own_Brushes&) = delete;
    Own_Brushes& operator=(const Own_Brushes&) = delete;

    unsigned short& size(size_t brush) { return sizes_[brush]; }

private:
    size_t side_;
    std::vector<unsigned short> sizes_;
    std::vector<unsigned char> bytes_;
    std::vector<unsigned char*> rows_;
    std::vector<unsigned char**> grids_;
};

}

TEST_F(BrushPanel, BuildsTheShapesAtTheFirstUpdateWithoutALayout)
{
    set_brushes({3, 1});
    Tool_Brush panel;
    EXPECT_EQ(points(0), 0);
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 25);
    EXPECT_EQ(points(1), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"16 in Tool_Brush::Update()", "17 in Tool_Brush::Init()"}));
}

TEST_F(BrushPanel, AFullRefreshBuildsTheShapesToo)
{
    set_brushes({2});
    Tool_Brush panel;
    panel.Update(everything);
    EXPECT_EQ(points(0), 9);
}

TEST_F(BrushPanel, OtherBitsBuildNoShapes)
{
    set_brushes({2});
    Tool_Brush panel;
    panel.Update(~(brushes_changed | everything));
    EXPECT_EQ(points(0), 0);
}

TEST_F(BrushPanel, ALayoutBuildsNoShapes)
{
    set_brushes({2});
    Tool_Brush panel;
    lay_out(panel);
    EXPECT_EQ(points(0), 0);
}

TEST_F(BrushPanel, ADiscIsOpenAtItsRadius)
{
    set_brushes({3});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    EXPECT_EQ(shape(0), (std::vector<std::string>{
                            "0000000",
                            "0111110",
                            "0111110",
                            "0111110",
                            "0111110",
                            "0111110",
                            "0000000",
                        }));
}

TEST_F(BrushPanel, SizesZeroAndOneCoverTheirCentre)
{
    const Own_Brushes brushes(2, {0, 1});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    const std::vector<std::string> centre{"00000", "00000", "00100", "00000", "00000"};
    EXPECT_EQ(shape(0), centre);
    EXPECT_EQ(shape(1), centre);
}

TEST_F(BrushPanel, EverySizeCoversThePointsNearerThanItself)
{
    constexpr int half = 12;
    for (unsigned short size = 2; size <= 20; ++size) {
        const Own_Brushes brushes(half, {size});
        Tool_Brush panel;
        panel.Update(brushes_changed);
        const auto rows = shape(0);
        for (int y = -half; y <= half; ++y) {
            for (int x = -half; x <= half; ++x) {
                const char covered_here = rows[static_cast<size_t>(half + y)][static_cast<size_t>(half + x)];
                ASSERT_EQ(covered_here, x * x + y * y < size * size ? '1' : '0') << size << ": " << x << ',' << y;
            }
        }
    }
}

TEST_F(BrushPanel, ADiscWiderThanTheGridIsCut)
{
    const Own_Brushes brushes(4, {10, 5});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 81);
    EXPECT_EQ(points(1), 69);
}

TEST_F(BrushPanel, AGridOfOnePoint)
{
    const Own_Brushes brushes(0, {0, 1, 5});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    for (unsigned brush = 0; brush < 3; ++brush)
        EXPECT_EQ(shape(brush), std::vector<std::string>{"1"});
}

TEST_F(BrushPanel, TheSquareOfARadiusHasSixteenBits)
{
    const Own_Brushes brushes(3, {181, 182, 255, 256, 257, 512, 65535});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 49) << "32761";
    EXPECT_EQ(points(1), 0) << "33124 - 65536";
    EXPECT_EQ(points(2), 0) << "65025 - 65536";
    EXPECT_EQ(points(3), 0) << "65536 - 65536";
    EXPECT_EQ(points(4), 49) << "66049 - 65536 = 513";
    EXPECT_EQ(points(5), 0) << "a multiple of 65536";
    EXPECT_EQ(points(6), 1) << "wraps to 1";
}

TEST_F(BrushPanel, ChangedSizesRebuildTheShapesFromNothing)
{
    Own_Brushes brushes(6, {6, 2});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 109);
    brushes.size(0) = 2;
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 9) << "the old disc is cleared";
    EXPECT_EQ(points(1), 9);
}

TEST_F(BrushPanel, UnchangedSizesAreNotBuiltAgain)
{
    const Own_Brushes brushes(3, {3});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    Array_Variable<unsigned char**>("$BRUSH_PT")[0][3][3] = 0;
    reports.clear();
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 24) << "the host's grid is left alone";
    EXPECT_EQ(traces(), std::vector<std::string>{"16 in Tool_Brush::Update()"});
}

TEST_F(BrushPanel, ANewRadiusAloneRebuildsNothing)
{
    const Own_Brushes brushes(3, {3});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    Variable<unsigned short>("$BRUSH_RADIUS") = 2;
    reports.clear();
    panel.Update(brushes_changed);
    EXPECT_EQ(traces(), std::vector<std::string>{"16 in Tool_Brush::Update()"});
}

TEST_F(BrushPanel, ACountOfZeroAndBackRebuildsTheShapes)
{
    const Own_Brushes brushes(3, {3});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    Array_Variable<unsigned char**>("$BRUSH_PT")[0][3][3] = 0;
    Variable<unsigned short>("$BRUSH_NB") = 0;
    panel.Update(brushes_changed);
    Variable<unsigned short>("$BRUSH_NB") = 1;
    panel.Update(brushes_changed);
    EXPECT_EQ(points(0), 25);
}

TEST_F(BrushPanel, MissingArraysBuildNothing)
{
    for (const char* name : {"$BRUSH_SIZE", "$BRUSH_PT"}) {
        const Own_Brushes brushes(3, {3});
        void*& array = Array_Variable<void>(name);
        void* const kept = std::exchange(array, nullptr);
        Tool_Brush panel;
        panel.Update(brushes_changed);
        panel.Update(everything);
        lay_out(panel);
        panel.Update(~0ull);
        array = kept;
        EXPECT_EQ(points(0), 0) << name;
    }
}

TEST_F(BrushPanel, OfMoreThanEightBrushesEightAreUsed)
{
    const Own_Brushes brushes(2, {2, 2, 2, 2, 2, 2, 2, 2, 2});
    Tool_Brush panel;
    panel.Update(brushes_changed);
    EXPECT_EQ(points(7), 9);
    EXPECT_EQ(shape(8)[0], "77777") << "the ninth grid is left alone";
}
