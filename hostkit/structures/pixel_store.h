#pragma once

#include "hostkit/structures/histogram_counting.h"

#include <string>

namespace hostkit {

/// The pixels of a series, for its frames to share.
class Pixel_Store {
public:
    explicit Pixel_Store(const Series_Pixels& pixels);

    const Series_Pixels& pixels() const { return pixels_; }

    /// Counts the histograms, unless that was tried since the pixels changed. @return whether it was tried now
    bool count();
    bool lacks_memory() const { return lacks_memory_; } ///< to count
    void forget_histograms() { tried_ = false; }

    /// The pixels are no more; frames that still share the store have no values.
    void forget_pixels();

    /// What was counted; no frames when nothing was.
    const Series_Histograms& histograms() const { return histograms_; }

    /// What grey values are multiplied by.
    double factor() const;

    /// The unit of grey values as panels see them; another text after `count`, in the same place: frames that are no
    /// children of their series any more name it, too.
    char* unit() { return unit_.data(); }

    /// The raw value at pixel (x, y) of frame z: a stored whole number, or the bits of a floating-point grey value.
    int raw(double x, double y, double z) const;

    /// The grey value of a raw value.
    float grey(int raw) const;

private:
    template <class Pixel>
    int raw_at(std::size_t index) const;
    bool is_floating() const { return pixels_.type == Pixel_Type::f32 || pixels_.type == Pixel_Type::f64; }

    Series_Pixels pixels_;
    Series_Histograms histograms_;
    bool tried_ = false;
    bool lacks_memory_ = false;
    std::string unit_;
};

}
