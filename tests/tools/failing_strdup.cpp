#include "tests/tools/failing_strdup.h"

#include <cstdio>

namespace {

bool strdup_fails = false;

}

// The linker gives the shared libraries this one too, so it has to be visible.
extern "C" char* __real_strdup(const char* text);
extern "C" VETRA_EXPORT char* __wrap_strdup(const char* text);

extern "C" char* __wrap_strdup(const char* text)
{
    return strdup_fails ? nullptr : __real_strdup(text);
}

namespace test {

Failing_Strdup::Failing_Strdup()
{
    strdup_fails = true;
}

Failing_Strdup::~Failing_Strdup()
{
    strdup_fails = false;
}

void expect_reports_of_new(const std::vector<Report>& reports, const std::string& source)
{
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].level, 1);
    int line = 0;
    ASSERT_EQ(std::sscanf(reports[0].text.c_str(), "line %d", &line), 1) << reports[0].text;
    EXPECT_GT(line, 0);
    char expected[100];
    std::snprintf(expected, sizeof expected, "line %-4d of %s \nmemory error in new", line, source.c_str());
    EXPECT_EQ(reports[0].text, expected);
}

}
