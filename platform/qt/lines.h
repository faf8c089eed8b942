#pragma once

#include "platform/qt/context.h"

/// The lines from point to point with the context's pen, the very last point left out.
void draw_lines(Device_Context& dc, const QPolygon& points);

/// Whether lines cover what is there, so that it does not matter in which order and how often they are drawn.
bool lines_cover(const Device_Context& dc);
