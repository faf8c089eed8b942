#pragma once

#include "workbench/model/brush_shape.h"

#include <QColor>
#include <QLine>
#include <QPoint>
#include <QRect>
#include <QTransform>
#include <QVector>

class QPainter;

namespace workbench {

/// The edge of a brush, along the sides of the pixels that one stamp covers.
class BrushOutline {
public:
    void setShape(const BrushShape& shape);
    bool empty() const { return lines_.empty(); }

    /// The pixels of the frame that a stamp at `centre` may cover.
    QRect box(QPoint centre) const;

    /// @param place from pixels of the frame to the painter's
    void paint(QPainter& painter, const QTransform& place, QPoint centre, QColor colour) const;

private:
    int radius_ = 0;
    QVector<QLine> lines_; // for the centre pixel (0, 0)
};

}
