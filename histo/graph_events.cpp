#include "frame/drawing.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "histo/graph_window.h"
#include "histo/painting.h"
#include "histo/tool_histo.h"
#include "host/charts.h"
#include "host/structures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace histo::graph {

namespace {

constexpr int press_bit = 2;
constexpr int least_zoom = 10; // pixels of a drag, in both directions

const char* text_of(const char* variable)
{
    const auto* text = static_cast<const char*>(frame::value_of(variable));
    return text ? text : "";
}

// ------------------------------------------------------------------------------------------------------- dragging

void start_drag(Window& graph, Place place)
{
    graph.drag_start = graph.drag_end = place;
    graph.dragging = true;
    SetCapture(graph.handle);
}

void zoom_to_drag(Window& graph)
{
    const auto [low_x, high_x] = std::minmax(graph.drag_start.x, graph.drag_end.x);
    const auto [low_y, high_y] = std::minmax(graph.drag_start.y, graph.drag_end.y);
    const auto meets = [](const Graph_Axis& axis, int low, int high) {
        return std::min(high, axis.start + axis.size) > std::max(low, axis.start);
    };
    if (!meets(graph.x, low_x, high_x) || !meets(graph.y, low_y, high_y))
        return;
    graph.zoomed = true;
    graph.x.zoom_to(low_x, high_x);
    graph.y.zoom_to(low_y, high_y);
    Error_Fct(hwnd, frame::level::notice, "org: %.2f/%.2f  scale: %.2f/%.2f", static_cast<double>(graph.x.origin),
        static_cast<double>(graph.y.origin), static_cast<double>(graph.x.scale), static_cast<double>(graph.y.scale));
    plot();
}

// A band that stays on the screen goes with the next plot.
void end_drag(Window& graph)
{
    stop_drag();
    graph.band.reset();
    const int width = std::abs(graph.drag_end.x - graph.drag_start.x);
    const int height = std::abs(graph.drag_end.y - graph.drag_start.y);
    if (graph.has_histogram() && width >= least_zoom && height >= least_zoom)
        zoom_to_drag(graph);
}

// ------------------------------------------------------------------------------------------------------- controls

void show_pressed(Buttons& button, bool pressed)
{
    button.pressed = pressed;
    button.Adjust();
}

void reset_zoom(Window& graph)
{
    show_pressed(graph.reset, true);
    graph.zoomed = false;
    stop_drag();
    plot();
    show_pressed(graph.reset, false);
}

// The dialog lets everything else happen: window and histogram are looked up again behind it.
void export_histogram(Window& graph)
{
    constexpr int name_size = 1024;
    const HWND asked_in = graph.handle;
    show_pressed(graph.save, true);
    char name[name_size];
    std::snprintf(name, sizeof name, "%shistogram", text_of("$DEFAULT_FILE_PATH"));
    const char* filter =
        Fct_Create_szFilter(2, "DB Files", "$FILE_EXTENSION_EXCEL", "All Files", "$FILE_EXTENSION_ALL");
    const int confirmed = Fct_Save_FileName("Write histogram info to file", filter, name, "csv", name, 0);
    if (graph.handle != asked_in)
        return;
    if (confirmed && graph.has_histogram())
        graph.owner->Write(name);
    show_pressed(graph.save, false);
}

// Whether the list took the press.
bool choose(Selects& select, int up_down)
{
    if (!is_shown(select) || !select.Select(up_down))
        return false;
    const HWND asked_in = the_window().handle;
    const int chosen = select.Read();
    if (chosen < 0 || the_window().handle != asked_in)
        return true;
    select.value = static_cast<unsigned short>(chosen);
    select.Adjust();
    plot();
    return true;
}

// Whether the wheel turned the list.
bool turn(Selects& select, int steps)
{
    constexpr int question = 4;
    return select.Select(question) && select.Scroll(-steps);
}

RECT spanned(Place one, Place other)
{
    return {std::min(one.x, other.x), std::max(one.y, other.y), std::max(one.x, other.x), std::min(one.y, other.y)};
}

void toggle_band(const RECT& band)
{
    Rectangle(Y_DC, band.left, band.top, band.right + 1, band.bottom - 1);
}

}

