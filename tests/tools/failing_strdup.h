#pragma once

#include "tests/support/panel_host.h"

/// Memory that runs out: the program is linked with --wrap=strdup and a nothrow `operator new` that can fail.
namespace test {

/// Lets every strdup fail for as long as it lives.
class Failing_Strdup {
public:
    Failing_Strdup();
    ~Failing_Strdup();
    Failing_Strdup(const Failing_Strdup&) = delete;
    Failing_Strdup& operator=(const Failing_Strdup&) = delete;
};

/// Checks that there is one report, of a `new` that failed in this source.
void expect_reports_of_new(const std::vector<Report>& reports, const std::string& source);

}
