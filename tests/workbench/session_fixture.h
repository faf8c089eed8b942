#pragma once

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "tools/tool_brush.h"
#include "workbench/model/session.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

/// What the tests of the session and the image view share: a session with brushes that have their shapes, and images
/// made by hand.
namespace test {

/// Stored values rise by one along x and by ten along y, from 100 * z.
document::Opened made_image(int width, int height, int depth, std::array<double, 3> spacing = {1, 1, 1});

/// One frame whose grey values, in halves of levels, lie around 90 and 340.
document::Opened image_of_two_peaks();

class SessionTest : public ::testing::Test {
protected:
    SessionTest();

    /// Opens one more image, from a file of its own.
    void open(int width, int height, int depth, std::array<double, 3> spacing = {1, 1, 1});
    /// What the host has of a series, in the order of the tree; null when there are fewer.
    static Strato_2D* series_in_tree(int index = 0);
    void choose_brush_of_radius(unsigned radius);

    /// Paints from one pixel to another, or dots.
    void paint(QPoint from, QPoint to, bool erase = false);
    void paint(QPoint at, bool erase = false) { paint(at, at, erase); }

    std::vector<std::uint8_t> tags() const;
    std::size_t painted(unsigned tag) const; ///< voxels with this tag
    /// The words that were delivered since the last call.
    std::vector<unsigned long long> broadcasts() { return std::exchange(broadcasts_, {}); }

    workbench::Session session;

private:
    Tool_Brush brushes_; // fills the shapes
    std::vector<unsigned long long> broadcasts_;
    hostkit::Subscription subscription_;
};

}
