#pragma once

#include "hostkit/structures/histogram_counting.h"

#include <optional>

namespace hostkit {

/// The pixels of a series, for its frames to share.
class Pixel_Store {
public:
    explicit Pixel_Store(const Series_Pixels& pixels) : pixels_(pixels) {}

    const Series_Pixels& pixels() const { return pixels_; }

    /// The histograms; counted when they are first asked for. Throws std::bad_alloc.
    const Series_Histograms& histograms();
    bool has_histograms() const { return histograms_.has_value(); }
    void forget_histograms() { histograms_.reset(); }

    /// What grey values are multiplied by. Throws std::bad_alloc.
    double factor();

    /// The unit of grey values as panels see them.
    char* unit() { return unit_.data(); }

    /// The raw value at pixel (x, y) of frame z.
    int raw(double x, double y, double z) const;

    /// The grey value of a raw value. Throws std::bad_alloc.
    float grey(int raw);

private:
    double stored(int raw) const;

    Series_Pixels pixels_;
    std::optional<Series_Histograms> histograms_;
    std::string unit_ = pixels_.unit;
};

}
