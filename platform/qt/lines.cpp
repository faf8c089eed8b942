#include "platform/qt/lines.h"

#include <algorithm>
#include <cstdlib>

// Lines with the context's pen.

namespace {

using Meets = Device_Context::Meets;

enum class Direction { none, across, down, slanted };

Direction direction(const QPoint& from, const QPoint& to)
{
    if (from == to)
        return Direction::none;
    return from.y() == to.y() ? Direction::across : from.x() == to.x() ? Direction::down : Direction::slanted;
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

QRect around(const QRect& path, const Drawing_Object& pen)
{
    return path.adjusted(-pen.width, -pen.width, pen.width, pen.width);
}

void draw_line(Device_Context& dc, const QPoint& from, const QPoint& to)
{
    const Drawing_Object& pen = dc.pen();
    const Direction going = direction(from, to);
    if (pen.style == Qt::NoPen || going == Direction::none)
        return;
    if (pen.style == Qt::SolidLine && going != Direction::slanted) {
        dc.fill(passed_over(from, to, pen.width), pen, Meets::by_operation);
        return;
    }
    QPainter& painter = dc.painter(Meets::by_operation);
    painter.setPen(to_qpen(pen));
    painter.drawLine(from, to);
    dc.mark(around(QRect(from, to).normalized(), pen));
}

// Those that go on along one axis, as many points on one pixel column do, become one rectangle; all are drawn together.
void draw_covering_lines(Device_Context& dc, const QPolygon& points)
{
    const Drawing_Object& pen = dc.pen();
    QList<QRect> straight;
    QList<QLine> slanted;
    Direction last = Direction::none;
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPoint& from = points[i - 1];
        const QPoint& to = points[i];
        const Direction going = direction(from, to);
        if (going == Direction::none)
            continue;
        if (going == Direction::slanted)
            slanted.append({from, to});
        else if (going == last)
            straight.back() |= passed_over(from, to, pen.width);
        else
            straight.append(passed_over(from, to, pen.width));
        last = going;
    }
    QPainter& painter = dc.painter(Meets::by_operation);
    painter.setPen(to_qpen(pen));
    for (const QLine& line : slanted) // one by one: of lines that are handed over together Qt draws some ends
        painter.drawLine(line);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pen.color);
    painter.drawRects(straight);
    dc.mark(around(points.boundingRect(), pen));
}

}

bool lines_cover(const Device_Context& dc)
{
    return dc.pen().style == Qt::SolidLine && dc.state.operation == R2_COPYPEN;
}

void draw_lines(Device_Context& dc, const QPolygon& points)
{
    if (lines_cover(dc))
        return draw_covering_lines(dc, points);
    for (qsizetype i = 1; i < points.size(); ++i)
        draw_line(dc, points[i - 1], points[i]);
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
    draw_lines(*dc, dc->to_device(points, count));
    return TRUE;
}
