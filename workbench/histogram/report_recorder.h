#pragma once

#include "hostkit/basics/report.h"

#include <string>
#include <vector>

namespace workbench {

/// Keeps the reports of what is done while it lives, instead of showing them.
class ReportRecorder {
public:
    /// Keeps the levels that are always shown, and those that `wants` names.
    explicit ReportRecorder(std::function<bool(int level)> wants = {});
    ~ReportRecorder();
    ReportRecorder(const ReportRecorder&) = delete;
    ReportRecorder& operator=(const ReportRecorder&) = delete;

    const std::vector<hostkit::Report>& reports() const { return reports_; }

    /// The texts of one level, without markup.
    std::vector<std::string> texts(int level) const;

    /// The texts of failures and warnings, without markup, one after the other; empty when there are none.
    std::string warnings() const;

private:
    std::vector<hostkit::Report> reports_;
    hostkit::Report_Sink before_;
};

}
