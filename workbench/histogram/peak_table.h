#pragma once

#include <vector>

class Tool_Histo;

namespace workbench {

/// A fitted peak in the terms of who reads it.
struct FittedPeak {
    double center;      ///< bins
    double centerValue; ///< grey values
    double height;      ///< counts
    double width;       ///< bins, half width at half maximum
    double widthValue;  ///< grey values
};

/// What the panel's last fit found, in increasing centre. Grey values are those of the image: panels may see them
/// multiplied by a factor.
/// @param factor  what panels see grey values multiplied by
std::vector<FittedPeak> fittedPeaks(const Tool_Histo& panel, double factor = 1);

}
