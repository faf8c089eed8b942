#include "tests/workbench/document/fixtures.h"
#include "workbench/document/text.h"

#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

TEST(Geometry, DifferenceNamesWhatDiffersWithNumbers)
{
    const auto geometry = turned_geometry(10, 10, 6);
    EXPECT_EQ(difference(geometry, geometry), "");
    auto other = geometry;
    other.size[2] = 5;
    EXPECT_EQ(difference(other, geometry), "its size is 10 x 10 x 5 instead of 10 x 10 x 6");
    other = geometry;
    other.spacing[0] = 0.8;
    EXPECT_NE(difference(other, geometry).find("0.8"), std::string::npos);
    other = geometry;
    other.origin[1] += 0.1;
    EXPECT_NE(difference(other, geometry).find("30.35"), std::string::npos);
    other = geometry;
    other.direction[0] *= -1;
    EXPECT_NE(difference(other, geometry).find("axes"), std::string::npos);
}

TEST(Geometry, WhatFloatsLoseIsNoDifference)
{
    const auto geometry = turned_geometry(512, 512, 300);
    auto other = geometry;
    for (auto* values : {&other.spacing, &other.origin})
        for (double& value : *values)
            value = double(float(value * (1 + 1e-7)));
    for (double& value : other.direction)
        value = double(float(value));
    EXPECT_EQ(difference(other, geometry), "");
}

TEST(Geometry, PositionFollowsTheAxes)
{
    Geometry geometry;
    geometry.spacing = {2, 3, 4};
    geometry.origin = {10, 20, 30};
    geometry.direction = {0, 1, 0, 1, 0, 0, 0, 0, -1};
    EXPECT_EQ(geometry.position(1, 2, 3), (std::array{16.0, 22.0, 18.0}));
}

TEST(Geometry, IndexIsTheWayBack)
{
    auto geometry = turned_geometry(10, 20, 30);
    geometry.direction[4] += 1e-4; // as a file rounds it
    const std::array<double, 3> voxel = {-3.5, 7.25, 40};
    const auto found = geometry.index(geometry.position(voxel[0], voxel[1], voxel[2]));
    for (std::size_t axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(found[axis], voxel[axis], 1e-9);
}

TEST(Text, OfMessages)
{
    EXPECT_EQ(bytes_text(512), "512 bytes");
    EXPECT_EQ(bytes_text(7'109'137), "7.1 MB");
    EXPECT_EQ(number_text(1.0 / 3), "0.333333");
    EXPECT_EQ(number_text(-1024), "-1024");
    EXPECT_EQ(extension_of("x/Y.NII.GZ"), ".nii.gz");
    EXPECT_EQ(extension_of("a.tar.gz"), ".gz");
    EXPECT_EQ(extension_of("a/Points.MRK.json"), ".mrk.json");
    EXPECT_EQ(extension_of("a.mrk/b.json"), ".json");
}
