#include "histo/graph_curve.h"

#include "frame/drawing.h"
#include "tests/support/panel_host.h"

#include <algorithm>
#include <cmath>
#include <random>

// Curves of the graph window, point by point and as pixels.

using histo::Graph_Axis;
using histo::Graph_Curve;
using histo::Joined_Area;
using histo::Joined_Line;
using histo::Selected;
using namespace test;

namespace {

Graph_Axis axis(float origin, float scale, int start, int size)
{
    Graph_Axis made;
    made.origin = origin;
    made.scale = scale;
    made.start = start;
    made.size = size;
    return made;
}

class Seen_Points final : public histo::Joined_Points {
public:
    std::vector<POINT> points;

private:
    void join(POINT* some, int count) override { points.insert(points.end(), some, some + count); }
};

class GraphCurve : public Panel_Host {
protected:
    static constexpr int left = 40, bottom = 30, width = 200, height = 120;

    static Graph_Axis x_axis(float origin = 0, float scale = 1) { return axis(origin, scale, left, width); }
    static Graph_Axis y_axis(float origin = 0, float scale = 1) { return axis(origin, scale, bottom, height); }

    // The pixels of the lower left corner of the window after some drawing in white.
    template <class Work>
    std::vector<bool> drawn(const Work& work)
    {
        const frame::Drawing drawing(main_window(), "test");
        const RECT everything{0, 800, 800, -1};
        histo::fill(everything, CreateSolidBrush(histo::black));
        {
            const Selected pen(CreatePen(PS_SOLID, 1, histo::white));
            const Selected brush(CreateSolidBrush(histo::white));
            work();
        }
        std::vector<bool> result;
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 300; ++x)
                result.push_back(GetPixel(Y_DC, x, y) != histo::black);
        }
        return result;
    }

    static bool at(const std::vector<bool>& picture, int x, int y) { return picture[static_cast<size_t>(y * 300 + x)]; }

    static std::vector<POINT> points_of(const std::vector<double>& greys, const std::vector<double>& counts,
        const Graph_Axis& x = x_axis(), const Graph_Axis& y = y_axis())
    {
        Seen_Points seen;
        Graph_Curve curve(x, y, seen);
        for (size_t i = 0; i < greys.size(); ++i)
            curve.add(greys[i], counts[i]);
        curve.finish();
        return seen.points;
    }
};

std::vector<std::pair<long, long>> pairs(const std::vector<POINT>& points)
{
    std::vector<std::pair<long, long>> result;
    for (const POINT& point : points)
        result.emplace_back(point.x, point.y);
    return result;
}

using Pairs = std::vector<std::pair<long, long>>;

}

TEST_F(GraphCurve, ManyValuesOfAColumnCoverThePixelsOfAllOfThem)
{
    std::mt19937 engine(7);
    const auto random = [&] { return static_cast<unsigned>(engine()); };
    for (const int bins : {50, 199, 1000, 20000}) {
        std::vector<POINT> all;
        const Graph_Axis x = x_axis(0, static_cast<float>(bins) / width), y = y_axis();
        std::vector<unsigned> counts(static_cast<size_t>(bins));
        for (unsigned& count : counts)
            count = random() % 4 ? 10 + random() % 15 : random() % height;
        const auto joined = drawn([&] {
            Joined_Line line;
            Graph_Curve curve(x, y, line);
            for (int i = 0; i < bins; ++i)
                curve.add(i, counts[static_cast<size_t>(i)]);
            curve.finish();
        });
        const auto expected = drawn([&] {
            for (int i = 0; i < bins; ++i)
                all.push_back(
                    {static_cast<LONG>(x.pixel_of(i)), static_cast<LONG>(y.pixel_of(counts[static_cast<size_t>(i)]))});
            Polyline(Y_DC, all.data(), bins);
        });
        // Of a slanted line's sharp turn the last pixel may be missing; the joined line has it.
        std::vector<bool> with_points = expected;
        for (const POINT& point : all)
            with_points[static_cast<size_t>(point.y * 300 + point.x)] = true;
        for (size_t i = 0; i < joined.size(); ++i) {
            ASSERT_LE(expected[i], joined[i]) << bins << " bins, " << i % 300 << ", " << i / 300;
            ASSERT_LE(joined[i], with_points[i]) << bins << " bins, " << i % 300 << ", " << i / 300;
        }
    }
}

