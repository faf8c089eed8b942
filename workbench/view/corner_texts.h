#pragma once

class QColor;
class QPainter;
class QRect;
class QString;

namespace workbench {

class Session;

/// A text on a dark ground of its own, so that it is readable over black and over white. @param flags  where in `area`:
/// of Qt::Alignment
void paint_on_ground(QPainter& painter, const QRect& area, int flags, const QString& text, const QColor& colour);

/// Where texts around the picture go.
QRect corner_area(const QRect& view);

/// The quiet texts around the picture: slice, zoom, window, and where the patient's sides are.
void paint_corner_texts(QPainter& painter, const QRect& view, const Session& session, double zoom);

}
