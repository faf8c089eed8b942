#include "platform/qt/lines.h"

#include <QImage>

#include <algorithm>
#include <cstdlib>

// Areas, pixels and texts.

namespace {

using Meets = Device_Context::Meets;

// The frame of a rectangle, each pixel once, so that XOR draws it and takes it back.
void fill_frame(Device_Context& dc, const QRect& outer, int width, const Drawing_Object& ink, Meets meets)
{
    const int thickness = std::min({width, outer.width(), outer.height()});
    dc.fill({outer.left(), outer.top(), outer.width(), thickness}, ink, meets);
    if (outer.height() <= thickness)
        return;
    dc.fill({outer.left(), outer.bottom() + 1 - thickness, outer.width(), thickness}, ink, meets);
    const int side = outer.height() - 2 * thickness;
    dc.fill({outer.left(), outer.top() + thickness, thickness, side}, ink, meets);
    if (outer.width() > thickness)
        dc.fill({outer.right() + 1 - thickness, outer.top() + thickness, thickness, side}, ink, meets);
}

// Pen and brush of the context, for what Qt draws itself.
QPainter& with_pen_and_brush(Device_Context& dc)
{
    QPainter& painter = dc.painter(Meets::by_operation);
    painter.setPen(to_qpen(dc.pen()));
    painter.setBrush(dc.to_qbrush(dc.brush()));
    return painter;
}

// Whether the outline is that of axis-parallel lines, which are sharp at every scale and faster.
bool is_outlined_by_lines(const Device_Context& dc, const QPolygon& polygon)
{
    const auto slants = [](const QPoint& from, const QPoint& to) { return from.x() != to.x() && from.y() != to.y(); };
    return dc.pen().width == 1 && lines_cover(dc) && !slants(polygon.last(), polygon.first()) &&
           std::adjacent_find(polygon.begin(), polygon.end(), slants) == polygon.end();
}

// Where a text's upper left corner is, seen from the place that it is aligned to.
QPoint aligned(UINT align, int width, const QFontMetrics& metrics)
{
    const int left = (align & TA_CENTER) == TA_CENTER ? -(width / 2) : align & TA_RIGHT ? -width : 0;
    if ((align & TA_BASELINE) == TA_BASELINE)
        return {left, -metrics.ascent()};
    return {left, align & TA_BOTTOM ? -metrics.height() : 0};
}

}

// The area has the pixels whose centres lie inside; the outline goes through the corners.
BOOL Polygon(HDC context, const POINT* points, int count)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc || count < 2)
        return FALSE;
    const QPolygon polygon = dc->to_device(points, count);
    QPainter& painter = with_pen_and_brush(*dc);
    const bool of_lines = is_outlined_by_lines(*dc, polygon);
    if (of_lines)
        painter.setPen(Qt::NoPen);
    painter.drawPolygon(polygon, Qt::OddEvenFill);
    const int around = dc->pen().width;
    dc->mark(polygon.boundingRect().adjusted(-around, -around, around, around));
    if (of_lines)
        draw_lines(*dc, polygon + QPolygon{polygon.first()});
    return TRUE;
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return FALSE;
    const Drawing_Object& pen = dc->pen();
    // The path that the pen's centre takes goes from the first to the last but one pixel.
    const QRect covered = dc->to_device(left, top, right, bottom).adjusted(0, 0, -1, -1);
    const int before = pen.style == Qt::NoPen ? 0 : pen.width / 2;
    const int width = pen.style == Qt::NoPen ? 0 : pen.width;
    const QRect outer = covered.translated(-before, -before).adjusted(0, 0, width, width);
    dc->fill(outer.adjusted(width, width, -width, -width), dc->brush(), Meets::by_operation);
    if (width > 0)
        fill_frame(*dc, outer, width, pen, Meets::by_operation);
    return TRUE;
}

BOOL Ellipse(HDC context, int left, int top, int right, int bottom)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return FALSE;
    const QRect outer = dc->to_device(left, top, right, bottom);
    with_pen_and_brush(*dc).drawEllipse(outer.adjusted(0, 0, -1, -1));
    dc->mark(outer.adjusted(-1, -1, 1, 1));
    return TRUE;
}

int FillRect(HDC context, const RECT* rectangle, HBRUSH brush)
{
    Device_Context* dc = Device_Context::of(context);
    const Drawing_Object* paint = object_of(brush);
    if (!dc || !rectangle || !paint)
        return 0;
    dc->fill(
        dc->to_device(rectangle->left, rectangle->top, rectangle->right, rectangle->bottom), *paint, Meets::covering);
    return 1;
}