TEST_F(GraphCurve, IsCutALittleBesideThePlot)
{
    EXPECT_EQ(
        pairs(points_of({-1000, 1000}, {50, 50})), (Pairs{{left - 4, bottom + 50}, {left + width + 4, bottom + 50}}));
    EXPECT_EQ(pairs(points_of({-200, 200}, {0, 100})), (Pairs{{left - 4, bottom + 49}, {left + 200, bottom + 100}}));
}

TEST_F(GraphCurve, WhatLiesBesideThePlotIsLeftOut)
{
    EXPECT_TRUE(points_of({-100, -50, -20}, {1, 2, 3}).empty());
    EXPECT_TRUE(points_of({1000, 1200}, {1, 2}).empty());
}

TEST_F(GraphCurve, AboveAndBelowThePlotItRunsAlongTheEdges)
{
    const long low = bottom - 4, high = bottom + height + 4;
    EXPECT_EQ(pairs(points_of({0, 100}, {1e6, 1e6})), (Pairs{{left, high}, {left + 100, high}}));
    EXPECT_EQ(pairs(points_of({0, 100}, {-1e6, -1e6})), (Pairs{{left, low}, {left + 100, low}}));
    const auto through = pairs(points_of({0, 100}, {-76, 276}));
    ASSERT_EQ(through.size(), 4u);
    EXPECT_EQ(through[1].second, low);
    EXPECT_EQ(through[2].second, high);
    EXPECT_NEAR(static_cast<double>(through[1].first), left + 100.0 * 72 / 352, 1);
    EXPECT_NEAR(static_cast<double>(through[2].first), left + 100.0 * 200 / 352, 1);
}

TEST_F(GraphCurve, FarAwayValuesStayNearThePlot)
{
    const double distant[] = {1e9, -1e9, 1e20, -1e20, 4294967295.0, 1e38};
    std::vector<double> greys, counts;
    for (int i = 0; i < 600; ++i) {
        greys.push_back(i / 3.0);
        counts.push_back(distant[i % 6]);
    }
    for (const float scale : {1.0f, 1e-6f, 1e-30f}) {
        for (const POINT& point : points_of(greys, counts, x_axis(100, scale), y_axis(0, scale))) {
            EXPECT_GE(point.x, left - 4);
            EXPECT_LE(point.x, left + width + 4);
            EXPECT_GE(point.y, bottom - 4);
            EXPECT_LE(point.y, bottom + height + 4);
        }
    }
}

TEST_F(GraphCurve, NumbersThatAreNoneAreLeftOut)
{
    EXPECT_EQ(pairs(points_of({0, 50, 100}, {10, std::nan(""), 10})),
        (Pairs{{left, bottom + 10}, {left + 100, bottom + 10}}));
    EXPECT_EQ(
        pairs(points_of({0, 50, 100}, {10, HUGE_VAL, 10})), (Pairs{{left, bottom + 10}, {left + 100, bottom + 10}}));
}

TEST_F(GraphCurve, DeepInOneBinTheLineBetweenItsNeighboursIsStraight)
{
    // 1/1000 of the way between two bins.
    const Graph_Axis x = x_axis(10.5f, 1e-3f / width);
    const auto points = pairs(points_of({10, 11}, {0, 100}, x, y_axis(50, 0.1f / height)));
    ASSERT_EQ(points.size(), 2u);
    EXPECT_NEAR(static_cast<double>(points[0].second), bottom - 2.4, 1);
    EXPECT_NEAR(static_cast<double>(points[1].second), bottom + height + 2.4, 1);
}

