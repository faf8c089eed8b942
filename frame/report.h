#pragma once

#include "host/basics.h"

/// What panels report, and at which level.
namespace frame {

namespace level {
constexpr int memory = 1;
constexpr int warning = 2; ///< to the user
constexpr int progress = 4;
constexpr int notice = 11;
constexpr int detail = 12;
constexpr int marker_trace = 15;   ///< event handlers of the marker panel
constexpr int database_trace = 15; ///< and of the database list
constexpr int handler_trace = 16;  ///< event handlers of the tag, brush, propagate and histogram panels
constexpr int internal_trace = 17; ///< what those handlers call
}

/// Tells that `new` failed. @param source the source's name, without its ending
inline void report_new_failed(int line, const char* source)
{
    Error_Fct(hwnd, level::memory, "line %-4d of %s \nmemory error in new", line, source);
}

/// Tells that `calloc` or `realloc` failed. @param size @param number bytes of an element and elements, as the text
/// orders them
inline void report_calloc_failed(int line, const char* source, const char* variable, int size, int number)
{
    Error_Fct(hwnd, level::memory, "line %-4d of %s \nmemory error in calloc (var=%s, dim=%dx%d)", line, source,
        variable, size, number);
}

inline void report_realloc_failed(int line, const char* source, const char* variable, int number, int size)
{
    Error_Fct(hwnd, level::memory, "line %-4d of %s \nmemory error in realloc (var=%s, dim=%dx%d)", line, source,
        variable, number, size);
}

/// Tells that `strdup` failed. @param variable the expression that was to be filled
inline void report_strdup_failed(int line, const char* source, const char* variable)
{
    Error_Fct(hwnd, level::memory, "line %-4d of %s \nmemory error in strdup (var=%s)", line, source, variable);
}

}
