#pragma once

#include <string>
#include <vector>

namespace workbench {

struct Renaming {
    unsigned tag = 0;
    std::string before, after; ///< UTF-8, empty for an unnamed tag
};

/// Finds out which tags were renamed: panels write names into the host's variable and tell only that some name changed.
class TagNames {
public:
    TagNames() { takeChanges(); }

    /// What changed since the last call.
    std::vector<Renaming> takeChanges();

private:
    std::vector<std::string> known_;
};

}
