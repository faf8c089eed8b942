#include "histo/graph_axis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// One direction of the graph window, as numbers.

using histo::Graph_Axis;

namespace {

/// Values 0 to 1000 with a tenth of it on both sides, on 240 pixels from 50: 5 a pixel.
Graph_Axis whole()
{
    Graph_Axis axis;
    axis.set_range(0, 1000, 0.1f, 50, 240);
    axis.show_all();
    return axis;
}

Graph_Axis part(float origin, float scale)
{
    Graph_Axis axis = whole();
    axis.origin = origin;
    axis.scale = scale;
    return axis;
}

}

TEST(GraphAxis, EverythingHasRoomOnBothSides)
{
    const Graph_Axis axis = whole();
    EXPECT_FLOAT_EQ(axis.full_min, -100);
    EXPECT_FLOAT_EQ(axis.full_max, 1100);
    EXPECT_FLOAT_EQ(axis.full_scale, 5);
    EXPECT_FLOAT_EQ(axis.scale, 5);
    EXPECT_FLOAT_EQ(axis.origin, -100);
    EXPECT_FLOAT_EQ(axis.end(), 1100);
}

TEST(GraphAxis, ATakenRangeLeavesWhatIsShown)
{
    Graph_Axis axis = part(200, 2);
    axis.set_range(0, 2000, 0.1f, 60, 480);
    EXPECT_FLOAT_EQ(axis.origin, 200);
    EXPECT_FLOAT_EQ(axis.scale, 2);
    EXPECT_FLOAT_EQ(axis.full_scale, 5);
    EXPECT_EQ(axis.start, 60);
}

TEST(GraphAxis, ValuesHavePixels)
{
    const Graph_Axis axis = whole();
    EXPECT_DOUBLE_EQ(axis.pixel_of(-100), 50);
    EXPECT_DOUBLE_EQ(axis.pixel_of(0), 70);
    EXPECT_DOUBLE_EQ(axis.pixel_of(2.5), 70.5);
    EXPECT_DOUBLE_EQ(axis.pixel_of(1e12), 1e12 / 5 + 70);
}

TEST(GraphAxis, ItIsOfNoUseWithoutPixelsOrWithoutAScale)
{
    EXPECT_FALSE(Graph_Axis().is_usable());
    EXPECT_TRUE(whole().is_usable());
    EXPECT_TRUE(part(0, 1e-30f).is_usable());
    EXPECT_FALSE(part(0, 0).is_usable());
    EXPECT_FALSE(part(0, -1).is_usable());
    EXPECT_FALSE(part(0, std::numeric_limits<float>::infinity()).is_usable());
    EXPECT_FALSE(part(0, std::nanf("")).is_usable());
    EXPECT_FALSE(part(std::nanf(""), 1).is_usable());
}

// ----------------------------------------------------------------------------------------------------- rectangles

TEST(GraphAxis, ZoomsToARectangleWithTheScaleOfBefore)
{
    Graph_Axis axis = whole();
    axis.zoom_to(110, 170); // a quarter of the pixels, 60 from the start
    EXPECT_FLOAT_EQ(axis.origin, -100 + 60 * 5);
    EXPECT_FLOAT_EQ(axis.scale, 5.0f / 4);
    axis.zoom_to(50, 170);
    EXPECT_FLOAT_EQ(axis.origin, 200);
    EXPECT_FLOAT_EQ(axis.scale, 5.0f / 8);
}

TEST(GraphAxis, ARectangleIsCutAtThePlotsEnds)
{
    Graph_Axis axis = whole();
    axis.zoom_to(-1000, 170);
    EXPECT_FLOAT_EQ(axis.origin, -100);
    EXPECT_FLOAT_EQ(axis.scale, 2.5f);
    axis = whole();
    axis.zoom_to(170, 30000);
    EXPECT_FLOAT_EQ(axis.origin, 500);
    EXPECT_FLOAT_EQ(axis.scale, 2.5f);
}

TEST(GraphAxis, ARectangleOfAllPixelsChangesNothing)
{
    Graph_Axis axis = part(200, 2);
    axis.zoom_to(50, 290);
    EXPECT_FLOAT_EQ(axis.origin, 200);
    EXPECT_FLOAT_EQ(axis.scale, 2);
}

// ---------------------------------------------------------------------------------------------------------- wheel

