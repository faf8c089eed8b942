#include "histo/painting.h"

#include <algorithm>

namespace histo {

void fill(const RECT& rectangle, HBRUSH brush)
{
    FillRect(Y_DC, &rectangle, brush);
    DeleteObject(brush);
}

HBRUSH checker(COLORREF color)
{
    struct {
        BITMAPINFOHEADER header;
        DWORD pixels[4];
    } bitmap{};
    bitmap.header.biSize = sizeof bitmap.header;
    bitmap.header.biWidth = 2;
    bitmap.header.biHeight = 2;
    bitmap.header.biPlanes = 1;
    bitmap.header.biBitCount = 32;
    bitmap.header.biCompression = BI_RGB;
    // A bitmap's pixel has blue in the low byte.
    const DWORD pixel = DWORD{GetRValue(color)} << 16 | DWORD{GetGValue(color)} << 8 | GetBValue(color);
    bitmap.pixels[0] = bitmap.pixels[3] = pixel;
    return CreateDIBPatternBrushPt(&bitmap, DIB_RGB_COLORS);
}

void toggle_cursor(int x, int bottom, int height)
{
    const Xor_Drawing xored;
    const Selected pen(CreatePen(PS_SOLID, 2, white));
    MoveToEx(Y_DC, x, bottom, nullptr);
    LineTo(Y_DC, x, bottom + height);
}

// ------------------------------------------------------------------------------------------------ joined points

void Joined_Points::add(POINT point)
{
    if (used_ && point.x == last_.x) {
        lowest_ = std::min(lowest_, last_.y);
        highest_ = std::max(highest_, last_.y);
    } else {
        end_column();
        keep(point);
        lowest_ = highest_ = point.y;
    }
    last_ = point;
}

void Joined_Points::finish()
{
    end_column();
    if (used_ > 0)
        join(points_.data(), static_cast<int>(used_));
    used_ = 0;
}

void Joined_Points::keep(POINT point)
{
    if (used_ && points_[used_ - 1].x == point.x && points_[used_ - 1].y == point.y)
        return;
    if (used_ == capacity) {
        const POINT seam = points_[used_ - 1];
        join(points_.data(), static_cast<int>(used_));
        points_[0] = seam;
        used_ = 1;
    }
    points_[used_++] = point;
}

// A line ends before its last point. So the extremes are those of the points before, and of these the far one comes
// last: all between them is covered, and the last point only if the line has been there.
void Joined_Points::end_column()
{
    if (!used_)
        return;
    const bool ends_high = last_.y >= highest_;
    keep({last_.x, ends_high ? highest_ : lowest_});
    keep({last_.x, ends_high ? lowest_ : highest_});
    keep(last_);
}

void Joined_Line::join(POINT* points, int count)
{
    if (count > 1)
        Polyline(Y_DC, points, count);
}

void Joined_Area::join(POINT* points, int count)
{
    points[count] = {points[count - 1].x, base_};
    points[count + 1] = {points[0].x, base_};
    Polygon(Y_DC, points, count + 2);
}

}
