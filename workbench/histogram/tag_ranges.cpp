#include "workbench/histogram/tag_ranges.h"

#include "histo/tool_histo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

namespace workbench {

namespace {

using Ranges = std::array<TagRange, Tool_Histo::most_ranges>;

// The panel takes three arguments for each range; those beyond the number are not looked at.
template <std::size_t... Index>
void set(Tool_Histo& panel, int number, const Ranges& ranges, std::index_sequence<Index...>)
{
    std::apply([&](auto... arguments) { panel.Set(static_cast<unsigned short>(number), arguments...); },
        std::tuple_cat(std::make_tuple(ranges[Index].tag, ranges[Index].lower, ranges[Index].upper)...));
}

}

// The panel takes a range that begins below the histogram for one at its end, so ranges are cut to the histogram first.
void showTagRanges(Tool_Histo& panel, const std::vector<TagRange>& ranges)
{
    Ranges shown{};
    int number = 0;
    if (panel.Ready()) {
        const double lowest = std::ceil(static_cast<double>(panel.histo->min));
        const double end = panel.histo->min + static_cast<double>(panel.histo->nb_bins) * panel.histo->width;
        for (const TagRange& range : ranges) {
            const TagRange cut{range.tag, std::max(range.lower, lowest), std::min(range.upper, end)};
            if (cut.lower <= cut.upper && number < Tool_Histo::most_ranges)
                shown[static_cast<std::size_t>(number++)] = cut;
        }
    }
    set(panel, number, shown, std::make_index_sequence<Tool_Histo::most_ranges>());
}

}
