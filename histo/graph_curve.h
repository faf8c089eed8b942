#pragma once

#include "histo/graph_axis.h"
#include "histo/painting.h"

namespace histo {

/// Brings a curve of values into a plot: cut to what is seen of it, however far it goes beyond, and joined column by
/// column. Values come in increasing x.
class Graph_Curve {
public:
    Graph_Curve(const Graph_Axis& x, const Graph_Axis& y, Joined_Points& line) : x_(x), y_(y), line_(line) {}

    void add(double grey, double count);
    void finish() { line_.finish(); }

    /// The bins of a grid that can be seen, or join what is seen.
    struct Bins {
        int first;
        int end;
    };
    static Bins seen_bins(const Graph_Axis& x, float min, float width, int count);

private:
    struct Point {
        double x, y;
    };

    void add_segment(Point from, Point to);
    void put(double x, double y);

    const Graph_Axis& x_;
    const Graph_Axis& y_;
    Joined_Points& line_;
    Point last_{};
    bool begun_ = false;
};

}
