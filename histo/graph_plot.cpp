#include "frame/drawing.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/tag_colors.h"
#include "histo/graph_curve.h"
#include "histo/graph_window.h"
#include "histo/int_part.h"
#include "histo/painting.h"
#include "histo/pointer_bin.h"
#include "histo/tool_histo.h"
#include "host/charts.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>

namespace histo::graph {

namespace {

constexpr const char* source = "tool_histo_blow";
constexpr COLORREF magenta = 0xFF00FF;
constexpr COLORREF sum_color = 0xFFA000;
constexpr COLORREF slope_color = 0xD8D8D8;
constexpr COLORREF composite_label_color = 0xFF8080;
constexpr COLORREF individual_label_color = 0x80FF80;
constexpr int most_tags = 256;

Clip clip_to_plot(const Window& graph)
{
    return {graph.x.start, graph.y.start, graph.x.size + 1, graph.y.size + 1};
}

// ------------------------------------------------------------------------------------------------------- the view

// Everything that can be seen: the bins' lower edges and the counts, with some room. One bin, or nothing counted, still
// needs an extent.
void take_range(Window& graph, const Histo_Record& histogram, const Plot_Area& area)
{
    constexpr float room_x = 0.05f, room_y = 0.10f;
    float lowest = histogram.min;
    float highest = histogram.min + static_cast<float>(histogram.nb_bins - 1) * histogram.width;
    if (!(highest > lowest)) {
        const float half = (histogram.width > 0 ? histogram.width : 1.0f) / 2;
        lowest -= half;
        highest = lowest + 2 * half;
    }
    const float most = histogram.max_count ? static_cast<float>(histogram.max_count) : 1.0f;
    graph.x.set_range(lowest, highest, room_x, area.x, area.width);
    graph.y.set_range(0, most, room_y, area.y, area.height);
}

void take_view(Window& graph)
{
    if (!graph.has_view())
        graph.zoomed = false; // a turn of the wheel can bring the scale to 0
    for (Graph_Axis* axis : {&graph.x, &graph.y}) {
        if (graph.zoomed)
            axis->keep_within();
        else
            axis->show_all();
    }
}

void draw_axes(Window& graph)
{
    constexpr int kind = 144;
    const auto scale = frame::dimension("$INTERFACE_TOOL_FONT_SCALE");
    const auto smaller = static_cast<short>(scale - 1);
    Tool_Histo& owner = *graph.owner;
    Plot_Window_Axes_X(&graph.plot, kind, smaller, owner.x_title, owner.x_unit, owner.y_title, owner.y_unit,
        graph.x.origin, std::min(graph.x.end(), graph.x.full_max));
    Plot_Window_Axes_Y(&graph.plot, kind, smaller, owner.x_title, owner.x_unit, owner.y_title, owner.y_unit,
        graph.y.origin, std::min(graph.y.end(), graph.y.full_max));
}

// ------------------------------------------------------------------------------------------------------- curves

// Values of bins 0 .. count - 1, joined; bin i stands at its lower edge. Within a level stretch, as a peak is nearly
// everywhere, the ends are enough.
template <class Value>
void draw_values(const Window& graph, const Value* values, int count, Joined_Points& line)
{
    const Histo_Record& histogram = *graph.owner->histo;
    Graph_Curve curve(graph.x, graph.y, line);
    const auto seen = Graph_Curve::seen_bins(graph.x, histogram.min, histogram.width, count);
    for (int bin = seen.first; bin < seen.end; ++bin) {
        const bool inside = bin > seen.first && bin + 1 < seen.end;
        if (inside && values[bin] == values[bin - 1] && values[bin] == values[bin + 1])
            continue;
        curve.add(static_cast<double>(histogram.min) + bin * static_cast<double>(histogram.width),
            static_cast<double>(values[bin]));
    }
    curve.finish();
}

template <class Value>
void draw_curve(const Window& graph, const Value* values, int count, COLORREF color)
{
    if (!values)
        return;
    const frame::Drawing drawing(graph.handle, "Mode Histo: Histo_Plot_Curve");
    const Clip clip = clip_to_plot(graph);
    Current_Color = color;
    const Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
    Joined_Line line;
    draw_values(graph, values, count, line);
}

void draw_histogram(const Window& graph)
{
    const Tool_Histo& owner = *graph.owner;
    const Histo_Record& histogram = *owner.histo;
    const int bins = histogram.nb_bins;
    if (!(histogram.flags & 1) || owner.color_component == 4)
        return draw_curve(graph, histogram.count, bins, yellow);
    if (owner.color_component == 0)
        return draw_curve(graph, histogram.max_component, bins, yellow);
    if (owner.color_component > 4)
        return;
    draw_curve(graph, histogram.red, bins, red);
    draw_curve(graph, histogram.green, bins, green);
    draw_curve(graph, histogram.blue, bins, blue);
}

void draw_search(const Window& graph, const Histo_Peaks& peaks)
{
    draw_curve(graph, peaks.smooth, peaks.nb_pts, magenta);
    if (Flag_Trace <= 0)
        return;
    draw_curve(graph, peaks.sum, peaks.nb_pts, sum_color);
    draw_curve(graph, peaks.slope, peaks.nb_pts, slope_color);
}

// ------------------------------------------------------------------------------------------------------- peaks

// Where a peak's name may stand: above the zero level, below the room at the top.
struct Label_Room {
    float bottom, top;
    explicit Label_Room(const Graph_Axis& y) : bottom(y.origin), top(y.origin + 0.91f * (y.end() - y.origin)) {}
    bool has_zero() const { return bottom <= 0 && top > 0; }
};

void draw_label(const Window& graph, double center, double height)
{
    const int x = int_part(graph.x.pixel_of(center));
    const int zero = int_part(graph.y.pixel_of(0));
    MoveToEx(Y_DC, x, zero, nullptr);
    LineTo(Y_DC, x, int_part(graph.y.pixel_of(height)));
    char text[400]; // the largest number has 309 digits
    const int length = std::snprintf(text, sizeof text, "%.0f", center);
    WCHAR wide[sizeof text];
    std::copy_n(text, length, wide);
    TextOutW(Y_DC, x, zero - 3, wide, length);
}

void draw_labels(Window& graph, COLORREF color)
{
    trace("Mode Histo: Histo_Plot_Peak_Label");
    if (!graph.label_font) {
        graph.label_font = Y_Create_Font(static_cast<const char*>(frame::value_of("$INTERFACE_TITLE_FONT_NAME")),
            frame::dimension("$INTERFACE_TITLE_FONT_SCALE"),
            static_cast<const char*>(frame::value_of("$INTERFACE_TITLE_FONT_WEIGHT")));
    }
    const frame::Drawing drawing(graph.handle, "Mode Histo: Histo_Plot_Peak_Label");
    const Clip clip(graph.plot.x, graph.plot.y - 50, graph.plot.width, graph.plot.height + 100);
    const Label_Room room(graph.y);
    if (!room.has_zero())
        return;
    Current_Color = color;
    const Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
    const HGDIOBJ font_before = SelectObject(Y_DC, graph.label_font);
    SetTextColor(Y_DC, Current_Color);
    SetBkMode(Y_DC, TRANSPARENT);
    SetTextAlign(Y_DC, TA_CENTER | TA_TOP);
    const Histo_Record& histogram = *graph.owner->histo;
    for (const Histo_Peak* peak = graph.owner->Peaks()->head; peak; peak = peak->next) {
        const Vector_N& param = *peak->param;
        const double center = param[0] * static_cast<double>(histogram.width) + static_cast<double>(histogram.min);
        if (center >= static_cast<double>(graph.x.origin) && center <= static_cast<double>(graph.x.end()))
            draw_label(graph, center, std::min(param[1], static_cast<double>(room.top)));
    }
    SelectObject(Y_DC, font_before);
}

bool draw_composite(const Window& graph, const Histo_Peaks& peaks)
{
    int count = 0;
    for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next)
        count = std::max(count, peak->curve ? peak->nb_pts : 0);
    const std::unique_ptr<float[]> sum(new (std::nothrow) float[static_cast<std::size_t>(count)]());
    if (!sum) {
        frame::report_new_failed(__LINE__, source);
        return false;
    }
    for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next) {
        for (int bin = 0; peak->curve && bin < peak->nb_pts; ++bin)
            sum[static_cast<std::size_t>(bin)] += peak->curve[bin];
    }
    draw_curve(graph, sum.get(), count, green);
    return true;
}

