#pragma once

#include "platform/windows_api.h"

#ifdef BASICS_BUILD
#define BASICS_API VETRA_EXPORT
#else
#define BASICS_API VETRA_IMPORT
#endif

// The host's utility library, as far as the panels call it. A host supplies it as the library `Basics`.

/// The host's main window; panels name it in every report. May be null.
BASICS_API extern HWND hwnd;

/// How much of the program's inner life is reported: a report of level 10 + k is shown when this is k or more.
/// Starts at -1, which shows no notices, details or traces. Signed on every platform.
BASICS_API extern signed char Flag_Trace;

/// Reports something to the user, the log or the developer.
///
/// @param window  the window that the report belongs to, or null
/// @param level   1 memory failure, 2 warning to the user, 4 progress, 10 to 12 notices and details, 14 to 17 traces
/// @param format  as for printf, UTF-8; may carry the markup bytes 0xF1 followed by a colour number (a coloured line)
///                and 0x01 and 0x02 (emphasis on and off), which whoever shows the text renders or strips
/// @return 1 when the report was shown, else 0
BASICS_API int Error_Fct(HWND window, int level, const char* format, ...) VETRA_PRINTF(3, 4);
