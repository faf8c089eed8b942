#include "hostkit/structures/pixel_store.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace hostkit {

namespace {

constexpr int largest_raw = Strato_2D_Frame::no_value_yet - 1;

// A raw value is a stored whole number, or the bits of a floating-point one: the codes for "no value" are no number as
// bits, and the two whole numbers that they would be are taken for their neighbour.
template <class Pixel>
int raw_of(Pixel stored)
{
    if constexpr (std::is_floating_point_v<Pixel>) {
        const auto number = static_cast<float>(stored);
        return std::isnan(number) ? Strato_2D_Frame::no_value : std::bit_cast<int>(number);
    } else {
        const int raw = static_cast<int>(stored);
        return raw > largest_raw ? largest_raw : raw;
    }
}

template <class Pixel>
int raw_at(const Series_Pixels& pixels, std::size_t index)
{
    return raw_of(static_cast<const Pixel*>(pixels.data)[index]);
}

int color_at(const Series_Pixels& pixels, std::size_t index)
{
    const auto* rgb = static_cast<const std::uint8_t*>(pixels.data) + 3 * index;
    return rgb[0] | rgb[1] << 8 | rgb[2] << 16;
}

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

const Series_Histograms& Pixel_Store::histograms()
{
    if (!histograms_) {
        histograms_ = count_series(pixels_);
        unit_ = with_power_of_ten(histograms_->decimal_exponent, pixels_.unit);
    }
    return *histograms_;
}

double Pixel_Store::factor()
{
    return std::pow(10.0, histograms().decimal_exponent);
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
        return raw_at<std::uint8_t>(pixels_, index);
    case Pixel_Type::i8:
        return raw_at<std::int8_t>(pixels_, index);
    case Pixel_Type::u16:
        return raw_at<std::uint16_t>(pixels_, index);
    case Pixel_Type::i16:
        return raw_at<std::int16_t>(pixels_, index);
    case Pixel_Type::u32:
        return raw_at<std::uint32_t>(pixels_, index);
    case Pixel_Type::i32:
        return raw_at<std::int32_t>(pixels_, index);
    case Pixel_Type::f32:
        return raw_at<float>(pixels_, index);
    case Pixel_Type::f64:
        return raw_at<double>(pixels_, index);
    case Pixel_Type::rgb:
        break;
    }
    return color_at(pixels_, index);
}

double Pixel_Store::stored(int raw) const
{
    switch (pixels_.type) {
    case Pixel_Type::f32:
    case Pixel_Type::f64:
        return std::bit_cast<float>(raw);
    case Pixel_Type::u32:
        return static_cast<std::uint32_t>(raw);
    default:
        return raw;
    }
}

float Pixel_Store::grey(int raw)
{
    return grey_value(pixels_, histograms().decimal_exponent, stored(raw));
}

}
