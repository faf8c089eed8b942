#include "hostkit/basics/format.h"
#include "hostkit/basics/report.h"

#include <cstdarg>
#include <cstdio>
#include <exception>

HWND hwnd = nullptr;
signed char Flag_Trace = -1;

namespace hostkit {
Report_Sink& current_sink();
}

namespace {

// For when there is no memory for the text: what fits goes to standard error.
void print_shortened(const char* format, va_list arguments) VETRA_PRINTF(1, 0);

void print_shortened(const char* format, va_list arguments)
{
    char text[1024];
    std::vsnprintf(text, sizeof text, format, arguments);
    std::fprintf(stderr, "%s\n", text);
}

bool is_wanted(int level)
{
    const auto& wants = hostkit::current_sink().also_wants;
    return hostkit::Level_Is_Shown(level) || (wants && wants(level));
}

}

// Traces come with every event: the level is tested before anything is formatted.
int Error_Fct(HWND window, int level, const char* format, ...)
{
    if (!format || !is_wanted(level))
        return 0;
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    int shown = 1;
    try {
        shown = hostkit::current_sink().show({window, level, hostkit::Formatted(format, arguments)});
    } catch (const std::exception&) {
        print_shortened(format, again);
    }
    va_end(again);
    va_end(arguments);
    return shown;
}
