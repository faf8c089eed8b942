#pragma once

#include "host/structures.h"

#include <string>

/// Where the host finds the pixels of a series: what histograms are counted from and values read from.
namespace hostkit {

enum class Pixel_Type { u8, i8, u16, i16, u32, i32, f32, f64, rgb };

/// The pixels of a series: one contiguous volume in the type and with the values that its file stores, x fastest, then
/// y, then the frames. Whoever gives it keeps it, unchanged, until it is taken away again.
struct Series_Pixels {
    Pixel_Type type = Pixel_Type::u8; ///< rgb: three bytes a pixel
    const void* data = nullptr;
    int width = 0;
    int height = 0;
    int frames = 0;
    double slope = 1; ///< grey value = stored value * slope + intercept; never 0
    double intercept = 0;
    std::string unit; ///< of grey values, UTF-8; may be empty
};

/// Gives the frames of a series, its children in their order, their pixels. Histograms are counted when one is first
/// asked for, of all frames at once and on one grid:
///
/// - whole numbers: from the smallest grey value of the series, one stored level a bin, or so many as keep the bins
///   within 65,535. Only values beyond one million, or a range below a tenth, are multiplied as the next ones are
/// - floating-point numbers: 4,096 equal bins from the smallest to the largest finite value. A range below 1,000 or
///   values beyond one million, which panels could not tell apart or would leave out, are multiplied by a power of ten,
///   which the frames' unit names
/// - colours: 256 bins from 0; the plain value of a colour is 30 % red, 59 % green and 11 % blue
///
/// What is infinite or not a number has no value and is left out, which is reported once. So is a lack of memory: then
/// there are no histograms until the pixels change.
///
/// Without data the frames have neither values nor histograms.
STRUCTURES_API void Series_Pixels_Set(Strato_2D* series, const Series_Pixels& pixels);

/// The pixels are others now: histograms are counted again when they are asked for. The caller sends bit 24.
STRUCTURES_API void Series_Pixels_Changed(Strato_2D* series);

/// What the grey values of a series are multiplied by before panels see them; 1 for nearly all.
STRUCTURES_API double Series_Grey_Factor(Strato_2D* series);

struct Pixel_Size {
    int width = 0;
    int height = 0;
    bool operator==(const Pixel_Size&) const = default;
};

/// The size of a frame; 0 x 0 when it has no pixels.
STRUCTURES_API Pixel_Size Frame_Size(const Strato_2D* frame);

}
