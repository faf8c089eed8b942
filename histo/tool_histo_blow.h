#pragma once

#include "frame/export.h"
#include "platform/windows_api.h"

class Tool_Histo;

/// The graph window: one for all histogram panels, a top-level window of class "Histogram". A panel opens it; a host
/// only asks for it.
namespace histo::graph {

/// What panels post to the window.
constexpr UINT changed = WM_USER;           ///< the histogram, the ranges or the colours
constexpr UINT pointer_moved = WM_USER + 1; ///< the cursor

/// Registers the window's class, unless it is there.
void register_class();

bool exists();

/// Opens the window with `panel` as its owner, whose histogram it shows; raises it when there is one, whoever owns it.
void open(Tool_Histo* panel);

/// Closes the window, if there is one. A panel that is about to go is not asked to draw.
void close(const Tool_Histo* going);

/// Lets the window know of a change, once this call has returned; nothing when there is no window.
void post(UINT message);

}

/// The graph window, or null while there is none.
VETRA_TOOLS_API HWND Histo_Graph_Window();

/// Chooses what the graph window shows, as its three lists do, now and when it is opened again.
/// @param peaks  0 none, 1 their sum, 2 each of them  @param tags, cursor 0 or 1
VETRA_TOOLS_API void Histo_Graph_Display(int peaks, int tags, int cursor);
