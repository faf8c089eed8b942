#pragma once

#include "workbench/document/mask_difference.h"
#include "workbench/model/brush_shape.h"

#include <array>
#include <cstdint>
#include <optional>
#include <QPoint>
#include <QRect>
#include <span>
#include <vector>

namespace workbench {

/// Tags that are never painted over.
using LockedTags = std::array<bool, 256>;

/// Painting on one frame, from press to release. The label map must outlive it and must not be changed meanwhile by
/// anyone else.
///
/// Memory grows with the rows that are touched, time with the length of the line and the brush's circumference.
class Stroke {
public:
    Stroke(document::LabelMap& labels, int z, BrushShape brush, std::uint8_t tag, const LockedTags& locked);

    /// Stamps the brush on every pixel of the line from where the last call ended, which may lie outside the frame; the
    /// first call stamps once. Returns the part of the frame that may have changed. Throws std::bad_alloc.
    QRect move_to(QPoint pixel);

    /// What has changed since the beginning, or nothing. Throws std::bad_alloc.
    std::optional<document::MaskDifference> difference() const;

    /// Takes back everything.
    void revert();

    int z() const { return z_; }
    QRect touched() const { return touched_; } ///< everything that may have changed

private:
    QRect stamp(const std::vector<Run>& runs, QPoint centre);
    void fill(int y, int first, int last);
    std::span<std::uint8_t> row(int y) const;

    document::LabelMap& labels_;
    int z_;
    BrushShape brush_;
    std::uint8_t tag_;
    LockedTags locked_;
    std::optional<QPoint> last_;
    QRect touched_;
    std::vector<std::vector<std::uint8_t>> before_; // row by row, empty where nothing was touched
};

}
