#include "workbench/view/corner_texts.h"
#include "workbench/view/image_view.h"

#include <QMouseEvent>
#include <QPainter>

// Markers: showing, setting and moving them.

namespace workbench {

void ImageView::setPlacing(bool placing)
{
    if (placing_ == placing || (placing && !session_.hasImage()))
        return;
    placing_ = placing;
    updateCursor();
    update();
    emit placingChanged(placing_);
}

std::optional<unsigned> ImageView::markerUnderPointer() const
{
    return pointer_ ? markerAt(*pointer_) : std::nullopt;
}

std::optional<unsigned> ImageView::markerAt(QPointF position) const
{
    return marker_at(marker_marks(session_, place_), position);
}

void ImageView::beginMarking(QMouseEvent* event)
{
    Markers& markers = session_.markers();
    const QPointF pixel = place_.toPixel(event->position());
    grip_ = {};
    if (const auto marker = markerAt(event->position())) {
        markers.beginMoving(*marker);
        grip_ = markers.place(*marker)->pixel - pixel;
    } else if (const QString why = markers.beginSetting(pixel); !why.isEmpty()) {
        emit strokeRefused(why);
        return;
    }
    begin(Drag::marker, event);
}

// Only where marks were and are.
void ImageView::showMarkers()
{
    const QRegion now = markedRegion();
    update(now | marked_);
    marked_ = now;
}

QRegion ImageView::markedRegion() const
{
    QRegion region;
    for (const MarkerMark& mark : marker_marks(session_, place_))
        region |= box_of(mark, font(), rect());
    return region;
}

void ImageView::paintMarkers(QPainter& painter)
{
    for (const MarkerMark& mark : marker_marks(session_, place_))
        paint_mark(painter, mark, rect());
    marked_ = markedRegion();
    if (placing_)
        paint_on_ground(painter, corner_area(rect()), Qt::AlignRight | Qt::AlignTop,
            tr("Click sets a marker, Escape ends"), Qt::white);
}

}
