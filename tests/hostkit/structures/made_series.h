#pragma once

#include "hostkit/structures/series_pixels.h"

#include "tests/support/panel_host.h"

#include <type_traits>
#include <vector>

/// Series with pixels that a test says.
namespace test {

// The number alone: a test that names the member itself asks Windows to import it.
constexpr int no_value = Strato_2D_Frame::no_value;

struct Rgb {
    unsigned char red, green, blue;
};

template <class Pixel>
constexpr hostkit::Pixel_Type pixel_type_of()
{
    using enum hostkit::Pixel_Type;
    if constexpr (std::is_same_v<Pixel, Rgb>)
        return rgb;
    else if constexpr (std::is_floating_point_v<Pixel>)
        return sizeof(Pixel) == 4 ? f32 : f64;
    else if constexpr (sizeof(Pixel) == 1)
        return std::is_signed_v<Pixel> ? i8 : u8;
    else if constexpr (sizeof(Pixel) == 2)
        return std::is_signed_v<Pixel> ? i16 : u16;
    else
        return std::is_signed_v<Pixel> ? i32 : u32;
}

/// A host with a window and one series, whose frames are all selected.
class Made_Series : public Panel_Host {
protected:
    Made_Series();
    ~Made_Series() override;

    /// The series, with as many rows of pixels as make the frames; the pixels must stay where they are.
    template <class Pixel>
    Strato_2D* make(
        const std::vector<Pixel>& pixels, double slope = 1, double intercept = 0, int count = 1, const char* unit = "")
    {
        const int width = static_cast<int>(pixels.size()) / count;
        return make(
            {pixel_type_of<Pixel>(), pixels.data(), width, 1, count, slope, intercept, unit}, std::max(count, 1));
    }
    Strato_2D* make(const hostkit::Series_Pixels& pixels, int count);

    const Histo_Record& histogram(std::size_t z = 0) { return *frames.at(z)->Histogram_Get(); }

    /// The value of pixel x of a frame.
    int raw(int x, std::size_t z = 0);
    float grey(int x, std::size_t z = 0) { return Fct_GLI_2_Float(frames.at(z), raw(x, z)); }

    Strato_2D* series = nullptr;
    std::vector<Strato_2D_Frame*> frames;
};

std::vector<unsigned> counts_of(const Histo_Record& histogram);
unsigned long long sum_of(const Histo_Record& histogram);

/// The bin in which a panel looks for a grey value.
int bin_of(const Histo_Record& histogram, float grey);

}
