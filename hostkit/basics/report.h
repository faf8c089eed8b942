#pragma once

#include "host/basics.h"

#include <functional>
#include <string>

/// Where the reports of Error_Fct go.
namespace hostkit {

/// One report. The text keeps the markup bytes; Plain_Text takes them out.
struct Report {
    HWND window;
    int level;
    std::string text;
};

/// Whoever shows reports.
struct Report_Sink {
    /// Receives every report that is to be shown. @return whether it was
    std::function<bool(const Report&)> show;

    /// Levels that this sink wants besides those that Flag_Trace shows; null: none.
    std::function<bool(int level)> also_wants;
};

/// Whether reports of this level are shown: 1 to 9 always, 10 + k when Flag_Trace is k or more.
BASICS_API bool Level_Is_Shown(int level);

/// Sends the reports somewhere else than to standard error. @return the sink that there was
BASICS_API Report_Sink Set_Report_Sink(Report_Sink sink);

/// A text without its markup: 0xF1 and the colour number behind it, 0x01 and 0x02.
BASICS_API std::string Plain_Text(const std::string& text);

}
