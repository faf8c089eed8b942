#include "frame/drawing.h"
#include "frame/report.h"
#include "frame/tag_colors.h"
#include "histo/int_part.h"
#include "histo/painting.h"
#include "histo/pointer_bin.h"
#include "histo/tool_histo.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace level = frame::level;
using histo::fill;
using histo::int_part;
using histo::Selected;

namespace {

constexpr int most_tags = 256;

// Where the histogram is drawn, pixels of the window, and how many pixels a bin and a count are.
struct Geometry {
    int left;
    int bottom;
    int width;
    int height;
    float x_scale;
    float y_scale;

    explicit Geometry(const Tool_Histo& panel)
        : left(panel.x + 1 + panel.border), bottom(panel.y + 1 + panel.border),
          width(panel.width - 2 * panel.border - 2), height(panel.height - 2 * panel.border - 2),
          x_scale(static_cast<float>(width) / static_cast<float>(panel.histo->nb_bins)), y_scale(0)
    {
        const float full = static_cast<float>(panel.histo->max_count) * panel.zoom.value;
        if (full > 0)
            y_scale = static_cast<float>(height) / full;
    }

    bool empty() const { return width <= 0 || height <= 0; }
    int x_of(int bin) const { return left + int_part(static_cast<float>(bin) * x_scale); }
    int y_of(unsigned count) const { return bottom + std::min(int_part(static_cast<float>(count) * y_scale), height); }
};

// ------------------------------------------------------------------------------------------------------ ranges

// What lies above the histogram is its last bin, and so is, deliberately, what lies below it.
int bin_of(float grey, const Histo_Record& histogram)
{
    const int bin = int_part((static_cast<float>(int_part(grey)) - histogram.min) / histogram.width);
    const auto last = static_cast<unsigned>(histogram.nb_bins - 1);
    return bin != 0 && static_cast<unsigned>(bin) > last ? static_cast<int>(last) : bin;
}

// The bars of a range, in polygons of at most 17 bins that share one with their neighbour.
void fill_bars(const Geometry& place, const unsigned* counts, int first, int last)
{
    constexpr int step = 16;
    const Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
    const Selected brush(CreateSolidBrush(Current_Color));
    for (int start = first; start < last; start += step) {
        std::array<POINT, 2 * (step + 1) + 2> points;
        size_t used = 0;
        points[used++] = {place.x_of(start), place.bottom};
        for (int bin = start; bin <= std::min(start + step, last); ++bin) {
            const int x = place.x_of(bin), y = place.y_of(counts[bin]);
            points[used++] = {x, y};
            points[used++] = {x + int_part(place.x_scale), y};
        }
        points[used] = {points[used - 1].x, place.bottom};
        assert(used < points.size());
        Polygon(Y_DC, points.data(), static_cast<int>(used + 1));
    }
}

void draw_range(const Tool_Histo& panel, const Geometry& place, float lower, float upper)
{
    const int first = bin_of(lower, *panel.histo), last = bin_of(upper, *panel.histo);
    const int start = int_part(static_cast<float>(first) * place.x_scale + static_cast<float>(place.left));
    const int end = int_part(static_cast<float>(last + 1) * place.x_scale + static_cast<float>(place.left));
    fill({std::min(start, end), place.bottom, std::max(start, end), place.bottom + place.height},
        histo::checker(Current_Color));
    fill_bars(place, panel.Shown_Counts(), first, last);
}

void draw_ranges(const Tool_Histo& panel, const Geometry& place)
{
    static frame::Kept_Tag_Colors kept;
    const frame::Tag_Colors colors = kept.get();
    for (int i = 0; colors.complete() && i < panel.range_nb; ++i) {
        const unsigned short tag = panel.range_tag[i];
        if (tag >= most_tags)
            continue;
        Current_Color = frame::from_tag_words(colors.red[tag], colors.green[tag], colors.blue[tag]).get();
        draw_range(panel, place, panel.range_min[i], panel.range_max[i]);
    }
}

// ----------------------------------------------------------------------------------------------------- outline

COLORREF outline_color(const Tool_Histo& panel)
{
    using namespace histo;
    const Histo_Record& histogram = *panel.histo;
    switch (panel.color_component) {
    case 1:
        return histogram.red ? red : yellow;
    case 2:
        return histogram.green ? green : yellow;
    case 3:
        return histogram.blue ? blue : yellow;
    default:
        return yellow;
    }
}

void draw_outline(const Tool_Histo& panel, const Geometry& place)
{
    const Selected pen(CreatePen(PS_SOLID, 1, outline_color(panel)));
    const unsigned* counts = panel.Shown_Counts();
    histo::Joined_Line line;
    line.add({place.left, place.bottom});
    for (int bin = 0; bin < panel.histo->nb_bins; ++bin)
        line.add({place.x_of(bin), place.y_of(counts[bin])});
    line.finish();
}

void toggle_cursor(const Tool_Histo& panel, int x)
{
    const frame::Drawing drawing(panel.window, "Histo_Cursor");
    histo::toggle_cursor(x, panel.y + 1 + panel.border, panel.height - 2 * panel.border - 2);
}

}

int Histo_Paint(Tool_Histo* panel)
{
    Error_Fct(hwnd, level::internal_trace, "in Histo_Paint()");
    if (!panel->Ready())
        return 0;
    const Tool_Histo& box = *panel;
    const frame::Drawing drawing(panel->window, "Histo_Paint");
    fill({box.x + box.border + 1, box.y + box.border, box.x + box.width - box.border,
             box.y + box.height - box.border - 1},
        CreateSolidBrush(histo::black));
    panel->cursor_x = -1;
    const Geometry place(*panel);
    if (place.empty())
        return 1;
    draw_ranges(*panel, place);
    draw_outline(*panel, place);
    return 1;
}

int Histo_Cursor(Tool_Histo* panel)
{
    Error_Fct(hwnd, level::internal_trace, "in Histo_Cursor()");
    if (!panel->histo)
        return 0;
    if (panel->cursor_x != 0) {
        toggle_cursor(*panel, panel->cursor_x);
        panel->cursor_x = 0;
    }
    if (!panel->Ready())
        return 0;
    const histo::Pointer_Bin pointer = histo::bin_under_pointer(*panel);
    if (pointer.found != histo::Pointer_Bin::Found::bin)
        return pointer.found == histo::Pointer_Bin::Found::no_value;
    const Geometry place(*panel);
    if (place.empty())
        return 1;
    const int x = int_part(static_cast<float>(pointer.bin) * place.x_scale + static_cast<float>(place.left));
    toggle_cursor(*panel, x);
    panel->cursor_x = x;
    return 1;
}
