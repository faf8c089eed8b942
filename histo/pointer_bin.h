#pragma once

class Tool_Histo;

namespace histo {

/// Where the value under the pointer stands in a panel's histogram.
struct Pointer_Bin {
    enum class Found { no_frame, no_value, bin };
    Found found;
    int bin; ///< within the histogram
};

/// The panel must have a histogram.
Pointer_Bin bin_under_pointer(const Tool_Histo& panel);

}
