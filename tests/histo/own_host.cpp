#include "tests/histo/own_host.h"

#include "histo/tool_histo_peak.h"

#include <cstdio>
#include <deque>

namespace test {

namespace {

int some_window;

}

Own_Host::Own_Host()
{
    own_registry::define_array("$WINDOW_CUR", window());
    own_registry::define_number("$REGIONAL_SEPARATOR", ';');
    own_registry::define_number("$GLI_HISTO_BINS_NB", 9);
    limit_bins(4096);
    choose_component(4);
    own_frames::show({});
    own_frames::fail_to_open({});
    own_frames::take_calls();
    histo::peak_settings.last_crossing = 0;
    reports.clear();
}

Own_Host::~Own_Host()
{
    own_frames::show({});
}

void* Own_Host::window()
{
    return &some_window;
}

int Own_Host::compute(const std::vector<const Histogram*>& histograms)
{
    std::deque<own_frames::Frame> frames;
    std::vector<own_frames::Frame*> shown;
    for (const Histogram* histogram : histograms)
        shown.push_back(&frames.emplace_back(histogram->get()));
    own_frames::show(shown);
    const int result = Histo_Compute(&panel);
    own_frames::show({});
    return result;
}

::testing::AssertionResult is_report_of_new(const Report& report, const std::string& source, int& line)
{
    if (report.level != 1 || std::sscanf(report.text.c_str(), "line %d", &line) != 1)
        return ::testing::AssertionFailure() << report.level << ' ' << report.text;
    char expected[100];
    std::snprintf(expected, sizeof expected, "line %-4d of %s \nmemory error in new", line, source.c_str());
    if (report.text != expected || line <= 0)
        return ::testing::AssertionFailure() << report.text;
    return ::testing::AssertionSuccess();
}

}
