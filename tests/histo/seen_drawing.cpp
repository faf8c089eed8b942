#include "tests/histo/seen_drawing.h"

#include <cstring>
#include <utility>

namespace test {

void (*on_post)(UINT message) = nullptr;

namespace {

Seen_Drawing seen;
std::vector<DWORD> pattern;
COLORREF pen = 0;

}

Seen_Drawing take_seen_drawing()
{
    return std::exchange(seen, {});
}

}

using namespace test;

HBRUSH CreateDIBPatternBrushPt(const void* packed, UINT)
{
    BITMAPINFOHEADER header;
    std::memcpy(&header, packed, sizeof header);
    pattern.resize(static_cast<size_t>(header.biWidth * header.biHeight));
    std::memcpy(pattern.data(), static_cast<const char*>(packed) + sizeof header, pattern.size() * sizeof(DWORD));
    return nullptr;
}

HPEN CreatePen(int, int, COLORREF color)
{
    pen = color;
    return nullptr;
}

int FillRect(HDC, const RECT* rectangle, HBRUSH)
{
    seen.fills.push_back({*rectangle, std::exchange(pattern, {})});
    return 1;
}

BOOL Polygon(HDC, const POINT* points, int count)
{
    seen.polygons.push_back({{points, points + count}, pen});
    return TRUE;
}

BOOL Polyline(HDC, const POINT* points, int count)
{
    std::vector<POINT> added(points, points + count);
    if (!seen.lines.empty() && seen.lines.back().pen == pen) {
        auto& before = seen.lines.back().points;
        if (before.back().x == added.front().x && before.back().y == added.front().y) {
            before.insert(before.end(), added.begin() + 1, added.end());
            return TRUE;
        }
    }
    seen.lines.push_back({std::move(added), pen});
    return TRUE;
}

BOOL MoveToEx(HDC, int x, int y, POINT*)
{
    seen.lines.push_back({{{x, y}}, pen});
    return TRUE;
}

BOOL LineTo(HDC, int x, int y)
{
    seen.lines.back().points.push_back({x, y});
    return TRUE;
}

BOOL PostMessageA(HWND, UINT message, WPARAM, LPARAM)
{
    seen.posted.push_back(message);
    if (on_post)
        on_post(message);
    return TRUE;
}
