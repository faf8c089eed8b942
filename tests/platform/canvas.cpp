#include "tests/platform/canvas.h"

namespace test {

Canvas::Canvas()
{
    pump();
    dc = GetDC(window());
    fill_canvas(black);
}

Canvas::~Canvas()
{
    ReleaseDC(window(), dc);
    for (HGDIOBJ object : objects_)
        DeleteObject(object);
}

COLORREF Canvas::pixel(int x, int y)
{
    POINT place{x, y};
    DPtoLP(dc, &place, 1);
    return GetPixel(dc, place.x, place.y);
}

std::string Canvas::picture(int columns, int rows)
{
    std::string result;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x)
            result += pixel(x, y) == black ? '.' : '#';
        result += '\n';
    }
    return result;
}

void Canvas::y_upward()
{
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, width, height, nullptr);
    SetViewportExtEx(dc, width, -height, nullptr);
    SetViewportOrgEx(dc, 0, height - 1, nullptr);
}

void Canvas::use(HGDIOBJ object)
{
    SelectObject(dc, object);
    objects_.push_back(object);
}

void Canvas::use_pen(int style, int pen_width, COLORREF color)
{
    use(CreatePen(style, pen_width, color));
}

void Canvas::use_brush(COLORREF color)
{
    use(CreateSolidBrush(color));
}

void Canvas::use_font(int character_height, int tenths_of_degrees)
{
    use(CreateFontA(-character_height, 0, tenths_of_degrees, tenths_of_degrees, FW_NORMAL, FALSE, FALSE, FALSE,
        DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, ""));
}

void Canvas::fill(int left, int top, int right, int bottom, COLORREF color)
{
    const RECT area{left, top, right, bottom};
    HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &area, brush);
    DeleteObject(brush);
}

void Canvas::line(int x1, int y1, int x2, int y2)
{
    MoveToEx(dc, x1, y1, nullptr);
    LineTo(dc, x2, y2);
}

}
