#pragma once

#include "histo/graph_axis.h"
#include "host/gadgets.h"

#include <optional>

class Tool_Histo;

namespace histo::graph {

/// What "Display Peak" offers.
enum class Peak_Display { off, composite, individual };

struct Place {
    int x = 0;
    int y = 0;
};

/// The window's state: there is one window. Positions are pixels of its client area, y growing upward.
///
/// Kept for the life of the process, because widgets and fonts must neither be made before the host nor go after it.
struct Window {
    HINSTANCE instance = nullptr;
    bool registered = false;
    HWND handle = nullptr;       ///< null while there is no window
    Tool_Histo* owner = nullptr; ///< whose histogram is shown; may be null
    short width = 0;
    short height = 0;
    int frame_x = 0; ///< what screen and client positions of a pen differ by, beside the window's place
    int caption = 0;
    int frame_y = 0;

    bool zoomed = false;
    Graph_Axis x; ///< grey values
    Graph_Axis y; ///< counts
    int cursor_x = 0;
    int wheel = 0; ///< what is left of the wheel's turn

    bool dragging = false;
    Place drag_start, drag_end;
    std::optional<RECT> band; ///< the rubber band on the screen that the next one takes the place of
    bool banded = false;      ///< a band has been drawn since the last plot; part of it may lie beside the plot

    Boxs outer, selection, plot;
    Buttons reset, save;
    Selects peak_select, tag_select, cursor_select;
    HFONT tool_font = nullptr;
    HFONT title_font = nullptr;
    HFONT select_font = nullptr;
    HFONT label_font = nullptr;
    bool laid_out_with_peaks = false;

    bool has_histogram() const;
    bool has_peaks() const;
    bool has_view() const { return x.is_usable() && y.is_usable(); } ///< from a plot
    Peak_Display peak_display() const { return static_cast<Peak_Display>(peak_select.value); }
    bool shows_tags() const { return tag_select.value == 1; }
    bool shows_cursor() const { return cursor_select.value == 1; }
};

Window& the_window();

/// Whether a list is there to be seen: without items it lies where the second button is.
inline bool is_shown(const Selects& select)
{
    return select.Count() > 0;
}

/// Tells what is done, when traces are wanted at all.
void trace(const char* what);

/// Lays the controls out in the client area. @param handle the window, or null to keep the one they have
void lay_out(HWND handle);

/// Draws controls and plot; lays them out anew first when the owner has got peaks or lost them.
void draw();

/// Draws the plot.
void plot();

/// Moves the cursor to the value under the pointer over the image.
void move_cursor();

void click(Place place, int up_down);
void motion(Place place, int up_down);
void stop_drag();
int scroll(Place place, int steps);
void key();

/// A gesture of two fingers: movement in pixels (y downward), and how much their distance grew.
void pinch(float move_x, float move_y, float zoom_x, float zoom_y);

/// Draws the rubber band where the drag is, or takes it away when there is none.
void draw_band();

}
