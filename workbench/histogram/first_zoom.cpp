#include "workbench/histogram/first_zoom.h"

#include "histo/tool_histo.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace workbench {

void zoomToShow(Tool_Histo& panel)
{
    constexpr float room = 1.2f;    // above the bins that are to be seen whole
    constexpr float worthIt = 0.5f; // what towers less is no reason to cut it
    constexpr int oneIn = 50;       // so many bins may be cut
    panel.zoom.value = panel.zoom.maximum;
    if (!panel.Ready() || panel.histo->max_count == 0)
        return;
    const unsigned* shown = panel.Shown_Counts();
    std::vector<unsigned> counts(shown, shown + panel.histo->nb_bins);
    const auto highest = counts.begin() + static_cast<std::ptrdiff_t>((counts.size() + oneIn - 1) / oneIn);
    if (highest >= counts.end())
        return;
    std::nth_element(counts.begin(), highest, counts.end(), std::greater<>());
    const float share = room * static_cast<float>(*highest) / static_cast<float>(panel.histo->max_count);
    if (*highest > 0 && share < worthIt)
        panel.zoom.value = std::max(share, panel.zoom.minimum);
}

}
