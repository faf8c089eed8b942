#include "platform/qt/context.h"

#include <QImage>

#include <algorithm>
#include <cstdlib>

// Lines, areas, pixels and texts.

namespace {

using Meets = Device_Context::Meets;

void fill(Device_Context& dc, const QRect& rectangle, const QColor& color, Meets meets)
{
    if (rectangle.isEmpty())
        return;
    dc.painter(meets).fillRect(rectangle, color);
    dc.mark(rectangle);
}

QPen to_qpen(const Drawing_Object& object)
{
    QPen pen(object.color, object.width, object.style, Qt::FlatCap, Qt::MiterJoin);
    return pen;
}

// An axis-parallel line is the rectangle that its pen passes over; the end is left out.
QRect passed_over(const QPoint& from, const QPoint& to, int width)
{
    const int before = width / 2;
    if (from.y() == to.y()) {
        const int left = std::min(from.x(), to.x() + 1);
        return {left, from.y() - before, std::abs(to.x() - from.x()), width};
    }
    const int top = std::min(from.y(), to.y() + 1);
    return {from.x() - before, top, width, std::abs(to.y() - from.y())};
}

void draw_line(Device_Context& dc, const QPoint& from, const QPoint& to)
{
    const Drawing_Object& pen = dc.pen();
    if (pen.style == Qt::NoPen || from == to)
        return;
    if (pen.style == Qt::SolidLine && (from.x() == to.x() || from.y() == to.y())) {
        fill(dc, passed_over(from, to, pen.width), pen.color, Meets::by_operation);
        return;
    }
    QPainter& painter = dc.painter(Meets::by_operation);
    painter.setPen(to_qpen(pen));
    painter.drawLine(from, to);
    dc.mark(QRect(from, to).normalized().adjusted(-pen.width, -pen.width, pen.width, pen.width));
}

// The frame of a rectangle, each pixel once, so that XOR draws it and takes it back.
void fill_frame(Device_Context& dc, const QRect& outer, int width, const QColor& color, Meets meets)
{
    const int thickness = std::min({width, outer.width(), outer.height()});
    fill(dc, {outer.left(), outer.top(), outer.width(), thickness}, color, meets);
    if (outer.height() <= thickness)
        return;
    fill(dc, {outer.left(), outer.bottom() + 1 - thickness, outer.width(), thickness}, color, meets);
    const int side = outer.height() - 2 * thickness;
    fill(dc, {outer.left(), outer.top() + thickness, thickness, side}, color, meets);
    if (outer.width() > thickness)
        fill(dc, {outer.right() + 1 - thickness, outer.top() + thickness, thickness, side}, color, meets);
}

QPolygon to_device(const Device_Context& dc, const POINT* points, int count)
{
    QPolygon polygon;
    for (int i = 0; i < count; ++i)
        polygon << dc.to_device(points[i].x, points[i].y);
    return polygon;
}

// Pen and brush of the context, for what Qt draws itself.
QPainter& with_pen_and_brush(Device_Context& dc)
{
    QPainter& painter = dc.painter(Meets::by_operation);
    painter.setPen(dc.pen().style == Qt::NoPen ? QPen(Qt::NoPen) : to_qpen(dc.pen()));
    painter.setBrush(dc.brush().hollow ? QBrush(Qt::NoBrush) : QBrush(dc.color_of(dc.brush())));
    return painter;
}

}

BOOL MoveToEx(HDC context, int x, int y, POINT* previous)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return FALSE;
    if (previous)
        *previous = {dc->state.position.x(), dc->state.position.y()};
    dc->state.position = {x, y};
    return TRUE;
}

BOOL LineTo(HDC context, int x, int y)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return FALSE;
    draw_line(*dc, dc->to_device(dc->state.position.x(), dc->state.position.y()), dc->to_device(x, y));
    dc->state.position = {x, y};
    return TRUE;
}

BOOL Polyline(HDC context, const POINT* points, int count)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc || count < 2)
        return FALSE;
    const QPolygon line = to_device(*dc, points, count);
    for (int i = 1; i < count; ++i)
        draw_line(*dc, line[i - 1], line[i]);
    return TRUE;
}

// The area has the pixels whose centres lie inside; the outline goes through the corners.
BOOL Polygon(HDC context, const POINT* points, int count)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc || count < 2)
        return FALSE;
    const QPolygon polygon = to_device(*dc, points, count);
    QPainter& painter = with_pen_and_brush(*dc);
    painter.drawPolygon(polygon, Qt::OddEvenFill);
    const int around = dc->pen().width;
    dc->mark(polygon.boundingRect().adjusted(-around, -around, around, around));
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
    if (!dc->brush().hollow)
        fill(*dc, outer.adjusted(width, width, -width, -width), dc->color_of(dc->brush()), Meets::by_operation);
    if (width > 0)
        fill_frame(*dc, outer, width, pen.color, Meets::by_operation);
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
    if (!paint->hollow)
        fill(*dc, dc->to_device(rectangle->left, rectangle->top, rectangle->right, rectangle->bottom),
            dc->color_of(*paint), Meets::covering);
    return 1;
}

int FrameRect(HDC context, const RECT* rectangle, HBRUSH brush)
{
    Device_Context* dc = Device_Context::of(context);
    const Drawing_Object* paint = object_of(brush);
    if (!dc || !rectangle || !paint)
        return 0;
    fill_frame(*dc, dc->to_device(rectangle->left, rectangle->top, rectangle->right, rectangle->bottom), 1,
        dc->color_of(*paint), Meets::covering);
    return 1;
}

COLORREF SetPixel(HDC context, int x, int y, COLORREF color)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return CLR_INVALID;
    fill(*dc, {dc->to_device(x, y), QSize(1, 1)}, to_qcolor(color), Meets::covering);
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
    if (!dc || !pixels || !description || description->bmiHeader.biBitCount != 32)
        return 0;
    const BITMAPINFOHEADER& header = description->bmiHeader;
    const QImage stored(
        static_cast<const uchar*>(pixels), header.biWidth, std::abs(header.biHeight), QImage::Format_RGB32);
    const bool upright = header.biHeight < 0;
    const QImage source = (upright ? stored : stored.mirrored())
                              .copy(source_x, upright ? source_y : std::abs(header.biHeight) - source_y - source_height,
                                  source_width, source_height);
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
    Drawing_Object::Font& font = dc->font();
    const QFontMetrics& metrics = font.metrics;
    const auto& [laid_out, width] = font.lay_out(string);
    const UINT align = dc->state.text_align;
    QPoint baseline = dc->to_device(x, y);
    if ((align & TA_CENTER) == TA_CENTER)
        baseline.rx() -= width / 2;
    else if (align & TA_RIGHT)
        baseline.rx() -= width;
    if ((align & TA_BASELINE) != TA_BASELINE)
        baseline.ry() += (align & TA_BOTTOM) ? -metrics.descent() : metrics.ascent();

    QPainter& painter = dc->painter(Meets::covering);
    painter.setFont(font.font);
    painter.setPen(to_qcolor(dc->state.text_color));
    painter.drawStaticText(baseline - QPoint(0, metrics.ascent()), laid_out);
    dc->mark({baseline.x() - 2, baseline.y() - metrics.ascent(), width + 4, metrics.height() + 2});
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
