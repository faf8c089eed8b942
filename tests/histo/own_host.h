#pragma once

#include "histo/tool_histo.h"
#include "tests/histo/own_frames.h"
#include "tests/histo/records.h"
#include "tests/support/reports.h"
#include "tests/tools/own_registry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

/// A histogram panel in a host whose frames are what a test says. Its variables are those that a computation and an
/// export need.
class Own_Host : public ::testing::Test {
protected:
    Own_Host();
    ~Own_Host() override;

    /// The value of `"$WINDOW_CUR"`: never looked into.
    static void* window();

    void limit_bins(unsigned short most) { own_registry::define_number("$GLI_HISTO_BINS_MAX", most); }
    void choose_component(unsigned char component) { own_registry::define_number("$GLI_COLOR_COMPONENT", component); }
    static int shared_bins() { return own_registry::number("$GLI_HISTO_BINS_NB"); }

    /// Computes the histogram of frames with these histograms. @return what the computation returned
    int compute(const std::vector<const Histogram*>& histograms);
    int compute(const Histogram& histogram) { return compute(std::vector{&histogram}); }

    const Histo_Record& record() const { return *panel.histo; }
    Counts counts() const { return counts_of(record()); }

    Reports reports;
    Tool_Histo panel;
};

/// The text of a failed `new`, whatever the line; the line is given back in `line`.
::testing::AssertionResult is_report_of_new(const Report& report, const std::string& source, int& line);

}
