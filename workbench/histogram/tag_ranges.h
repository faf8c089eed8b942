#pragma once

#include <vector>

class Tool_Histo;

namespace workbench {

/// The grey values that a tag stands for, as panels see them; infinite where there is no bound.
struct TagRange {
    int tag;
    double lower;
    double upper;
};

/// Lets the panel show these ranges, as far as they meet its histogram: the first 32 of them. They show with its next
/// paint.
void showTagRanges(Tool_Histo& panel, const std::vector<TagRange>& ranges);

}
