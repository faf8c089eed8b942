#include "tests/support/reports.h"

#include "hostkit/basics/report.h"

namespace test {

namespace {

std::vector<Report>& collected()
{
    static std::vector<Report> reports;
    return reports;
}

}

Reports::Reports()
{
    collected().clear();
    hostkit::Set_Report_Sink({[](const hostkit::Report& report) {
                                  collected().push_back({report.level, report.text});
                                  return true;
                              },
        [](int) { return true; }});
}

Reports::~Reports()
{
    hostkit::Set_Report_Sink({});
}

const std::vector<Report>& Reports::all() const
{
    return collected();
}

std::vector<std::string> Reports::texts(int level) const
{
    std::vector<std::string> found;
    for (const Report& report : collected()) {
        if (report.level == level)
            found.push_back(report.text);
    }
    return found;
}

std::vector<std::string> Reports::lines() const
{
    std::vector<std::string> lines;
    for (const Report& report : collected())
        lines.push_back(std::to_string(report.level) + ' ' + report.text);
    return lines;
}

void Reports::clear()
{
    collected().clear();
}

}
