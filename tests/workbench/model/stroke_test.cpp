#include "tests/workbench/session_fixture.h"
#include "workbench/model/stroke.h"

#include <cmath>
#include <random>

namespace {

using workbench::BrushShape;
using workbench::LockedTags;
using workbench::Stroke;

// The session's brushes 0 to 7 have radius 1, 2, 4, 8, 12, 20, 32, 50.
class StrokeTest : public test::SessionTest {
protected:
    static document::LabelMap empty_map(int width, int height, int depth = 1)
    {
        document::Geometry geometry;
        geometry.size = {width, height, depth};
        return std::move(*document::LabelMap::create(geometry));
    }

    static double distance_to_segment(QPointF p, QPointF a, QPointF b)
    {
        const QPointF way = b - a;
        const double length = QPointF::dotProduct(way, way);
        const double part = length > 0 ? std::clamp(QPointF::dotProduct(p - a, way) / length, 0.0, 1.0) : 0;
        const QPointF rest = p - (a + way * part);
        return std::hypot(rest.x(), rest.y());
    }

    LockedTags none{};
};

TEST_F(StrokeTest, OneStampIsTheBrushShape)
{
    for (unsigned brush = 0; brush < 8; ++brush) {
        auto map = empty_map(120, 120);
        Stroke stroke(map, 0, BrushShape::of(brush), 3, none);
        stroke.move_to({60, 60});
        const int radius = hostkit::Array_Variable<unsigned short>("$BRUSH_SIZE")[brush];
        for (int y = 0; y < 120; ++y)
            for (int x = 0; x < 120; ++x) {
                const int square = (x - 60) * (x - 60) + (y - 60) * (y - 60);
                const bool covered = radius < 2 ? square == 0 : square < radius * radius;
                ASSERT_EQ(map.at(x, y, 0), covered ? 3 : 0) << "brush " << brush << " at " << x << ", " << y;
            }
    }
}

TEST_F(StrokeTest, FastLinesHaveNoGaps)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> place(0, 199);
    for (unsigned brush = 0; brush < 6; ++brush) {
        const int radius = hostkit::Array_Variable<unsigned short>("$BRUSH_SIZE")[brush];
        const QPoint from(place(random), place(random)), to(place(random), place(random));
        auto map = empty_map(200, 200);
        Stroke stroke(map, 0, BrushShape::of(brush), 1, none);
        stroke.move_to(from);
        stroke.move_to(to);
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 200; ++x) {
                // The path itself is rounded to pixels, by at most half of one.
                const double away = distance_to_segment(QPointF(x, y), from, to);
                const bool must = radius >= 2 && away < radius - 1, must_not = away > radius + 0.75;
                ASSERT_FALSE(must && map.at(x, y, 0) == 0) << "brush " << brush << " at " << x << ", " << y;
                ASSERT_FALSE(must_not && map.at(x, y, 0) != 0) << "brush " << brush << " at " << x << ", " << y;
            }
    }
}

TEST_F(StrokeTest, ThinnestLinesAreConnected)
{
    auto map = empty_map(100, 100);
    Stroke stroke(map, 0, BrushShape::of(0), 1, none);
    stroke.move_to({5, 90});
    stroke.move_to({95, 40});
    int last = 90;
    for (int x = 5; x <= 95; ++x) {
        int painted = -1;
        for (int y = 0; y < 100; ++y)
            if (map.at(x, y, 0))
                painted = y;
        ASSERT_NE(painted, -1) << x;
        EXPECT_LE(std::abs(painted - last), 1) << x;
        last = painted;
    }
}

TEST_F(StrokeTest, MovingPixelByPixelPaintsTheSameAsWholeStamps)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> step(-1, 1);
    for (unsigned brush = 0; brush < 6; ++brush) {
        auto walked = empty_map(150, 150), stamped = empty_map(150, 150);
        Stroke stroke(walked, 0, BrushShape::of(brush), 2, none);
        QPoint at(75, 75);
        for (int i = 0; i < 200; ++i) {
            stroke.move_to(at);
            Stroke(stamped, 0, BrushShape::of(brush), 2, none).move_to(at);
            at += QPoint(step(random), step(random));
        }
        ASSERT_TRUE(std::ranges::equal(walked.tags(), stamped.tags())) << "brush " << brush;
    }
}

TEST_F(StrokeTest, WhatLiesOutsideIsCutOff)
{
    auto map = empty_map(40, 30);
    Stroke stroke(map, 0, BrushShape::of(5), 1, none);
    EXPECT_TRUE(stroke.move_to({-100, -100}).isEmpty());
    const QRect changed = stroke.move_to({5, 5});
    EXPECT_TRUE(QRect(0, 0, 40, 30).contains(changed));
    stroke.move_to({200, 15});
    EXPECT_EQ(map.at(0, 0, 0), 1);
    EXPECT_EQ(map.at(39, 15, 0), 1);
    EXPECT_TRUE(QRect(0, 0, 40, 30).contains(stroke.touched()));
}

