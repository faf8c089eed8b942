#include "workbench/histogram/report_recorder.h"

#include <utility>

namespace workbench {

ReportRecorder::ReportRecorder(std::function<bool(int level)> wants)
{
    before_ = hostkit::Set_Report_Sink({
        .show =
            [this](const hostkit::Report& report) {
                reports_.push_back(report);
                return true;
            },
        .also_wants = std::move(wants),
    });
}

ReportRecorder::~ReportRecorder()
{
    hostkit::Set_Report_Sink(std::move(before_));
}

std::vector<std::string> ReportRecorder::texts(int level) const
{
    std::vector<std::string> texts;
    for (const auto& report : reports_) {
        if (report.level == level)
            texts.push_back(hostkit::Plain_Text(report.text));
    }
    return texts;
}

std::string ReportRecorder::warnings() const
{
    constexpr int last_warning_level = 2;
    std::string texts;
    for (const auto& report : reports_) {
        if (report.level > last_warning_level)
            continue;
        texts += texts.empty() ? "" : " ";
        texts += hostkit::Plain_Text(report.text);
    }
    return texts;
}

}
