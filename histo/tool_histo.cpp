#include "histo/tool_histo.h"

#include "frame/change_flags.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"
#include "histo/record_arrays.h"
#include "histo/tool_histo_blow.h"

#include <cstdarg>

namespace level = frame::level;
namespace change = frame::change;
namespace graph = histo::graph;
using frame::has_all;
using frame::has_any;

namespace {

constexpr int gap = 3; // between the widgets, pixels

}

Tool_Histo::Tool_Histo()
{
    graph::register_class();
}

Tool_Histo::Tool_Histo(const Tool_Histo&) = default;
Tool_Histo& Tool_Histo::operator=(const Tool_Histo&) = default;

Tool_Histo::~Tool_Histo()
{
    if (histo)
        histo::free_arrays(*histo); // the record itself stays: copies of the panel have it too
    graph::close(this);
}

const unsigned* Tool_Histo::Shown_Counts() const
{
    const unsigned* const of_component[] = {histo->max_component, histo->red, histo->green, histo->blue};
    const unsigned* counts = color_component < 4 ? of_component[color_component] : nullptr;
    return counts ? counts : histo->count;
}

// ------------------------------------------------------------------------------------------------------ layout

int Tool_Histo::Height(unsigned short pixels)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Height()");
    return pixels;
}

int Tool_Histo::Resize(Boxs* area)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Resize()");
    const int control = frame::dimension("$INTERFACE_CURSOR_DIM");
    frame::take_area(*this, *area, frame::state::panel_box);
    frame::take_place(*this, area->x, area->y, area->width - 2 * (control + gap), area->height);
    Init(area->window);

    frame::take_look(zoom, *area);
    frame::take_place(zoom, x + width + gap, y, control, height);
    zoom.state = frame::state::zoom_valuator;
    zoom.value = 1.0f;
    zoom.minimum = 0.001f;
    zoom.maximum = 1.0f;
    zoom.Init(area->window);

    frame::take_look(blow, *area);
    frame::take_place(blow, zoom.x + zoom.width + gap, y, control, height);
    blow.border = area->border;
    blow.state = frame::state::vertical_button;
    blow.Set_Name("Blow");
    blow.pressed = graph::exists();
    blow.Init(area->window);
    return 1;
}

void Tool_Histo::Draw()
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Draw()");
    blow.pressed = graph::exists();
    Boxs::Draw();
    cursor_x = -1; // painted over
    blow.Draw();
    zoom.Draw();
    Histo_Paint(this);
}

// ------------------------------------------------------------------------------------------------------ events

int Tool_Histo::Click(int up_down)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    if (up_down == 0)
        return 0;
    if (blow.Select(up_down)) {
        Open_Graph();
        return 1;
    }
    if (!zoom.Select(up_down))
        return 0;
    Take_Zoom();
    return 1;
}

void Tool_Histo::Open_Graph()
{
    blow.pressed = 1;
    blow.Adjust();
    graph::open(this);
    if (graph::exists())
        return;
    blow.pressed = 0;
    blow.Adjust();
}

void Tool_Histo::Take_Zoom()
{
    zoom.Read();
    zoom.Adjust();
}

int Tool_Histo::Motion(int up_down)
{
    blow.Select(up_down);
    if (!zoom.Select(up_down))
        return 0;
    Take_Zoom();
    Histo_Paint(this);
    return 1;
}

int Tool_Histo::Keyboard(int key)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Keyboard(key=0x%08x)", static_cast<unsigned>(key));
    return 0;
}

int Tool_Histo::Scroll(int amount)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Scroll()");
    zoom.Scroll(-amount);
    Histo_Paint(this);
    return 1;
}

void Tool_Histo::Leave()
{
    blow.Deselect();
    zoom.Deselect();
}

void Tool_Histo::Update(unsigned long long flags)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Update()");
    if (has_all(flags, change::frame_selection)) {
        Histo_Compute(this);
        graph::post(graph::changed);
    }
    if (has_any(flags, change::image_data)) {
        Histo_Compute(this);
        Histo_Cursor(this);
        graph::post(graph::changed);
    }
    for (const auto repainted : {change::histogram_look, change::tag_colors, change::current_tag}) {
        if (has_any(flags, repainted)) {
            Histo_Paint(this);
            graph::post(graph::changed);
        }
    }
    if (has_any(flags, change::pointer)) {
        Histo_Cursor(this);
        graph::post(graph::pointer_moved);
    }
    if (has_any(flags, change::color_component)) {
        color_component = static_cast<unsigned char>(frame::number("$GLI_COLOR_COMPONENT"));
        Histo_Cursor(this);
        Histo_Paint(this);
        graph::post(graph::changed);
    }
    if (has_any(flags, change::everything)) {
        blow.pressed = graph::exists();
        blow.Adjust();
    }
}

#if defined(__clang__)
#pragma clang diagnostic ignored "-Wvarargs"
#endif

int Tool_Histo::Set(unsigned short n, ...)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Histo::Set()");
    const auto count = static_cast<short>(n);
    if (count < 0 || count > most_ranges)
        return 0;
    range_nb = n;
    va_list arguments;
    va_start(arguments, n);
    for (int i = 0; i < count; ++i) {
        range_tag[i] = static_cast<unsigned short>(va_arg(arguments, int));
        range_min[i] = static_cast<float>(va_arg(arguments, double));
        range_max[i] = static_cast<float>(va_arg(arguments, double));
    }
    va_end(arguments);
    return 1;
}
