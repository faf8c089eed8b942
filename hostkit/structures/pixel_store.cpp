#include "hostkit/structures/pixel_store.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <new>
#include <type_traits>

namespace hostkit {

namespace {

constexpr int largest_raw = Strato_2D_Frame::no_value_yet - 1;

int color_at(const Series_Pixels& pixels, std::size_t index)
{
    const auto* rgb = static_cast<const std::uint8_t*>(pixels.data) + 3 * index;
    return rgb[0] | rgb[1] << 8 | rgb[2] << 16;
}

constexpr std::size_t longest_power = 16;

std::string with_power_of_ten(int exponent, const std::string& unit)
{
    if (exponent == 0)
        return unit;
    const std::string power = "10^" + std::to_string(-exponent);
    return unit.empty() ? power : power + ' ' + unit;
}

bool is_below(double position, int end)
{
    return position >= 0 && position < end;
}

}

Pixel_Store::Pixel_Store(const Series_Pixels& pixels) : pixels_(pixels)
{
    unit_.reserve(pixels_.unit.size() + longest_power);
    unit_.assign(pixels_.unit);
}

void Pixel_Store::forget_pixels()
{
    pixels_ = {};
    histograms_ = {};
    tried_ = false;
    unit_.clear();
}

bool Pixel_Store::count()
{
    if (tried_)
        return false;
    tried_ = true;
    try {
        histograms_ = {}; // two at once may be too many
        histograms_ = count_series(pixels_);
        unit_.assign(std::string_view(with_power_of_ten(histograms_.decimal_exponent, pixels_.unit)));
        lacks_memory_ = false;
    } catch (const std::bad_alloc&) {
        histograms_ = {};
        lacks_memory_ = true;
    }
    return true;
}

double Pixel_Store::factor() const
{
    return std::pow(10.0, histograms_.decimal_exponent);
}

// The codes for "no value" are no floating-point number; the two whole numbers that they would be are taken for their
// neighbour.
template <class Pixel>
int Pixel_Store::raw_at(std::size_t index) const
{
    const Pixel stored = static_cast<const Pixel*>(pixels_.data)[index];
    if constexpr (std::is_floating_point_v<Pixel>) {
        const float grey = grey_value(pixels_, histograms_.decimal_exponent, static_cast<double>(stored));
        return std::isfinite(grey) ? std::bit_cast<int>(grey) : Strato_2D_Frame::no_value;
    } else {
        return std::min(static_cast<int>(stored), largest_raw);
    }
}

int Pixel_Store::raw(double x, double y, double z) const
{
    if (!pixels_.data || !is_below(x, pixels_.width) || !is_below(y, pixels_.height) || !is_below(z, pixels_.frames))
        return Strato_2D_Frame::no_value;
    const auto row =
        static_cast<std::size_t>(z) * static_cast<std::size_t>(pixels_.height) + static_cast<std::size_t>(y);
    const std::size_t index = row * static_cast<std::size_t>(pixels_.width) + static_cast<std::size_t>(x);
    switch (pixels_.type) {
    case Pixel_Type::u8:
        return raw_at<std::uint8_t>(index);
    case Pixel_Type::i8:
        return raw_at<std::int8_t>(index);
    case Pixel_Type::u16:
        return raw_at<std::uint16_t>(index);
    case Pixel_Type::i16:
        return raw_at<std::int16_t>(index);
    case Pixel_Type::u32:
        return raw_at<std::uint32_t>(index);
    case Pixel_Type::i32:
        return raw_at<std::int32_t>(index);
    case Pixel_Type::f32:
        return raw_at<float>(index);
    case Pixel_Type::f64:
        return raw_at<double>(index);
    case Pixel_Type::rgb:
        break;
    }
    return color_at(pixels_, index);
}

float Pixel_Store::grey(int raw) const
{
    const auto level =
        pixels_.type == Pixel_Type::u32 ? std::int64_t{static_cast<std::uint32_t>(raw)} : std::int64_t{raw};
    const float value = is_floating() ? std::bit_cast<float>(raw)
                                      : grey_value(pixels_, histograms_.decimal_exponent, static_cast<double>(level));
    if (histograms_.frames.empty())
        return value;
    const Histo_Record& grid = histograms_.frames.front();
    const std::size_t bin = is_floating() ? nearest_bin(grid, value) : histograms_.levels.bin_of(level);
    return bin < grid.nb_bins ? value_in_bin(grid, bin, value) : value;
}

}
