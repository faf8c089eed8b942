#include "workbench/document/window.h"

#include "workbench/document/volume.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace document {

namespace {

constexpr std::size_t sample_size = 200'000;
constexpr double cut_away = 0.005; // of the pixels at either end

template <class Pixel>
std::vector<double> sample_of(std::span<const Pixel> pixels)
{
    // An odd step does not fall in with the rows of usual, even widths.
    const std::size_t step = pixels.size() <= sample_size ? 1 : pixels.size() / sample_size | 1;
    std::vector<double> sample;
    sample.reserve(pixels.size() / step + 1);
    for (std::size_t i = 0; i < pixels.size(); i += step)
        if (const double value = double(pixels[i]); std::isfinite(value))
            sample.push_back(value);
    return sample;
}

double percentile(std::vector<double>& sample, double part)
{
    const auto at = sample.begin() + std::ptrdiff_t(part * double(sample.size() - 1) + 0.5);
    std::nth_element(sample.begin(), at, sample.end());
    return *at;
}

Window window_between(double low, double high)
{
    return {low + (high - low) / 2, high - low};
}

Window window_of(std::vector<double> sample, double slope, double intercept)
{
    if (sample.empty())
        return {};
    double low = percentile(sample, cut_away), high = percentile(sample, 1 - cut_away);
    if (low == high) { // nearly all pixels are alike: show what little differs
        const auto [least, greatest] = std::minmax_element(sample.begin(), sample.end());
        low = *least;
        high = *greatest;
    }
    const double first = low * slope + intercept, second = high * slope + intercept;
    auto window = window_between(std::min(first, second), std::max(first, second));
    if (!(window.width > 0)) // constant: its value becomes the middle grey
        window.width = std::max(1.0, std::abs(window.centre) * 1e-3);
    return window;
}

}

Window suggest_window(const Volume& volume)
{
    if (volume.header_window && volume.header_window->width > 0)
        return *volume.header_window;
    if (volume.is_colour())
        return {};
    return with_type(volume.type, [&](auto pixel) -> Window {
        using Pixel = typename decltype(pixel)::type;
        if constexpr (std::is_same_v<Pixel, Rgb>)
            return {};
        else
            return window_of(sample_of(volume.as<Pixel>()), volume.slope, volume.intercept);
    });
}

}