void draw_peaks(Window& graph, const Histo_Peaks& peaks)
{
    switch (graph.peak_display()) {
    case Peak_Display::off:
        return;
    case Peak_Display::composite:
        if (draw_composite(graph, peaks))
            draw_labels(graph, composite_label_color);
        return;
    case Peak_Display::individual:
        for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next)
            draw_curve(graph, peak->curve, peak->nb_pts, green);
        draw_labels(graph, individual_label_color);
        return;
    }
}

// ------------------------------------------------------------------------------------------------------- ranges

int rounded(float grey)
{
    return int_part(grey + 0.5f);
}

void fill_band(const Window& graph, int lower, int upper)
{
    const auto pixel = [&](int grey) {
        return int_part(std::clamp(graph.x.pixel_of(grey), static_cast<double>(graph.x.start),
            static_cast<double>(graph.x.start + graph.x.size)));
    };
    const int from = pixel(lower), to = pixel(upper);
    fill({std::min(from, to), graph.y.start + graph.y.size, std::max(from, to), graph.y.start - 1},
        checker(Current_Color));
}

void fill_bars(const Window& graph, int lower, int upper)
{
    const Histo_Record& histogram = *graph.owner->histo;
    const auto bin = [&](int grey) { return int_part((static_cast<float>(grey) - histogram.min) / histogram.width); };
    const auto seen = Graph_Curve::seen_bins(graph.x, histogram.min, histogram.width, histogram.nb_bins);
    const int first = std::max({0, bin(lower), seen.first});
    const int last = std::min({histogram.nb_bins - 1, bin(upper), seen.end - 1});
    if (first > last)
        return;
    const Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
    const Selected brush(CreateSolidBrush(Current_Color));
    const double zero = std::clamp(graph.y.pixel_of(0), graph.y.start - 4.0, graph.y.start + graph.y.size + 4.0);
    Joined_Area area(int_part(zero));
    Graph_Curve curve(graph.x, graph.y, area);
    const unsigned* counts = graph.owner->Shown_Counts();
    for (int i = first; i <= last; ++i)
        curve.add(static_cast<double>(histogram.min) + i * static_cast<double>(histogram.width), counts[i]);
    curve.finish();
}

