#pragma once

#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// What `vetra histogram` was asked for.
struct HistogramRequest {
    std::vector<std::string> inputs; ///< files of one image, or a folder
    struct Frames {
        int first, last; ///< counted from 1
    };
    std::optional<Frames> frames; ///< all without
    unsigned char component = 0;  ///< 0 the largest, 1 red, 2 green, 3 blue, 4 grey
    std::optional<unsigned short> mostBins;
    unsigned char separator = 0; ///< of the exported file; 0 a tab
    bool fit = false;
    bool json = false;
    std::string exportFile;  ///< empty: none
    std::string pictureFile; ///< of the panel
    std::string graphFile;   ///< picture of the graph window
    int peaks = 0;           ///< in the graph window, found for it without a fit: 0 none, 1 their sum, 2 each
    struct Size {
        int width, height;
    };
    std::optional<Size> size; ///< of the pictures, pixels; each its own without
};

/// Does it; what it finds goes to standard output, why it could not be done to standard error.
/// @return 0, or 1 when something could not be done
int runHistogram(const HistogramRequest& request);

}
