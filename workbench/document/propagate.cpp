#include "workbench/document/propagate.h"

#include "workbench/document/frame_registration.h"
#include "workbench/document/label_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace document {

namespace {

using Tags = std::vector<std::uint8_t>;

/// The tags that are carried; 0 elsewhere.
Tags carried_tags(std::span<const std::uint8_t> source, const TagSet& free)
{
    Tags tags(source.begin(), source.end());
    for (auto& tag : tags)
        if (!free[tag])
            tag = 0;
    return tags;
}

TagSet tags_on(const Tags& tags)
{
    TagSet found;
    for (const auto tag : tags)
        found.set(tag);
    return found.reset(0);
}

// ------------------------------------------------------------------------------------------------------- adapting

/// What is compared to find the deformation: the tags and enough around them, within the frame.
Box surroundings(const Tags& tags, int width, int height)
{
    constexpr int margin = 24; // pixels
    int left = width, top = height, right = -1, bottom = -1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (tags[std::size_t(y) * std::size_t(width) + std::size_t(x)]) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    left = std::max(left - margin, 0);
    top = std::max(top - margin, 0);
    right = std::min(right + margin, width - 1);
    bottom = std::min(bottom + margin, height - 1);
    return {left, top, 0, right - left + 1, bottom - top + 1, 1};
}

Plane greys_of(const Volume& volume, int z, const Box& box)
{
    Plane plane(box.width, box.height);
    for (int y = 0; y < box.height; ++y)
        for (int x = 0; x < box.width; ++x)
            plane.at(x, y) = float(volume.stored(box.x + x, box.y + y, z));
    return plane;
}

/// Brings the usual values of both planes to 0 to 1; outliers and what is no number are cut off.
void normalise(Plane& first, Plane& second)
{
    constexpr double cut_away = 0.01; // of the pixels at either end
    std::vector<float> values;
    values.reserve(first.values.size() + second.values.size());
    for (const Plane* plane : {&first, &second})
        std::copy_if(plane->values.begin(), plane->values.end(), std::back_inserter(values),
            [](float value) { return std::isfinite(value); });
    const auto percentile = [&](double part) {
        const auto at = values.begin() + std::ptrdiff_t(part * double(values.size() - 1));
        std::nth_element(values.begin(), at, values.end());
        return *at;
    };
    const float low = values.empty() ? 0 : percentile(cut_away), high = values.empty() ? 0 : percentile(1 - cut_away);
    const float width = high - low;
    for (Plane* plane : {&first, &second})
        for (float& value : plane->values)
            value = width > 0 && value > low ? std::min((value - low) / width, 1.0f) : 0.0f;
}

/// The tag that covers most of a pixel's area at a place between pixels.
std::uint8_t tag_at(const Tags& tags, int width, int height, float x, float y)
{
    const auto [left, top, right, bottom, ax, ay] = corners_at(width, height, x, y);
    const auto tag = [&](int column, int row) {
        return tags[std::size_t(row) * std::size_t(width) + std::size_t(column)];
    };
    const std::array<std::uint8_t, 4> found = {tag(left, top), tag(right, top), tag(left, bottom), tag(right, bottom)};
    const std::array<float, 4> part = {(1 - ax) * (1 - ay), ax * (1 - ay), (1 - ax) * ay, ax * ay};
    std::uint8_t best = 0;
    float most = 0;
    for (const auto candidate : found) {
        float covered = 0;
        for (std::size_t i = 0; i < found.size(); ++i)
            covered += found[i] == candidate ? part[i] : 0;
        if (covered > most) {
            most = covered;
            best = candidate;
        }
    }
    return best;
}

Tags deformed(const Tags& tags, int width, int height, const Box& box, const Displacement& field)
{
    Tags result(tags.size());
    for (int y = 0; y < box.height; ++y)
        for (int x = 0; x < box.width; ++x) {
            const float from_x = float(box.x + x) + field.dx.at(x, y), from_y = float(box.y + y) + field.dy.at(x, y);
            result[std::size_t(box.y + y) * std::size_t(width) + std::size_t(box.x + x)] =
                tag_at(tags, width, height, from_x, from_y);
        }
    return result;
}

std::array<std::size_t, 256> sizes_of(const Tags& tags)
{
    std::array<std::size_t, 256> sizes{};
    for (const auto tag : tags)
        ++sizes[tag];
    return sizes;
}

/// Puts a plain copy in place of each tag that has grown or shrunk beyond belief.
void keep_sizes(Tags& adapted, const Tags& copied)
{
    const auto now = sizes_of(adapted), before = sizes_of(copied);
    TagSet wrong;
    for (std::size_t tag = 1; tag < wrong.size(); ++tag)
        wrong[tag] = 2 * now[tag] < before[tag] || now[tag] > 2 * before[tag];
    for (std::size_t i = 0; i < adapted.size(); ++i) {
        if (wrong[adapted[i]])
            adapted[i] = 0;
        if (wrong[copied[i]])
            adapted[i] = copied[i];
    }
}

Tags adapted(const Volume& volume, int from, int to, const Tags& tags)
{
    const Box box = surroundings(tags, volume.width(), volume.height());
    Plane fixed = greys_of(volume, to, box), moving = greys_of(volume, from, box);
    normalise(fixed, moving);
    Tags result = deformed(tags, volume.width(), volume.height(), box, register_planes(fixed, moving));
    keep_sizes(result, tags);
    return result;
}

}

// --------------------------------------------------------------------------------------------------------- carrying

Tags carry(const Volume& volume, int from, int to, std::span<const std::uint8_t> source,
    std::span<const std::uint8_t> target, CarryMode mode, const TagSet& free)
{
    Tags result(target.begin(), target.end());
    Tags wanted = carried_tags(source, free);
    const TagSet carried = tags_on(wanted);
    if (carried.none())
        return result;
    if (mode == CarryMode::adapt)
        wanted = adapted(volume, from, to, wanted);
    for (std::size_t i = 0; i < result.size(); ++i) {
        const bool painted = result[i] != 0;
        if (!free[result[i]] || (painted && mode != CarryMode::replace))
            continue;
        if (wanted[i] != 0)
            result[i] = wanted[i];
        else if (carried[result[i]] && free[0])
            result[i] = 0;
    }
    return result;
}

}
