#include "workbench/shell/reports.h"

#include "hostkit/basics/report.h"

namespace workbench {

Reports::Reports(QObject* parent) : QObject(parent), before_(std::make_unique<hostkit::Report_Sink>())
{
    *before_ = hostkit::Set_Report_Sink({.show = [this](const hostkit::Report& report) {
        emit reported(report.level, QString::fromStdString(hostkit::Plain_Text(report.text)));
        return true;
    }});
}

Reports::~Reports()
{
    hostkit::Set_Report_Sink(std::move(*before_));
}

}
