#pragma once

#include "frame/export.h"
#include "frame/shared_array.h"
#include "histo/tool_histo_peak.h"
#include "host/gadgets.h"
#include "host/structures.h"

/// The panel of the grey-level histogram of the selected frames: a curve with the ranges of tags, a cursor at the grey
/// value under the pointer, a vertical zoom, and a button that opens the graph window. It finds and fits Gaussian peaks
/// and writes everything into a file for a spreadsheet.
///
/// Reads `"$WINDOW_CUR"` and the frames selected in it, `"$GLI_COLOR_COMPONENT"`, `"$GLI_HISTO_BINS_MAX"`,
/// `"$FRAME_OVR"`, `"$MOUSE_FRM"`, the tag colours, `"$REGIONAL_SEPARATOR"` and `"$INTERFACE_CURSOR_DIM"`; writes
/// `"$GLI_HISTO_BINS_NB"`. Sends nothing. Copies share the histogram and the peaks; the histogram's arrays go with the
/// first of them that is destroyed.
class VETRA_TOOLS_API Tool_Histo : public Boxs {
public:
    static constexpr int most_ranges = 32;
    static constexpr int text_size = 80;

    Buttons blow;   ///< opens the graph window; pressed while there is one
    Valuators zoom; ///< 1 to 0.001: the share of the largest count that the height stands for

    char x_title[text_size] = {}; ///< texts of the axes, UTF-8
    char y_title[text_size] = {};
    char x_unit[text_size] = {};
    char y_unit[text_size] = {};

    Histo_Record* histo = nullptr; ///< null until the first Update that computes; test `count` before use, see Ready
    int cursor_x = -1;             ///< where the cursor's line stands in the window, pixels; 0 when there is none
    unsigned char color_component = 0; ///< `"$GLI_COLOR_COMPONENT"`: 0 the largest, 1 red, 2 green, 3 blue, 4 grey

    unsigned short range_nb = 0; ///< ranges of tags that are shown
    unsigned short range_tag[most_ranges] = {};
    float range_min[most_ranges] = {}; ///< grey values
    float range_max[most_ranges] = {};

    Tool_Histo();
    Tool_Histo(const Tool_Histo&);
    Tool_Histo& operator=(const Tool_Histo&);

    /// Frees the histogram's arrays and closes the graph window, whichever panel opened it.
    ~Tool_Histo();

    /// Lays the panel out; the zoom becomes 1. @param area the panel's rectangle, window, colours and frame width
    /// @return 1
    int Resize(Boxs* area);
    int Height(unsigned short pixels); ///< @return `pixels`: the panel takes any height
    void Draw();

    /// @return 1 when the graph window was opened or raised, or the zoom was taken hold of, else 0. A changed zoom
    /// shows with the next Motion
    int Click(int up_down);
    int Motion(int up_down); ///< @return 1 when the zoom changed, else 0
    int Keyboard(int key);   ///< @return 0: the panel has no keys
    int Scroll(int amount);  ///< turns the zoom. @return 1

    /// Follows the host. Bits 1 and 8 together compute the histogram anew, bit 24 also moves the cursor; 22, 31 and 38
    /// paint, 39 takes the colour component, moves the cursor and paints; 18 moves the cursor; 60 refreshes the button.
    /// The graph window is told in each case but the last.
    void Update(unsigned long long flags);
    void Leave();

    /// Replaces the ranges; they show with the next paint. For each range three arguments follow: the tag (int), the
    /// lower and the upper grey value (double).
    /// @param n  0 to 32
    /// @return 1; or 0, and nothing has changed, when n is something else
    int Set(unsigned short n, ...);

    /// Finds peaks in the histogram of the chosen component and fits Gaussians to them: Peaks then tells. Nothing is
    /// repainted. @return 1
    int Fit();

    /// Writes the histogram, and the peaks when there are any, as text that a spreadsheet opens. A file that is there
    /// is written over, in place: whoever must not lose it gives a name beside it.
    /// @param path  UTF-8 (on Windows in the process's code page)
    /// @return 1; or 0 when there is no histogram or no window, or when the file cannot be opened (which is reported)
    int Write(char* path);

    /// Whether there is a histogram: bins and their counts.
    bool Ready() const { return histo && histo->count && histo->nb_bins >= 1; }

    /// The counts of the chosen component: those of all pixels when the histogram has no such component.
    const unsigned* Shown_Counts() const;

    /// What the last Fit found; null before the first.
    const Histo_Peaks* Peaks() const { return peaks_.size() ? &peaks_[0] : nullptr; }

private:
    friend int Histo_Compute(Tool_Histo* panel);
    friend int Histo_Paint(Tool_Histo* panel);
    friend int Histo_Cursor(Tool_Histo* panel);

    void Open_Graph();
    void Take_Zoom();

    frame::Shared_Array<Histo_Peaks> peaks_; // one, once there was a fit
};

/// Sums the histograms of the selected frames of the current window into the panel's, on a grid of at most
/// `"$GLI_HISTO_BINS_MAX"` bins. @return 1; or 0 when there is no window, no frame with a histogram, or no memory
int Histo_Compute(Tool_Histo* panel);

/// Paints ranges and curve. @return 1, or 0 when there is no histogram
int Histo_Paint(Tool_Histo* panel);

/// Moves the cursor to the grey value under the pointer. @return 1, or 0 when there is no histogram or no frame
int Histo_Cursor(Tool_Histo* panel);
