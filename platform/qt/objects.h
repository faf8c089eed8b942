#pragma once

#include "platform/windows_api.h"

#include <QBrush>
#include <QCache>
#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPen>
#include <QRect>
#include <QStaticText>

#include <memory>

/// What stands behind the handles of pens, brushes, fonts, regions and bitmaps.
struct Drawing_Object {
    enum class Kind { pen, brush, font, region, bitmap };

    /// A text laid out, and its width in pixels.
    struct Laid_Out_Text {
        QStaticText text;
        int width;
    };

    /// A font with its measures, and the latest texts laid out in it: panels draw the same ones again and again.
    struct Font {
        explicit Font(const QFont& of = {}, qreal turn = 0) : font(of), turned(turn) {}
        const Laid_Out_Text& lay_out(const QString& text);

        QFont font;
        QFontMetrics metrics{font};
        qreal turned; ///< degrees, counter-clockwise

    private:
        QCache<QString, Laid_Out_Text> texts_{1024};
    };

    Kind kind;
    bool stock = false;
    QColor color;                       // pen, brush
    int width = 1;                      // pen
    Qt::PenStyle style = Qt::SolidLine; // pen; NoPen draws nothing
    bool hollow = false;                // brush
    bool context_color = false;         // brush: the colour is the context's
    QBrush pattern;                     // brush: what it repeats; without a style when it has a plain colour
    std::unique_ptr<Font> font;
    QRect region;
    QImage bitmap;
};

/// The object behind a handle; null when there is none (any more).
Drawing_Object* object_of(const void* handle);

Drawing_Object* null_brush();
Drawing_Object* black_pen();
Drawing_Object* white_brush();
Drawing_Object* system_font();
Drawing_Object* no_bitmap();

QColor to_qcolor(COLORREF color);
QPen to_qpen(const Drawing_Object& pen);

/// A 32-bit bitmap with its top row first, sharing the pixels where it can; null for any other kind of bitmap.
QImage upright(const BITMAPINFOHEADER& header, const void* pixels);
