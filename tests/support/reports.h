#pragma once

#include <string>
#include <vector>

namespace test {

struct Report {
    int level;
    std::string text;
    bool operator==(const Report&) const = default;
};

/// Every report, of whatever level, since it was made.
class Reports {
public:
    Reports();
    ~Reports();
    const std::vector<Report>& all() const;
    std::vector<std::string> texts(int level) const;
    std::vector<std::string> lines() const; ///< "LEVEL text" of each
    void clear();
};

}
