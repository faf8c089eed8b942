#include "workbench/histogram/peak_table.h"

#include "histo/tool_histo.h"

namespace workbench {

std::vector<FittedPeak> fittedPeaks(const Tool_Histo& panel, double factor)
{
    std::vector<FittedPeak> peaks;
    const Histo_Peaks* found = panel.Peaks();
    for (const Histo_Peak* peak = found ? found->head : nullptr; peak; peak = peak->next) {
        const Vector_N& param = *peak->param;
        const double width = panel.histo->width;
        peaks.push_back(
            {param[0], (width * param[0] + panel.histo->min) / factor, param[1], param[2], width * param[2] / factor});
    }
    return peaks;
}

}
