#include "histo/graph_axis.h"

#include <algorithm>
#include <cmath>

namespace histo {

bool Graph_Axis::is_usable() const
{
    return size > 0 && std::isfinite(scale) && scale > 0 && std::isfinite(origin);
}

double Graph_Axis::pixel_of(double value) const
{
    return (value - static_cast<double>(origin)) / static_cast<double>(scale) + start;
}

void Graph_Axis::set_range(float lowest, float highest, float room, int first_pixel, int pixels)
{
    const float margin = room * (highest - lowest);
    full_min = lowest - margin;
    full_max = highest + margin;
    start = first_pixel;
    size = pixels;
    full_scale = (full_max - full_min) / static_cast<float>(size);
}

void Graph_Axis::show_all()
{
    scale = full_scale;
    origin = full_min;
}

// The far edge comes to everything's end by a smaller scale, so that all that is drawn shares one mapping; what is
// shown only moves when it lies beyond that end.
void Graph_Axis::keep_within()
{
    scale = std::min(scale, full_scale);
    origin = std::max(origin, full_min);
    if (end() <= full_max)
        return;
    if (origin < full_max)
        scale = std::min((full_max - origin) / static_cast<float>(size), full_scale);
    else
        origin = std::max(full_max - static_cast<float>(size) * scale, full_min);
}

void Graph_Axis::zoom_to(int low, int high)
{
    const int first = std::max(low, start);
    const int last = std::min(high, start + size);
    origin += static_cast<float>(first - start) * scale;
    scale *= static_cast<float>(last - first) / static_cast<float>(size);
}

void Graph_Axis::clamp_origin()
{
    if (origin <= full_min)
        origin = full_min;
    const float last = full_max - static_cast<float>(size) * scale;
    if (origin >= last)
        origin = last;
}

void Graph_Axis::zoom_at(int pixel, float factor)
{
    const int offset = std::clamp(pixel, start, start + size) - start;
    const float before = scale;
    scale = std::min(scale * factor, full_scale);
    origin -= (scale - before) * static_cast<float>(offset);
    clamp_origin();
}

void Graph_Axis::move(float data)
{
    origin += data;
    clamp_origin();
}

void Graph_Axis::magnify(float factor)
{
    scale = std::min(scale / factor, full_scale);
}

}
