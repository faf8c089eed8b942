#pragma once

#include <optional>
#include <QColor>
#include <QPointF>
#include <QRect>
#include <QString>
#include <vector>

class QFont;
class QPainter;

namespace workbench {

class Session;
class ViewTransform;

/// A marker of the shown frame, as a view shows it.
struct MarkerMark {
    unsigned marker;
    QPointF place; ///< in the view
    QString name;
    QColor colour;
    bool current;
};

/// The marks of the markers that are switched on and lie nearer to the shown frame than to any other.
std::vector<MarkerMark> marker_marks(const Session& session, const ViewTransform& place);

/// The marker at a position of the view: of several the current one, or else the nearest.
std::optional<unsigned> marker_at(const std::vector<MarkerMark>& marks, QPointF position);

/// What a mark covers in a view of this font and size, its name included.
QRect box_of(const MarkerMark& mark, const QFont& font, const QRect& view);

/// A ring around the place, which stays free to be seen, and the name beside it: at its right, or at its left where the
/// view ends. Readable on bright and on dark.
void paint_mark(QPainter& painter, const MarkerMark& mark, const QRect& view);

}
