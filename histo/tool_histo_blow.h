#pragma once

#include "platform/windows_api.h"

class Tool_Histo;

/// The graph window: one for all histogram panels, a top-level window of class "Histogram".
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