TEST_F(GraphCurve, OnlyTheBinsThatCanBeSeenAreGoneThrough)
{
    const auto seen = [](const Graph_Axis& x) { return Graph_Curve::seen_bins(x, 1000, 2, 500); };
    const auto everything = seen(x_axis(900, 10));
    EXPECT_EQ(everything.first, 0);
    EXPECT_EQ(everything.end, 500);
    const auto part = seen(x_axis(1100, 1)); // bins 50 to 150
    EXPECT_LE(part.first, 49);
    EXPECT_GE(part.first, 47);
    EXPECT_GE(part.end, 152);
    EXPECT_LE(part.end, 154);
    EXPECT_EQ(seen(x_axis(5000, 1)).first, 500);
    EXPECT_EQ(seen(x_axis(-5000, 1)).end, 0);
}

TEST_F(GraphCurve, WithoutABinWidthAllBinsAreGoneThrough)
{
    const auto seen = Graph_Curve::seen_bins(x_axis(), 0, 0, 7);
    EXPECT_EQ(seen.first, 0);
    EXPECT_EQ(seen.end, 7);
    const auto of_no_number = Graph_Curve::seen_bins(x_axis(), std::nanf(""), 1, 7);
    EXPECT_GE(of_no_number.first, 0);
    EXPECT_LE(of_no_number.end, 7);
}

// ------------------------------------------------------------------------------------------------------------ areas

TEST_F(GraphCurve, AnAreaReachesFromTheLineToItsBase)
{
    const auto picture = drawn([&] {
        const Graph_Axis x = x_axis(), y = y_axis();
        Joined_Area area(bottom);
        Graph_Curve curve(x, y, area);
        curve.add(20, 60);
        curve.add(120, 60);
        curve.finish();
    });
    for (const int x : {left + 20, left + 70, left + 119}) {
        EXPECT_TRUE(at(picture, x, bottom));
        EXPECT_TRUE(at(picture, x, bottom + 59));
        EXPECT_FALSE(at(picture, x, bottom + 62));
        EXPECT_FALSE(at(picture, x, bottom - 1));
    }
    EXPECT_FALSE(at(picture, left + 18, bottom + 30));
    EXPECT_FALSE(at(picture, left + 122, bottom + 30));
}

TEST_F(GraphCurve, AnAreaThatLeavesThePlotStaysClosed)
{
    const auto picture = drawn([&] {
        const Graph_Axis x = x_axis(), y = y_axis();
        Joined_Area area(bottom);
        Graph_Curve curve(x, y, area);
        curve.add(-1000, 40);
        curve.add(50, 1e9);
        curve.add(100, 1e9);
        curve.add(150, 40);
        curve.add(1e6, 40);
        curve.finish();
    });
    for (int x = left; x <= left + width; ++x) {
        for (int y = bottom; y < bottom + 30; ++y)
            ASSERT_TRUE(at(picture, x, y)) << x << ", " << y;
    }
    EXPECT_TRUE(at(picture, left + 75, bottom + height));
}

TEST_F(GraphCurve, AnAreaOfManyPointsHasNoGaps)
{
    const auto picture = drawn([&] {
        const Graph_Axis x = x_axis(0, 50), y = y_axis();
        Joined_Area area(bottom);
        Graph_Curve curve(x, y, area);
        for (int i = 0; i < 50 * width; ++i)
            curve.add(i, 30 + 60 * (i % 2));
        curve.finish();
    });
    for (int x = left; x < left + width - 1; ++x) {
        for (int y = bottom; y <= bottom + 30; ++y)
            ASSERT_TRUE(at(picture, x, y)) << x << ", " << y;
    }
}

TEST_F(GraphCurve, OnePointHasAStickForItsAreaAndNoLine)
{
    const Graph_Axis x = x_axis(), y = y_axis();
    const auto stick = drawn([&] {
        Joined_Area area(bottom);
        Graph_Curve curve(x, y, area);
        curve.add(20, 60);
        curve.finish();
    });
    EXPECT_TRUE(at(stick, left + 20, bottom + 1));
    EXPECT_TRUE(at(stick, left + 20, bottom + 59));
    EXPECT_EQ(std::count(stick.begin(), stick.end(), true), 61);
    const auto line = drawn([&] {
        Joined_Line joined;
        Graph_Curve curve(x, y, joined);
        curve.add(20, 60);
        curve.finish();
    });
    EXPECT_EQ(std::count(line.begin(), line.end(), true), 0);
}