void draw_band()
{
    Window& graph = the_window();
    const frame::Drawing drawing(graph.handle, "Mode Histo: Local_Drag_Draw");
    const Boxs& box = graph.selection;
    const int saved = SaveDC(Y_DC);
    IntersectClipRect(Y_DC, box.x, box.y + box.height - 1, box.x + box.width, box.y - 1);
    {
        const Xor_Drawing xored;
        Current_Color = yellow;
        const Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
        const HGDIOBJ brush_before = SelectObject(Y_DC, GetStockObject(NULL_BRUSH));
        if (graph.band)
            toggle_band(*graph.band);
        graph.band.reset();
        if (graph.dragging) {
            graph.band = spanned(graph.drag_start, graph.drag_end);
            toggle_band(*graph.band);
            graph.banded = true;
        }
        SelectObject(Y_DC, brush_before);
    }
    RestoreDC(Y_DC, saved);
}

void stop_drag()
{
    if (std::exchange(the_window().dragging, false))
        ReleaseCapture();
}

void click(Place place, int up_down)
{
    if (Flag_Trace >= 4)
        Error_Fct(hwnd, 14, "Mode Histo: Histo_Blow_Click(up_down=%08X)", static_cast<unsigned>(up_down));
    Window& graph = the_window();
    if (up_down == 0 && graph.dragging)
        return end_drag(graph);
    if ((up_down & press_bit) && graph.selection.Select(up_down))
        return start_drag(graph, place);
    if (graph.reset.Select(up_down))
        return reset_zoom(graph);
    if (graph.save.Select(up_down))
        return export_histogram(graph);
    if (choose(graph.tag_select, up_down) || choose(graph.cursor_select, up_down))
        return;
    choose(graph.peak_select, up_down);
}

void motion(Place place, int up_down)
{
    constexpr int diagnostic = 10;
    trace("Mode Histo: Histo_Blow_Motion()");
    Error_Fct(hwnd, diagnostic, "Mode Histo: Histo_Blow_Motion()");
    Window& graph = the_window();
    if (graph.dragging && graph.selection.Select(up_down)) {
        graph.drag_end = place;
        draw_band();
    }
    graph.reset.Select(up_down);
    graph.save.Select(up_down);
    for (Selects* select : {&graph.peak_select, &graph.tag_select, &graph.cursor_select}) {
        if (is_shown(*select))
            select->Select(up_down);
    }
}

int scroll(Place place, int steps)
{
    trace("Mode Histo: Histo_Blow_Scroll()");
    Window& graph = the_window();
    if (graph.has_histogram() && graph.plot.Select(0) && graph.has_view()) {
        const float factor = static_cast<float>(steps + 10) / 10.0f;
        graph.x.zoom_at(place.x, factor);
        graph.y.zoom_at(place.y, factor);
        graph.zoomed = true;
        plot();
    }
    turn(graph.cursor_select, steps);
    if (turn(graph.tag_select, steps))
        plot();
    if (turn(graph.peak_select, steps))
        plot();
    return 1;
}

void key()
{
    trace("Mode Histo: Histo_Blow_Key()");
}

void pinch(float move_x, float move_y, float zoom_x, float zoom_y)
{
    constexpr float least = 0.09f, most = 1.1f;
    Window& graph = the_window();
    const auto within = [](float factor) { return factor >= least && factor <= most; };
    if (!graph.has_view() || !graph.has_histogram() || !within(zoom_x) || !within(zoom_y))
        return;
    graph.x.move(-graph.x.scale * move_x);
    graph.y.move(graph.y.scale * move_y);
    graph.x.magnify(zoom_x);
    graph.y.magnify(zoom_y);
    graph.zoomed = true;
    plot();
}

}