void draw_ranges(const Window& graph)
{
    static frame::Kept_Tag_Colors kept;
    const frame::Tag_Colors colors = kept.get();
    const Tool_Histo& owner = *graph.owner;
    const frame::Drawing drawing(graph.handle, "Mode Histo: Histo_Plot_Range");
    const Clip clip = clip_to_plot(graph);
    for (int i = 0; colors.complete() && i < owner.range_nb; ++i) {
        const unsigned short tag = owner.range_tag[i];
        if (tag >= most_tags)
            continue;
        Current_Color = frame::from_tag_words(colors.red[tag], colors.green[tag], colors.blue[tag]).get();
        const int lower = rounded(owner.range_min[i]), upper = rounded(owner.range_max[i]);
        fill_band(graph, lower, upper);
        fill_bars(graph, lower, upper);
    }
}

void clear(Window& graph)
{
    if (graph.banded)
        graph.selection.Draw(); // the band lay over its frame as well
    graph.banded = false;
    graph.band.reset();
    graph.plot.Clear(graph.plot.back);
    graph.cursor_x = 0;
}

}

void plot()
{
    Window& graph = the_window();
    if (!graph.handle)
        return;
    const frame::Drawing drawing(graph.handle, "Mode Histo: Histo_Plot");
    clear(graph);
    const Plot_Area area = Plot_Area_Of(graph.plot);
    if (!graph.has_histogram() || area.width < 1 || area.height < 1)
        return;
    take_range(graph, *graph.owner->histo, area);
    take_view(graph);
    if (graph.shows_tags())
        draw_ranges(graph);
    draw_axes(graph);
    draw_histogram(graph);
    if (const Histo_Peaks* peaks = graph.owner->Peaks()) {
        draw_search(graph, *peaks);
        if (graph.has_peaks())
            draw_peaks(graph, *peaks);
    }
}

void move_cursor()
{
    trace("in Histo_Cursor()");
    Window& graph = the_window();
    if (!graph.handle || graph.plot.width <= 0)
        return;
    const frame::Drawing drawing(graph.handle, "Histo_Cursor");
    const Plot_Area area = Plot_Area_Of(graph.plot);
    if (graph.cursor_x != 0)
        toggle_cursor(graph.cursor_x, area.y, area.height);
    graph.cursor_x = 0;
    if (!graph.has_histogram() || area.width < 1 || area.height < 1 || !graph.has_view())
        return;
    const Pointer_Bin pointer = bin_under_pointer(*graph.owner);
    if (pointer.found != Pointer_Bin::Found::bin)
        return;
    const Histo_Record& histogram = *graph.owner->histo;
    const float grey = static_cast<float>(pointer.bin) * histogram.width + histogram.min;
    const int x = int_part(graph.x.pixel_of(grey));
    if (x < area.x || x > area.x + area.width)
        return;
    toggle_cursor(x, area.y, area.height);
    graph.cursor_x = x;
}

}