int FrameRect(HDC context, const RECT* rectangle, HBRUSH brush)
{
    Device_Context* dc = Device_Context::of(context);
    const Drawing_Object* paint = object_of(brush);
    if (!dc || !rectangle || !paint)
        return 0;
    fill_frame(*dc, dc->to_device(rectangle->left, rectangle->top, rectangle->right, rectangle->bottom), 1, *paint,
        Meets::covering);
    return 1;
}

COLORREF SetPixel(HDC context, int x, int y, COLORREF color)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return CLR_INVALID;
    const QRect dot(dc->to_device(x, y), QSize(1, 1));
    dc->painter(Meets::covering).fillRect(dot, to_qcolor(color));
    dc->mark(dot);
    return color;
}

COLORREF GetPixel(HDC context, int x, int y)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return CLR_INVALID;
    const QImage& picture = dc->picture();
    const QPointF place = QPointF(dc->to_device(x, y)) * picture.devicePixelRatio();
    if (!picture.rect().contains(place.toPoint()))
        return CLR_INVALID;
    const QRgb pixel = picture.pixel(place.toPoint());
    return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

int StretchDIBits(HDC context, int x, int y, int width, int height, int source_x, int source_y, int source_width,
    int source_height, const void* pixels, const BITMAPINFO* description, UINT, DWORD)
{
    Device_Context* dc = Device_Context::of(context);
    const QImage picture = dc && description ? upright(description->bmiHeader, pixels) : QImage();
    if (picture.isNull())
        return 0;
    // Rows are counted from the one that is stored first.
    const bool upside_down = description->bmiHeader.biHeight > 0;
    const int first_row = upside_down ? picture.height() - source_y - source_height : source_y;
    const QImage source = picture.copy(source_x, first_row, source_width, source_height);
    const QRect target = dc->to_device(x, y, x + width, y + height);
    dc->painter(Meets::covering).drawImage(target, source);
    dc->mark(target);
    return source_height;
}

// -------------------------------------------------------------------------------------------------------- text

COLORREF SetTextColor(HDC context, COLORREF color)
{
    Device_Context* dc = Device_Context::of(context);
    return dc ? std::exchange(dc->state.text_color, color) : CLR_INVALID;
}

int SetBkMode(HDC context, int mode)
{
    Device_Context* dc = Device_Context::of(context);
    return dc ? std::exchange(dc->state.background_mode, mode) : 0;
}

UINT SetTextAlign(HDC context, UINT align)
{
    Device_Context* dc = Device_Context::of(context);
    return dc ? std::exchange(dc->state.text_align, align) : 0xFFFFFFFF;
}

BOOL TextOutW(HDC context, int x, int y, LPCWSTR text, int length)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc || !text)
        return FALSE;
    const QString string(reinterpret_cast<const QChar*>(text), length);
    const QPoint place = dc->to_device(x, y);
    Drawing_Object::Font& font = dc->font();
    const auto& [laid_out, width] = font.lay_out(string);
    const QPoint corner = aligned(dc->state.text_align, width, font.metrics);
    const QRect box = QRect(corner, QSize(width, font.metrics.height())).adjusted(-2, 0, 2, 2);

    QPainter& painter = dc->painter(Meets::covering);
    painter.setFont(font.font);
    painter.setPen(to_qcolor(dc->state.text_color));
    if (font.turned == 0) {
        painter.drawStaticText(place + corner, laid_out);
        dc->mark(box.translated(place));
        return TRUE;
    }
    painter.translate(place);
    painter.rotate(-font.turned);
    painter.drawStaticText(corner, laid_out);
    painter.resetTransform();
    dc->mark(QTransform().rotate(-font.turned).mapRect(box).translated(place));
    return TRUE;
}

BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, SIZE* size)
{
    const Device_Context* dc = Device_Context::of(context);
    if (!dc || !text || !size)
        return FALSE;
    Drawing_Object::Font& font = dc->font();
    *size = {font.lay_out(QString(reinterpret_cast<const QChar*>(text), length)).width, font.metrics.height()};
    return TRUE;
}

BOOL GetTextMetricsA(HDC context, TEXTMETRICA* result)
{
    const Device_Context* dc = Device_Context::of(context);
    if (!dc || !result)
        return FALSE;
    const QFontMetrics& metrics = dc->font().metrics;
    *result = {};
    result->tmHeight = metrics.height();
    result->tmAscent = metrics.ascent();
    result->tmDescent = metrics.descent();
    result->tmExternalLeading = metrics.leading();
    result->tmAveCharWidth = metrics.averageCharWidth();
    result->tmMaxCharWidth = metrics.maxWidth();
    result->tmWeight = dc->font().font.bold() ? FW_BOLD : FW_NORMAL;
    return TRUE;
}
