#include "frame/drawing.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/tag_colors.h"
#include "histo/int_part.h"
#include "histo/tool_histo.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace level = frame::level;
using histo::int_part;

namespace {

constexpr COLORREF black = 0x000000;
constexpr COLORREF white = 0xFFFFFF;
constexpr int most_tags = 256;

// Where the histogram is drawn, pixels of the window, and how many pixels a bin and a count are.
struct Geometry {
    int left;
    int bottom;
    int width;
    int height;
    float x_scale;
    float y_scale;

    explicit Geometry(const Tool_Histo& panel)
        : left(panel.x + 1 + panel.border), bottom(panel.y + 1 + panel.border),
          width(panel.width - 2 * panel.border - 2), height(panel.height - 2 * panel.border - 2),
          x_scale(static_cast<float>(width) / static_cast<float>(panel.histo->nb_bins)), y_scale(0)
    {
        const float full = static_cast<float>(panel.histo->max_count) * panel.zoom.value;
        if (full > 0)
            y_scale = static_cast<float>(height) / full;
    }

    bool empty() const { return width <= 0 || height <= 0; }
    int x_of(int bin) const { return left + int_part(static_cast<float>(bin) * x_scale); }
    int y_of(unsigned count) const { return bottom + std::min(int_part(static_cast<float>(count) * y_scale), height); }
};

// Something selected into the drawing context, and deleted, for as long as this lives.
class Selected {
public:
    explicit Selected(HGDIOBJ object) : object_(object), before_(SelectObject(Y_DC, object)) {}
    ~Selected()
    {
        SelectObject(Y_DC, before_);
        DeleteObject(object_);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HGDIOBJ object_;
    HGDIOBJ before_;
};

void fill(const RECT& rectangle, HBRUSH brush)
{
    FillRect(Y_DC, &rectangle, brush);
    DeleteObject(brush);
}

// ------------------------------------------------------------------------------------------------------ ranges

// The colour on the two pixels of the diagonal, black on the others.
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

// What lies above the histogram is its last bin, and so is, deliberately, what lies below it.
int bin_of(float grey, const Histo_Record& histogram)
{
    const int bin = int_part((static_cast<float>(int_part(grey)) - histogram.min) / histogram.width);
    const auto last = static_cast<unsigned>(histogram.nb_bins - 1);
    return bin != 0 && static_cast<unsigned>(bin) > last ? static_cast<int>(last) : bin;
}

// The bars of a range, in polygons of at most 17 bins that share one with their neighbour.
void fill_bars(const Geometry& place, const unsigned* counts, int first, int last)
{
    constexpr int step = 16;
    const Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
    const Selected brush(CreateSolidBrush(Current_Color));
    for (int start = first; start < last; start += step) {
        std::array<POINT, 2 * (step + 1) + 2> points;
        size_t used = 0;
        points[used++] = {place.x_of(start), place.bottom};
        for (int bin = start; bin <= std::min(start + step, last); ++bin) {
            const int x = place.x_of(bin), y = place.y_of(counts[bin]);
            points[used++] = {x, y};
            points[used++] = {x + int_part(place.x_scale), y};
        }
        points[used] = {points[used - 1].x, place.bottom};
        assert(used < points.size());
        Polygon(Y_DC, points.data(), static_cast<int>(used + 1));
    }
}

void draw_range(const Tool_Histo& panel, const Geometry& place, float lower, float upper)
{
    const int first = bin_of(lower, *panel.histo), last = bin_of(upper, *panel.histo);
    const int start = int_part(static_cast<float>(first) * place.x_scale + static_cast<float>(place.left));
    const int end = int_part(static_cast<float>(last + 1) * place.x_scale + static_cast<float>(place.left));
    fill({std::min(start, end), place.bottom, std::max(start, end), place.bottom + place.height},
        checker(Current_Color));
    fill_bars(place, panel.Shown_Counts(), first, last);
}

void draw_ranges(const Tool_Histo& panel, const Geometry& place)
{
    static frame::Kept_Tag_Colors kept;
    const frame::Tag_Colors colors = kept.get();
    for (int i = 0; colors.complete() && i < panel.range_nb; ++i) {
        const unsigned short tag = panel.range_tag[i];
        if (tag >= most_tags)
            continue;
        Current_Color = frame::from_tag_words(colors.red[tag], colors.green[tag], colors.blue[tag]).get();
        draw_range(panel, place, panel.range_min[i], panel.range_max[i]);
    }
}

// ----------------------------------------------------------------------------------------------------- outline

COLORREF outline_color(const Tool_Histo& panel)
{
    constexpr COLORREF yellow = 0x00FFFF, red = 0x0000FF, green = 0x00FF00, blue = 0xFF0000;
    const Histo_Record& histogram = *panel.histo;
    switch (panel.color_component) {
    case 1:
        return histogram.red ? red : yellow;
    case 2:
        return histogram.green ? green : yellow;
    case 3:
        return histogram.blue ? blue : yellow;
    default:
        return yellow;
    }
}

// A line through many points of which only those are kept that can be seen: of the points in one column the first, the
// lowest, the highest and the last. It covers the same pixels.
class Column_Line {
public:
    void add(POINT point)
    {
        if (used_ && point.x == last_.x) {
            lowest_ = std::min(lowest_, point.y);
            highest_ = std::max(highest_, point.y);
        } else {
            end_column();
            keep(point);
            lowest_ = highest_ = point.y;
        }
        last_ = point;
    }

