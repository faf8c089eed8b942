#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace workbench {

/// Axes of a frame that are turned round for looking at.
struct Mirror {
    bool x = false, y = false;
    bool operator==(const Mirror&) const = default;
};

/// Where the pixels of a frame lie in a view: pixel (x, y) covers the square from (x, y) to (x + 1, y + 1), its centre
/// is at (x + 0.5, y + 0.5). View positions are device-independent pixels from the upper left corner.
class ViewTransform {
public:
    static constexpr double least_zoom = 0.02;
    static constexpr double greatest_zoom = 100;

    /// Another frame, fitted into the view. @param spacing the distance between neighbours along x and y, millimetres;
    /// @param mirror which axes run from the right to the left, or upward, on the screen
    void setFrame(QSizeF pixels, QSizeF spacing, Mirror mirror = {});

    /// Another size of the view: what is in the middle stays there; a fitted frame stays fitted.
    void setViewSize(QSizeF size);

    /// Shows the whole frame, as large as it goes.
    void fit();
    bool isFitted() const { return fitted_; }

    /// Widget pixels for one pixel of the frame, along the axis with the smaller spacing.
    double zoom() const { return zoom_; }

    /// Zooms so that what lies at `anchor` stays there.
    void setZoom(double zoom, QPointF anchor);

    /// Moves the frame; some of it stays in the view.
    void pan(QPointF by);

    /// Pixel to view, and back.
    QTransform transform() const;
    QPointF toView(QPointF pixel) const { return transform().map(pixel); }
    QPointF toPixel(QPointF view) const { return transform().inverted().map(view); }
    QRectF frameRect() const { return transform().mapRect(QRectF(QPointF(), pixels_)); } ///< in the view

private:
    QSizeF scale() const;
    QPointF mirrored(QPointF pixel) const;
    void keepInView();

    QSizeF pixels_{1, 1};
    QSizeF stretch_{1, 1}; // the smaller is 1
    QSizeF view_{1, 1};
    Mirror mirror_;
    QPointF origin_; // of the frame's upper left corner in the view
    double zoom_ = 1;
    bool fitted_ = true;
};

}
