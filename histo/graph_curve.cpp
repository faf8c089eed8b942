#include "histo/graph_curve.h"

#include "histo/int_part.h"

#include <algorithm>
#include <cmath>

namespace histo {

namespace {

// Drawn a little beyond the plot, where it is clipped off.
constexpr double beyond = 4;

double between(double from, double to, double share)
{
    return from + share * (to - from);
}

}

Graph_Curve::Bins Graph_Curve::seen_bins(const Graph_Axis& x, float min, float width, int count)
{
    if (!(width > 0))
        return {0, count};
    const double first = std::floor((static_cast<double>(x.origin) - min) / width) - 1;
    const double last = std::ceil((static_cast<double>(x.end()) - min) / width) + 1;
    const auto bin = [count](double place) { return std::clamp(int_part(place), 0, count); };
    return {bin(first), bin(last + 1)};
}

void Graph_Curve::add(double grey, double count)
{
    const Point point{x_.pixel_of(grey), y_.pixel_of(count)};
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    add_segment(begun_ ? last_ : point, point);
    begun_ = true;
    last_ = point;
}

// Cut at the sides; above and below the curve goes on along the edge, so that an area under it stays closed.
void Graph_Curve::add_segment(Point from, Point to)
{
    const double left = x_.start - beyond, right = x_.start + x_.size + beyond;
    if (std::max(from.x, to.x) < left || std::min(from.x, to.x) > right)
        return;
    const auto cut = [&](Point& end, const Point& other) {
        const double x = std::clamp(end.x, left, right);
        if (x != end.x)
            end = {x, between(end.y, other.y, (x - end.x) / (other.x - end.x))};
    };
    const Point whole_from = from;
    cut(from, to);
    cut(to, whole_from);
    const double low = y_.start - beyond, high = y_.start + y_.size + beyond;
    put(from.x, std::clamp(from.y, low, high));
    // Where it crosses the lower and the upper edge, in the order of the way.
    double edges[] = {low, high};
    if (from.y > to.y)
        std::swap(edges[0], edges[1]);
    for (const double edge : edges) {
        if ((from.y < edge) != (to.y < edge))
            put(between(from.x, to.x, (edge - from.y) / (to.y - from.y)), edge);
    }
    put(to.x, std::clamp(to.y, low, high));
}

void Graph_Curve::put(double x, double y)
{
    line_.add({static_cast<LONG>(x), static_cast<LONG>(y)});
}

}
