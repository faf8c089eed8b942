#pragma once

class QPainter;
class QRect;

namespace workbench {

class Session;

/// The quiet texts around the picture: slice, zoom, window, and where the patient's sides are.
void paint_corner_texts(QPainter& painter, const QRect& view, const Session& session, double zoom);

}