TEST(GraphAxis, TheValueUnderThePointerStays)
{
    Graph_Axis axis = part(200, 2);
    const float under = axis.origin + 100 * axis.scale;
    axis.zoom_at(150, 0.9f);
    EXPECT_FLOAT_EQ(axis.scale, 1.8f);
    EXPECT_FLOAT_EQ(axis.origin + 100 * axis.scale, under);
    axis.zoom_at(150, 1.2f);
    EXPECT_FLOAT_EQ(axis.scale, 2.16f);
    EXPECT_FLOAT_EQ(axis.origin + 100 * axis.scale, under);
}

TEST(GraphAxis, APointerBesideThePlotCountsAsItsEnd)
{
    Graph_Axis axis = part(200, 2);
    axis.zoom_at(10, 0.5f);
    EXPECT_FLOAT_EQ(axis.origin, 200);
    axis = part(200, 2);
    axis.zoom_at(4000, 0.5f);
    EXPECT_FLOAT_EQ(axis.end(), 200 + 240 * 2);
}

TEST(GraphAxis, ZoomingOutEndsWithEverything)
{
    Graph_Axis axis = part(200, 4);
    axis.zoom_at(290, 1.5f);
    EXPECT_FLOAT_EQ(axis.scale, 5);
    EXPECT_FLOAT_EQ(axis.origin, -100);
}

TEST(GraphAxis, ZoomingOutAtAnEndStaysWithinEverything)
{
    Graph_Axis axis = part(-100, 2);
    axis.zoom_at(290, 1.2f);
    EXPECT_FLOAT_EQ(axis.origin, -100);
    axis = part(620, 2);
    axis.zoom_at(50, 1.2f);
    EXPECT_FLOAT_EQ(axis.end(), 1100);
}

TEST(GraphAxis, TenStepsAtOnceAreTheScaleZero)
{
    Graph_Axis axis = part(200, 2);
    axis.zoom_at(150, 0);
    EXPECT_EQ(axis.scale, 0);
    EXPECT_FALSE(axis.is_usable());
    axis = part(200, 2);
    axis.zoom_at(150, -0.1f);
    EXPECT_FLOAT_EQ(axis.scale, -0.2f);
    EXPECT_FALSE(axis.is_usable());
}

// --------------------------------------------------------------------------------------------------------- gestures

TEST(GraphAxis, MovesWithinEverything)
{
    Graph_Axis axis = part(200, 2);
    axis.move(50);
    EXPECT_FLOAT_EQ(axis.origin, 250);
    axis.move(-1e6f);
    EXPECT_FLOAT_EQ(axis.origin, -100);
    axis.move(1e6f);
    EXPECT_FLOAT_EQ(axis.end(), 1100);
    EXPECT_FLOAT_EQ(axis.scale, 2);
}

TEST(GraphAxis, MagnifiesFromTheOrigin)
{
    Graph_Axis axis = part(200, 2);
    axis.magnify(1.1f);
    EXPECT_FLOAT_EQ(axis.scale, 2 / 1.1f);
    EXPECT_FLOAT_EQ(axis.origin, 200);
    axis.magnify(0.09f);
    EXPECT_FLOAT_EQ(axis.scale, 5) << "up to everything";
}

// ------------------------------------------------------------------------------------------------------ other data

TEST(GraphAxis, WhatLiesWithinIsKept)
{
    Graph_Axis axis = part(200, 2);
    axis.keep_within();
    EXPECT_FLOAT_EQ(axis.origin, 200);
    EXPECT_FLOAT_EQ(axis.scale, 2);
}

TEST(GraphAxis, AnOriginBelowEverythingComesToItsStart)
{
    Graph_Axis axis = part(-400, 2);
    axis.keep_within();
    EXPECT_FLOAT_EQ(axis.origin, -100);
    EXPECT_FLOAT_EQ(axis.scale, 2);
}

TEST(GraphAxis, AFarEdgeBeyondEverythingComesToItsEndByASmallerScale)
{
    Graph_Axis axis = part(860, 2);
    axis.keep_within();
    EXPECT_FLOAT_EQ(axis.origin, 860);
    EXPECT_FLOAT_EQ(axis.scale, 1);
    EXPECT_FLOAT_EQ(axis.end(), 1100);
}

TEST(GraphAxis, APartBeyondEverythingMovesBack)
{
    Graph_Axis axis = part(5000, 2);
    axis.keep_within();
    EXPECT_FLOAT_EQ(axis.scale, 2);
    EXPECT_FLOAT_EQ(axis.origin, 1100 - 480);
}

TEST(GraphAxis, AScaleAboveEverythingsBecomesThat)
{
    Graph_Axis axis = part(-100, 80);
    axis.keep_within();
    EXPECT_FLOAT_EQ(axis.scale, 5);
    EXPECT_FLOAT_EQ(axis.origin, -100);
}
