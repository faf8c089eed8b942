#include "workbench/model/stroke.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace workbench {

namespace {

/// Calls visit(from pixel, to pixel) for each step of a line without gaps, sideways or diagonally.
template <class Visit>
void walk(QPoint from, QPoint to, Visit visit)
{
    const QPoint way = to - from;
    const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
    QPoint last = from;
    for (int i = 1; i <= steps; ++i) {
        const double part = double(i) / steps;
        const QPoint next = from + QPoint(int(std::lround(way.x() * part)), int(std::lround(way.y() * part)));
        visit(last, next);
        last = next;
    }
}

}

Stroke::Stroke(document::LabelMap& labels, int z, BrushShape brush, std::uint8_t tag, const LockedTags& locked)
    : labels_(labels), z_(z), brush_(std::move(brush)), tag_(tag), locked_(locked),
      before_(std::size_t(labels.geometry().size[1]))
{
}

QRect Stroke::move_to(QPoint pixel)
{
    QRect changed;
    if (!last_)
        changed = stamp(brush_.whole(), pixel);
    else
        walk(*last_, pixel, [&](QPoint from, QPoint to) {
            const QPoint step = to - from;
            changed |= stamp(brush_.ahead(step.x(), step.y()), to);
        });
    last_ = pixel;
    return changed;
}

QRect Stroke::stamp(const std::vector<Run>& runs, QPoint centre)
{
    const int width = labels_.geometry().size[0], height = labels_.geometry().size[1];
    const int radius = brush_.radius();
    const QRect box(centre.x() - radius, centre.y() - radius, 2 * radius + 1, 2 * radius + 1);
    const QRect inside = box & QRect(0, 0, width, height);
    if (inside.isEmpty())
        return {};
    touched_ |= inside; // before the rows: when memory ends among them, revert() still knows where to look
    for (const Run& run : runs) {
        const int y = centre.y() + run.y;
        const int first = std::max(centre.x() + run.first, 0), last = std::min(centre.x() + run.last, width - 1);
        if (y >= 0 && y < height && first <= last)
            fill(y, first, last);
    }
    return inside;
}

void Stroke::fill(int y, int first, int last)
{
    const auto tags = row(y);
    auto& before = before_[std::size_t(y)];
    if (before.empty())
        before.assign(tags.begin(), tags.end());
    for (auto& tag : tags.subspan(std::size_t(first), std::size_t(last - first + 1)))
        if (!locked_[tag])
            tag = tag_;
}

std::span<std::uint8_t> Stroke::row(int y) const
{
    return labels_.tags().subspan(labels_.index(0, y, z_), std::size_t(labels_.geometry().size[0]));
}

std::optional<document::MaskDifference> Stroke::difference() const
{
    if (touched_.isEmpty())
        return {};
    const document::Box box{touched_.x(), touched_.y(), z_, touched_.width(), touched_.height(), 1};
    std::vector<std::uint8_t> bytes;
    bytes.reserve(box.voxels());
    for (int y = box.y; y < box.y + box.height; ++y) {
        const auto& before = before_[std::size_t(y)];
        const auto source = before.empty() ? std::span<const std::uint8_t>(row(y)) : before;
        const auto part = source.subspan(std::size_t(box.x), std::size_t(box.width));
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return document::MaskDifference::since(box, bytes, labels_);
}

void Stroke::revert()
{
    for (int y = touched_.top(); y <= touched_.bottom(); ++y)
        if (const auto& before = before_[std::size_t(y)]; !before.empty())
            std::copy(before.begin(), before.end(), row(y).begin());
}

}
