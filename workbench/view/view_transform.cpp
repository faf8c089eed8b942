#include "workbench/view/view_transform.h"

#include <algorithm>

namespace workbench {

void ViewTransform::setFrame(QSizeF pixels, QSizeF spacing, Mirror mirror)
{
    pixels_ = pixels;
    mirror_ = mirror;
    const double least = std::min(spacing.width(), spacing.height());
    stretch_ = least > 0 ? spacing / least : QSizeF(1, 1);
    fit();
}

void ViewTransform::setViewSize(QSizeF size)
{
    const QSizeF growth = size - view_;
    view_ = size;
    if (fitted_)
        return fit();
    pan({growth.width() / 2, growth.height() / 2});
}

void ViewTransform::fit()
{
    const double across = view_.width() / (pixels_.width() * stretch_.width());
    const double down = view_.height() / (pixels_.height() * stretch_.height());
    zoom_ = std::clamp(std::min(across, down), least_zoom, greatest_zoom);
    const QSizeF rest = view_ - QSizeF(pixels_.width() * scale().width(), pixels_.height() * scale().height());
    origin_ = {rest.width() / 2, rest.height() / 2};
    fitted_ = true;
}

void ViewTransform::setZoom(double zoom, QPointF anchor)
{
    const QPointF held = mirrored(toPixel(anchor));
    zoom_ = std::clamp(zoom, least_zoom, greatest_zoom);
    origin_ = anchor - QPointF(held.x() * scale().width(), held.y() * scale().height());
    fitted_ = false;
    if (!frameRect().contains(anchor))
        keepInView();
}

void ViewTransform::pan(QPointF by)
{
    origin_ += by;
    fitted_ = false;
    keepInView();
}

QTransform ViewTransform::transform() const
{
    const QPointF corner = mirrored({0, 0});
    return QTransform::fromTranslate(origin_.x(), origin_.y())
        .scale(scale().width(), scale().height())
        .translate(corner.x(), corner.y())
        .scale(mirror_.x ? -1 : 1, mirror_.y ? -1 : 1);
}

// Where a pixel is, counted from the frame's corner that lies at the upper left of the screen.
QPointF ViewTransform::mirrored(QPointF pixel) const
{
    return {mirror_.x ? pixels_.width() - pixel.x() : pixel.x(), mirror_.y ? pixels_.height() - pixel.y() : pixel.y()};
}

QSizeF ViewTransform::scale() const
{
    return stretch_ * zoom_;
}

void ViewTransform::keepInView()
{
    constexpr double seen = 32; // of the frame, along each axis
    const QRectF rect = frameRect();
    const auto held = [&](double start, double length, double view) {
        const double least = std::min({seen, length, view});
        return std::clamp(start, least - length, view - least);
    };
    origin_ = {held(rect.x(), rect.width(), view_.width()), held(rect.y(), rect.height(), view_.height())};
}

}