    void draw()
    {
        end_column();
        Polyline(Y_DC, points_.data(), static_cast<int>(used_));
    }

private:
    void keep(POINT point)
    {
        if (used_ && points_[used_ - 1].x == point.x && points_[used_ - 1].y == point.y)
            return;
        if (used_ == points_.size()) {
            Polyline(Y_DC, points_.data(), static_cast<int>(used_));
            points_[0] = points_[used_ - 1];
            used_ = 1;
        }
        points_[used_++] = point;
    }

    void end_column()
    {
        if (!used_)
            return;
        keep({last_.x, lowest_});
        keep({last_.x, highest_});
        keep(last_);
    }

    std::array<POINT, 4096> points_;
    size_t used_ = 0;
    POINT last_{};
    LONG lowest_ = 0;
    LONG highest_ = 0;
};

void draw_outline(const Tool_Histo& panel, const Geometry& place)
{
    const Selected pen(CreatePen(PS_SOLID, 1, outline_color(panel)));
    const unsigned* counts = panel.Shown_Counts();
    Column_Line line;
    line.add({place.left, place.bottom});
    for (int bin = 0; bin < panel.histo->nb_bins; ++bin)
        line.add({place.x_of(bin), place.y_of(counts[bin])});
    line.draw();
}

// ------------------------------------------------------------------------------------------------------ cursor

// Drawn a second time it is gone.
void toggle_line(const Tool_Histo& panel, int x)
{
    const frame::Drawing drawing(panel.window, "Histo_Cursor");
    const int bottom = panel.y + 1 + panel.border;
    const int height = panel.height - 2 * panel.border - 2;
    const int before = SetROP2(Y_DC, R2_XORPEN);
    {
        const Selected pen(CreatePen(PS_SOLID, 2, white));
        MoveToEx(Y_DC, x, bottom, nullptr);
        LineTo(Y_DC, x, bottom + height);
    }
    SetROP2(Y_DC, before ? before : R2_COPYPEN);
}

int color_bin(unsigned raw, unsigned char component)
{
    const auto red = static_cast<int>(raw & 0xff);
    const auto green = static_cast<int>(raw >> 8 & 0xff);
    const auto blue = static_cast<int>(raw >> 16 & 0xff);
    switch (component) {
    case 0:
        return std::max({red, green, blue});
    case 1:
        return red;
    case 2:
        return green;
    case 3:
        return blue;
    case 4:
        return red * 30 / 100 + green * 59 / 100 + blue * 11 / 100;
    default:
        return 0;
    }
}

// Of a colour frame the value itself, whatever the histogram's grid is.
int bin_under_pointer(const Tool_Histo& panel, Strato_2D_Frame* frame, int raw)
{
    if (frame->color)
        return color_bin(static_cast<unsigned>(raw), panel.color_component);
    return int_part((Fct_GLI_2_Float(frame, raw) - panel.histo->min) / panel.histo->width);
}

}

int Histo_Paint(Tool_Histo* panel)
{
    Error_Fct(hwnd, level::internal_trace, "in Histo_Paint()");
    if (!panel->Ready())
        return 0;
    const Tool_Histo& box = *panel;
    const frame::Drawing drawing(panel->window, "Histo_Paint");
    fill({box.x + box.border + 1, box.y + box.border, box.x + box.width - box.border,
             box.y + box.height - box.border - 1},
        CreateSolidBrush(black));
    panel->cursor_x = -1;
    const Geometry place(*panel);
    if (place.empty())
        return 1;
    draw_ranges(*panel, place);
    draw_outline(*panel, place);
    return 1;
}

int Histo_Cursor(Tool_Histo* panel)
{
    Error_Fct(hwnd, level::internal_trace, "in Histo_Cursor()");
    if (!panel->histo)
        return 0;
    if (panel->cursor_x != 0) {
        toggle_line(*panel, panel->cursor_x);
        panel->cursor_x = 0;
    }
    if (!panel->Ready())
        return 0;
    static frame::Kept_Address<Strato_2D_Frame*> frame_over("$FRAME_OVR");
    static frame::Kept_Address<float> mouse("$MOUSE_FRM");
    Strato_2D_Frame* const frame = frame_over.value();
    const float* const position = mouse.get(); // x and y are the second and the third number
    if (!frame || !position)
        return 0;
    const int raw = frame->Value_Get(
        {position[1], position[2], static_cast<float>(frame->index_z), static_cast<float>(frame->index_t)});
    if (raw == Strato_2D_Frame::no_value || raw == Strato_2D_Frame::no_value_yet)
        return 1;
    const Geometry place(*panel);
    const int bin = std::clamp(bin_under_pointer(*panel, frame, raw), 0, panel->histo->nb_bins - 1);
    const int x = int_part(static_cast<float>(bin) * place.x_scale + static_cast<float>(place.left));
    toggle_line(*panel, x);
    panel->cursor_x = x;
    return 1;
}
