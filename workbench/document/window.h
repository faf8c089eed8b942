#pragma once

namespace document {

class Volume;

/// The grey values that are spread from black to white: centre - width / 2 to centre + width / 2.
struct Window {
    double centre = 127.5;
    double width = 255;
    bool operator==(const Window&) const = default;
};

/// A window to start with: the header's when it has one, otherwise one that shows nearly all of the values (percentiles
/// of a sample, so that a few extreme pixels change nothing). Its width is above 0, also for a constant image.
Window suggest_window(const Volume& volume);

}
