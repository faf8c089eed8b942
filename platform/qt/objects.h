#pragma once

#include "platform/windows_api.h"

#include <QColor>
#include <QFont>
#include <QRect>

/// What stands behind the handles of pens, brushes, fonts and regions.
struct Drawing_Object {
    enum class Kind { pen, brush, font, region };
    Kind kind;
    bool stock = false;
    QColor color;                       // pen, brush
    int width = 1;                      // pen
    Qt::PenStyle style = Qt::SolidLine; // pen; NoPen draws nothing
    bool hollow = false;                // brush
    QFont font;
    QRect region;
};

/// The object behind a handle; null when there is none (any more).
Drawing_Object* object_of(const void* handle);

Drawing_Object* null_brush();
Drawing_Object* black_pen();
Drawing_Object* white_brush();
Drawing_Object* system_font();

QColor to_qcolor(COLORREF color);
