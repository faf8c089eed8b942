#include "frame/own_window.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"
#include "histo/graph_window.h"
#include "histo/tool_histo.h"
#include "histo/tool_histo_blow.h"

#include <algorithm>
#include <cstdint>

namespace state = frame::state;

namespace histo::graph {

namespace {

constexpr int trace_level = 14;
constexpr int traces_from = 4;

struct Measures {
    int space = frame::dimension("$INTERFACE_SPACE_DIM");
    int button = frame::dimension("$INTERFACE_BUTTON_DIM_BIG");
    int border = frame::dimension("$INTERFACE_BORDER_DIM");
    int arrow = frame::dimension("$INTERFACE_LIST_DIM_ARROW");
};

void make_fonts(Window& graph)
{
    constexpr int larger_in_lists = -2;
    frame::renew_font(graph.tool_font, frame::tool_font, 0);
    frame::renew_font(graph.select_font, frame::tool_font, larger_in_lists);
    frame::renew_font(graph.title_font, frame::title_font, 0);
}

// The colours are the owner's, as in its panel.
void take_look(const Window& graph, Tools& widget, HFONT font, int border)
{
    if (graph.owner)
        frame::take_look(widget, *graph.owner);
    widget.font = font;
    widget.border = frame::to_short(border);
}

void lay_out_buttons(Window& graph, const Measures& measures, HWND handle)
{
    const int width = (graph.outer.width - 3 * measures.space) / 2;
    int x = 1 + measures.space;
    const auto place = [&](Buttons& button, const char* name) {
        take_look(graph, button, graph.tool_font, measures.border);
        frame::take_place(button, x, 1 + measures.space, width, measures.button);
        button.Set_Name(name);
        button.Init(handle);
        x += width + measures.space;
    };
    place(graph.reset, "Reset Zoom");
    place(graph.save, "Export");
}

void set_items(Selects& select, std::initializer_list<const char*> items)
{
    if (select.Count() > 0)
        return;
    select.Grow(static_cast<int>(items.size()), 0);
    int index = 0;
    for (const char* item : items)
        select.Set_Item(index++, item);
}

void lay_out_select(Window& graph, const Measures& measures, Selects& select, const char* name, int y, HWND handle)
{
    take_look(graph, select, graph.select_font, measures.border);
    frame::take_place(
        select, 1 + measures.space, y, graph.outer.width - 2 * measures.space, measures.space + measures.button);
    select.Set_Name(name);
    select.arrow = frame::to_short(measures.arrow);
    select.item_height = frame::to_short(measures.button - measures.space - 2);
    select.state = state::select_list;
    select.Init(handle);
}

// Without peaks it has nothing to offer and lies, unseen, where the second button is.
void lay_out_peak_select(Window& graph, const Measures& measures, int y, HWND handle)
{
    Selects& select = graph.peak_select;
    lay_out_select(graph, measures, select, "Display Peak    ", y, handle);
    if (graph.laid_out_with_peaks) {
        set_items(select, {"Off", "Composite", "Individual"});
        return;
    }
    frame::take_place(select, graph.save.x, graph.save.y, graph.save.width, graph.save.height);
    select.state = state::greyed;
    select.Grow(0, 0);
}

void lay_out_boxes(Window& graph, const Measures& measures, int y, HWND handle)
{
    take_look(graph, graph.selection, graph.title_font, measures.border);
    frame::take_place(graph.selection, 1 + measures.space, y, graph.outer.width - 2 * measures.space,
        graph.outer.y + graph.outer.height - measures.space - y);
    graph.selection.state = state::graph_selection_box;
    graph.selection.Init(handle);

    const int inset = measures.border + 1;
    take_look(graph, graph.plot, graph.title_font, measures.border);
    frame::take_place(graph.plot, graph.selection.x + inset, graph.selection.y + inset,
        graph.selection.width - 2 * inset, graph.selection.height - 2 * inset);
    graph.plot.state = state::graph_plot_box;
    graph.plot.Init(handle);
}

}

bool Window::has_histogram() const
{
    return owner && owner->Ready();
}

bool Window::has_peaks() const
{
    return owner && owner->Peaks() && owner->Peaks()->nb > 0;
}

void trace(const char* what)
{
    if (Flag_Trace >= traces_from)
        Error_Fct(hwnd, trace_level, "%s", what);
}

void lay_out(HWND handle)
{
    Window& graph = the_window();
    if (Flag_Trace >= traces_from)
        Error_Fct(hwnd, trace_level, "Mode Histo: Histo_Blow_Resize(wind=%08x,dim=%dx%d)",
            static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(handle)), graph.width, graph.height);
    const Measures measures;
    make_fonts(graph);
    graph.laid_out_with_peaks = graph.has_peaks();

    take_look(graph, graph.outer, graph.title_font, measures.border);
    frame::take_place(graph.outer, 1, 1, graph.width - 2, graph.height - 2);
    graph.outer.state = state::panel_box;
    if (handle)
        graph.outer.Init(handle);

    lay_out_buttons(graph, measures, handle);
    int y = 1 + 2 * measures.space + measures.button;
    const int pitch = 2 * measures.space + measures.button;
    lay_out_peak_select(graph, measures, y, handle);
    if (graph.laid_out_with_peaks)
        y += pitch;
    lay_out_select(graph, measures, graph.tag_select, "Display TAG      ", y, handle);
    set_items(graph.tag_select, {"Off", "On"});
    y += pitch;
    lay_out_select(graph, measures, graph.cursor_select, "Display Cursor ", y, handle);
    set_items(graph.cursor_select, {"Off", "On"});
    y += pitch;
    lay_out_boxes(graph, measures, y, handle);
}

void draw()
{
    Window& graph = the_window();
    trace("Mode Histo: Histo_Blow_Draw()");
    const bool peaks = graph.has_peaks();
    if (peaks != graph.laid_out_with_peaks) {
        lay_out(nullptr);
        InvalidateRect(graph.handle, nullptr, TRUE);
    }
    graph.reset.Draw();
    graph.save.Draw();
    graph.peak_select.state = peaks ? state::select_list : state::greyed_select_list;
    if (is_shown(graph.peak_select))
        graph.peak_select.Draw();
    graph.tag_select.Draw();
    graph.cursor_select.Draw();
    graph.selection.Draw();
    plot();
}

}

void Histo_Graph_Display(int peaks, int tags, int cursor)
{
    auto& graph = histo::graph::the_window();
    graph.peak_select.value = static_cast<unsigned short>(std::clamp(peaks, 0, 2));
    graph.tag_select.value = tags != 0;
    graph.cursor_select.value = cursor != 0;
    histo::graph::post(histo::graph::changed);
}
