#include "tests/workbench/document/fixtures.h"
#include "workbench/document/label_map.h"
#include "workbench/document/open.h"

#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

TEST(Memory, VolumeTakesJustItsPixels)
{
    const auto opened = document::open({"/usr/share/mricron/templates/ch2.nii.gz"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.pixels.size(), 181u * 217 * 181);
}

TEST(Memory, LabelMapThatDoesNotFitIsRefused)
{
    Geometry geometry;
    geometry.size = {2'000'000, 2'000'000, 100};
    const auto labels = LabelMap::create(geometry);
    ASSERT_FALSE(labels);
    EXPECT_NE(labels.failure().message.find("not enough memory"), std::string::npos);
}

TEST(Memory, WhatIsAvailableIsKnown)
{
    EXPECT_GT(memory_available(), std::size_t(1) << 20);
}
