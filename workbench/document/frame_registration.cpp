#include "workbench/document/frame_registration.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace document {

namespace {

constexpr int levels = 4;            // each half as large as the one before
constexpr int iterations = 10;       // on each level
constexpr float smoothing = 2;       // of the field after each step: standard deviation, pixels
constexpr float longest_step = 0.5f; // pixels
constexpr int least_side = 16;       // of a coarser level, pixels

float value_at(const Plane& plane, float x, float y)
{
    const auto [left, top, right, bottom, across, down] = corners_at(plane.width, plane.height, x, y);
    const float upper = plane.at(left, top) + across * (plane.at(right, top) - plane.at(left, top));
    const float lower = plane.at(left, bottom) + across * (plane.at(right, bottom) - plane.at(left, bottom));
    return upper + down * (lower - upper);
}

/// Half as wide and high, each pixel the mean of four.
Plane halved(const Plane& plane)
{
    Plane half((plane.width + 1) / 2, (plane.height + 1) / 2);
    for (int y = 0; y < half.height; ++y)
        for (int x = 0; x < half.width; ++x) {
            const int right = std::min(2 * x + 1, plane.width - 1), bottom = std::min(2 * y + 1, plane.height - 1);
            half.at(x, y) =
                (plane.at(2 * x, 2 * y) + plane.at(right, 2 * y) + plane.at(2 * x, bottom) + plane.at(right, bottom)) /
                4;
        }
    return half;
}

/// A field of a plane half as large, for this size.
Plane doubled(const Plane& half, int width, int height)
{
    Plane plane(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            plane.at(x, y) = 2 * value_at(half, (float(x) - 0.5f) / 2, (float(y) - 0.5f) / 2);
    return plane;
}

Plane warped(const Plane& moving, const Displacement& field)
{
    Plane result(moving.width, moving.height);
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x)
            result.at(x, y) = value_at(moving, float(x) + field.dx.at(x, y), float(y) + field.dy.at(x, y));
    return result;
}

std::vector<float> gaussian(float sigma)
{
    const int radius = int(std::ceil(3 * sigma));
    std::vector<float> weights;
    float sum = 0;
    for (int i = -radius; i <= radius; ++i) {
        weights.push_back(std::exp(-float(i * i) / (2 * sigma * sigma)));
        sum += weights.back();
    }
    for (float& weight : weights)
        weight /= sum;
    return weights;
}

/// Smooths along the rows and turns the plane over, so that twice smooths both ways.
Plane smoothed_and_turned(const Plane& plane, const std::vector<float>& kernel)
{
    const int radius = int(kernel.size()) / 2, width = plane.width;
    Plane result(plane.height, plane.width);
    const std::size_t length = std::size_t(width);
    std::vector<float> row(length + kernel.size() - 1), sums(length);
    for (int y = 0; y < plane.height; ++y) {
        for (int x = -radius; x < width + radius; ++x)
            row[std::size_t(x + radius)] = plane.at(std::clamp(x, 0, width - 1), y);
        std::fill(sums.begin(), sums.end(), 0.0f);
        for (std::size_t i = 0; i < kernel.size(); ++i)
            for (std::size_t x = 0; x < length; ++x)
                sums[x] += kernel[i] * row[x + i];
        for (int x = 0; x < width; ++x)
            result.at(y, x) = sums[std::size_t(x)];
    }
    return result;
}

void smooth(Plane& plane, const std::vector<float>& kernel)
{
    plane = smoothed_and_turned(smoothed_and_turned(plane, kernel), kernel);
}

std::pair<float, float> slope_at(const Plane& plane, int x, int y)
{
    const int left = std::max(x - 1, 0), right = std::min(x + 1, plane.width - 1);
    const int top = std::max(y - 1, 0), bottom = std::min(y + 1, plane.height - 1);
    return {(plane.at(right, y) - plane.at(left, y)) / 2, (plane.at(x, bottom) - plane.at(x, top)) / 2};
}

/// Moves each pixel along the mean slope of both planes, towards where they are alike. The second term below the line
/// keeps every step shorter than the longest, however flat the planes are.
void step(Displacement& field, const Plane& fixed, const Plane& moved)
{
    constexpr float unnoticed = 1e-3f; // difference of values
    for (int y = 0; y < fixed.height; ++y)
        for (int x = 0; x < fixed.width; ++x) {
            const float difference = fixed.at(x, y) - moved.at(x, y);
            if (std::abs(difference) < unnoticed)
                continue;
            const auto [fixed_x, fixed_y] = slope_at(fixed, x, y);
            const auto [moved_x, moved_y] = slope_at(moved, x, y);
            const float gx = (fixed_x + moved_x) / 2, gy = (fixed_y + moved_y) / 2;
            const float below = gx * gx + gy * gy + difference * difference / (4 * longest_step * longest_step);
            field.dx.at(x, y) += difference * gx / below;
            field.dy.at(x, y) += difference * gy / below;
        }
}

void refine(Displacement& field, const Plane& fixed, const Plane& moving)
{
    const auto kernel = gaussian(smoothing);
    for (int i = 0; i < iterations; ++i) {
        step(field, fixed, warped(moving, field));
        smooth(field.dx, kernel);
        smooth(field.dy, kernel);
    }
}

/// The field found on coarser levels, refined on this one. Very large planes are left at what the coarser ones tell.
Displacement registered(const Plane& fixed, const Plane& moving, int coarser)
{
    constexpr std::size_t most_pixels = 1 << 19;
    const bool is_refined = fixed.values.size() <= most_pixels;
    const int width = fixed.width, height = fixed.height;
    Displacement field{Plane(width, height), Plane(width, height)};
    if ((coarser > 0 || !is_refined) && std::min(width, height) >= 2 * least_side) {
        const auto half = registered(halved(fixed), halved(moving), is_refined ? coarser - 1 : coarser);
        field = {doubled(half.dx, width, height), doubled(half.dy, width, height)};
    }
    if (is_refined)
        refine(field, fixed, moving);
    return field;
}

}

Corners corners_at(int width, int height, float x, float y)
{
    x = std::clamp(x, 0.0f, float(width - 1));
    y = std::clamp(y, 0.0f, float(height - 1));
    const int left = int(x), top = int(y);
    return {left, top, std::min(left + 1, width - 1), std::min(top + 1, height - 1), x - float(left), y - float(top)};
}

Displacement register_planes(const Plane& fixed, const Plane& moving)
{
    return registered(fixed, moving, levels - 1);
}

}
