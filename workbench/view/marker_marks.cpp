#include "workbench/view/marker_marks.h"

#include "workbench/model/session.h"
#include "workbench/view/corner_texts.h"
#include "workbench/view/view_transform.h"

#include <cmath>
#include <QFontMetrics>
#include <QPainter>

namespace workbench {

namespace {

constexpr double radius = 5.5;
constexpr double tick = 5; // that the cross is longer than the ring
constexpr int reach = 13;  // of everything but the name
constexpr double grasp = 10;
constexpr double furthest = 1e6; // pixels away: a file may say anything

double distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

// Beside the mark, with room for the ground that the text is painted on.
QRect name_box(const MarkerMark& mark, const QFont& font, const QRect& view)
{
    const QFontMetrics metrics(font);
    const QSize size(metrics.horizontalAdvance(mark.name) + 2, metrics.height());
    const QPoint middle = mark.place.toPoint();
    const int gap = reach + 4;
    const int right = middle.x() + gap;
    const bool fits = right + size.width() + 4 <= view.right();
    return QRect(QPoint(fits ? right : middle.x() - gap - size.width(), middle.y() - size.height() / 2), size);
}

void paint_ring(QPainter& painter, QPointF place)
{
    painter.drawEllipse(place, radius, radius);
    for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(place + way * radius, place + way * (radius + tick));
}

}

std::vector<MarkerMark> marker_marks(const Session& session, const ViewTransform& place)
{
    const Markers& markers = session.markers();
    std::vector<MarkerMark> marks;
    if (!session.showsFrame())
        return marks;
    for (unsigned marker = 0; marker < markers.count(); ++marker) {
        const auto where = markers.at(marker).enabled ? markers.place(marker) : std::nullopt;
        if (!where || where->frame != session.frame())
            continue;
        const QPointF seen = place.toView(where->pixel);
        if (distance(seen, {}) > furthest)
            continue;
        const QString name = markers.name(marker);
        marks.push_back({marker, seen, name.isEmpty() ? QString::number(marker) : name, markers.colour(marker),
            marker == markers.current()});
    }
    return marks;
}

std::optional<unsigned> marker_at(const std::vector<MarkerMark>& marks, QPointF position)
{
    const MarkerMark* found = nullptr;
    for (const MarkerMark& mark : marks) {
        if (distance(mark.place, position) > grasp)
            continue;
        if (mark.current)
            return mark.marker;
        if (!found || distance(mark.place, position) < distance(found->place, position))
            found = &mark;
    }
    return found ? std::optional(found->marker) : std::nullopt;
}

QRect box_of(const MarkerMark& mark, const QFont& font, const QRect& view)
{
    const QRect middle(mark.place.toPoint(), QSize(1, 1));
    return middle.adjusted(-reach, -reach, reach, reach) | name_box(mark, font, view).adjusted(-6, -3, 6, 3);
}

void paint_mark(QPainter& painter, const MarkerMark& mark, const QRect& view)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const double width = mark.current ? 2.5 : 1.5;
    for (const auto& [colour, pen_width] :
        {std::pair(QColor(0, 0, 0, 170), width + 2.5), std::pair(mark.colour, width)}) {
        painter.setPen(QPen(colour, pen_width, Qt::SolidLine, Qt::FlatCap));
        paint_ring(painter, mark.place);
    }
    const QColor bright = mark.current ? QColor(Qt::white) : QColor(0xd6, 0xda, 0xde);
    paint_on_ground(painter, name_box(mark, painter.font(), view), Qt::AlignCenter, mark.name, bright);
    painter.restore();
}

}