TEST_F(StrokeTest, TheRectangleHoldsEveryChange)
{
    auto map = empty_map(100, 100);
    Stroke stroke(map, 0, BrushShape::of(3), 1, none);
    QRect changed = stroke.move_to({30, 30});
    changed |= stroke.move_to({70, 55});
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x)
            ASSERT_TRUE(map.at(x, y, 0) == 0 || changed.contains(x, y)) << x << ", " << y;
    EXPECT_EQ(changed, stroke.touched());
}

TEST_F(StrokeTest, LockedTagsAreNotPaintedOver)
{
    auto map = empty_map(50, 50);
    for (int y = 0; y < 50; ++y)
        map.set(25, y, 0, 7);
    LockedTags locked{};
    locked[7] = true;
    for (const std::uint8_t tag : {std::uint8_t(3), std::uint8_t(0)}) {
        Stroke stroke(map, 0, BrushShape::of(3), tag, locked);
        stroke.move_to({25, 25});
        for (int y = 0; y < 50; ++y)
            ASSERT_EQ(map.at(25, y, 0), 7) << y;
        EXPECT_EQ(map.at(24, 25, 0), tag);
    }
}

TEST_F(StrokeTest, OtherFramesStayAsTheyAre)
{
    auto map = empty_map(30, 30, 3);
    Stroke stroke(map, 1, BrushShape::of(3), 1, none);
    stroke.move_to({0, 0});
    stroke.move_to({29, 29});
    EXPECT_TRUE(std::ranges::all_of(map.frame(0), [](auto tag) { return tag == 0; }));
    EXPECT_TRUE(std::ranges::all_of(map.frame(2), [](auto tag) { return tag == 0; }));
    EXPECT_EQ(map.at(29, 29, 1), 1);
}

TEST_F(StrokeTest, RevertBringsEveryByteBack)
{
    auto map = empty_map(64, 64);
    std::mt19937 random(5);
    for (auto& tag : map.tags())
        tag = std::uint8_t(random() % 5);
    const std::vector<std::uint8_t> before(map.tags().begin(), map.tags().end());
    Stroke stroke(map, 0, BrushShape::of(3), 9, none);
    stroke.move_to({-5, 20});
    stroke.move_to({70, 50});
    stroke.move_to({10, -8});
    ASSERT_FALSE(std::ranges::equal(map.tags(), before));
    stroke.revert();
    EXPECT_TRUE(std::ranges::equal(map.tags(), before));
}

TEST_F(StrokeTest, TheDifferenceTakesBackAndRepeatsExactly)
{
    auto map = empty_map(64, 64);
    const std::vector<std::uint8_t> before(map.tags().begin(), map.tags().end());
    Stroke stroke(map, 0, BrushShape::of(2), 9, none);
    stroke.move_to({10, 10});
    stroke.move_to({50, 30});
    const std::vector<std::uint8_t> after(map.tags().begin(), map.tags().end());
    const auto difference = stroke.difference();
    ASSERT_TRUE(difference);
    difference->undo(map);
    EXPECT_TRUE(std::ranges::equal(map.tags(), before));
    difference->redo(map);
    EXPECT_TRUE(std::ranges::equal(map.tags(), after));
}

TEST_F(StrokeTest, PaintingTheSameAgainIsNoDifference)
{
    auto map = empty_map(64, 64);
    Stroke(map, 0, BrushShape::of(2), 9, none).move_to({10, 10});
    Stroke again(map, 0, BrushShape::of(2), 9, none);
    again.move_to({10, 10});
    EXPECT_FALSE(again.difference());
    Stroke outside(map, 0, BrushShape::of(2), 9, none);
    outside.move_to({-100, 10});
    EXPECT_FALSE(outside.difference());
}

// Hand-drawn strokes on slices of usual size: outlines and fillings with small and middle brushes.
TEST_F(StrokeTest, TenThousandStrokesNeedLessThan100Megabytes)
{
    auto map = empty_map(512, 512, 4);
    std::mt19937 random(11);
    std::uniform_int_distribution<int> place(20, 490), wobble(-12, 12);
    constexpr std::size_t of_the_command = 256; // itself, its text and its place in the stack
    std::size_t bytes = 0;
    for (int i = 0; i < 10'000; ++i) {
        Stroke stroke(map, i % 4, BrushShape::of(unsigned(i % 5)), std::uint8_t(1 + i % 9), none);
        QPoint at(place(random), place(random)), speed(wobble(random), wobble(random));
        for (int move = 0; move < 20; ++move, at += speed) {
            stroke.move_to(at);
            speed = (speed + QPoint(wobble(random), wobble(random))) / 2;
        }
        if (const auto difference = stroke.difference())
            bytes += difference->memory() + of_the_command;
    }
    RecordProperty("bytes", int(bytes));
    EXPECT_GT(bytes, 10'000u * of_the_command);
    EXPECT_LT(bytes, 100'000'000u);
}

}
