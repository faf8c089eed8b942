#include "host/charts.h"

#include "hostkit/charts/axis_font.h"
#include "hostkit/charts/ticks.h"
#include "hostkit/gadgets/paint.h"

#include <cmath>
#include <exception>

using hostkit::Area;
using hostkit::Ticks;

namespace {

constexpr int most_intervals = 10;
constexpr int tick_length = 4;

std::string with_unit(const char* title, const char* unit)
{
    std::string text = title ? title : "";
    if (unit && *unit)
        text += (text.empty() ? "[" : " [") + std::string(unit) + "]";
    return text;
}

// What both axes draw with.
class Axis {
public:
    Axis(const Boxs& box, const Plot_Area& plot, short font_scale, const char* caller)
        : paint_(box.window, caller), box_(hostkit::area_of(box)), plot_{plot.x, plot.y, plot.width, plot.height},
          font_(hostkit::Axis_Font(std::max<short>(font_scale, 1))), line_height_(paint_.line_height(font_)),
          ink_(box.text), line_(hostkit::blend(box.text, box.back, 120)), grid_(hostkit::blend(box.text, box.back, 30))
    {
    }

    void draw_x(const std::string& title, double from, double to) const;
    void draw_y(const std::string& title, double from, double to) const;

private:
    Ticks x_ticks(double from, double to) const;
    bool labels_are_apart(const Ticks& ticks, double pixels_per_step) const;
    int width_of(const std::string& text) const { return paint_.text_width(text, font_); }
    void write(const Area& area, const std::string& text) const;

    hostkit::Paint paint_;
    Area box_;
    Area plot_;
    HFONT font_;
    int line_height_;
    Colors ink_;
    Colors line_;
    Colors grid_;
};

// Leaves out what would leave the box.
void Axis::write(const Area& area, const std::string& text) const
{
    const bool fits = area.x >= box_.x && area.y >= box_.y && area.x + area.width <= box_.x + box_.width &&
                      area.y + area.height <= box_.y + box_.height;
    if (fits)
        paint_.text(area, text.c_str(), font_, ink_);
}

int place_of(double value, double from, double to, int pixels)
{
    return static_cast<int>(std::lround((value - from) / (to - from) * pixels));
}

// ----------------------------------------------------------------------------------------------------- horizontal

bool Axis::labels_are_apart(const Ticks& ticks, double pixels_per_step) const
{
    for (int index = 1; index < ticks.count; ++index) {
        const int both = width_of(Tick_Label(ticks, index - 1)) + width_of(Tick_Label(ticks, index));
        if (both / 2 + line_height_ > pixels_per_step)
            return false;
    }
    return true;
}

Ticks Axis::x_ticks(double from, double to) const
{
    const double range = to - from;
    const double least = range * std::max(1.0 / most_intervals, static_cast<double>(line_height_) / plot_.width);
    for (auto step = hostkit::Round_Step_Of(least);; step = step.next()) {
        const Ticks ticks = hostkit::Ticks_In(from, to, step);
        const double length = ticks.count > 1 ? Tick_Value(ticks, 1) - Tick_Value(ticks, 0) : range;
        if (ticks.count <= 1 || labels_are_apart(ticks, length / range * plot_.width))
            return ticks;
    }
}

// The numbers begin below the lower half of one at the corner of the other axis.
void Axis::draw_x(const std::string& title, double from, double to) const
{
    const Ticks ticks = x_ticks(from, to);
    const int labels = plot_.y - std::max(tick_length + 3, line_height_ / 2 + 2) - line_height_;
    for (int index = 0; index < ticks.count; ++index) {
        const int x = plot_.x + place_of(Tick_Value(ticks, index), from, to, plot_.width);
        paint_.fill({x, plot_.y, 1, plot_.height}, grid_);
        paint_.fill({x, plot_.y - 1 - tick_length, 1, tick_length}, line_);
        const std::string label = Tick_Label(ticks, index);
        const int width = width_of(label);
        write({x - width / 2, labels, width, line_height_}, label);
    }
    paint_.fill({plot_.x - 1, plot_.y - 1, plot_.width + 2, 1}, line_);
    const int room = labels - box_.y;
    if (room >= line_height_)
        paint_.centred_text(
            {plot_.x, box_.y + (room - line_height_) / 2, plot_.width, line_height_}, title.c_str(), font_, ink_);
}

// ------------------------------------------------------------------------------------------------------- vertical

// The title stands above the axis, where it is read without turning one's head and leaves the numbers their room.
void Axis::draw_y(const std::string& title, double from, double to) const
{
    const double range = to - from;
    const double least = range * std::max(1.0 / most_intervals, 2.0 * line_height_ / plot_.height);
    const Ticks ticks = hostkit::Ticks_In(from, to, hostkit::Round_Step_Of(least));
    const int right = plot_.x - 1 - tick_length - 3;
    for (int index = 0; index < ticks.count; ++index) {
        const int y = plot_.y + place_of(Tick_Value(ticks, index), from, to, plot_.height);
        paint_.fill({plot_.x, y, plot_.width, 1}, grid_);
        paint_.fill({plot_.x - 1 - tick_length, y, tick_length, 1}, line_);
        const std::string label = Tick_Label(ticks, index);
        const int width = width_of(label);
        write({right - width, y - line_height_ / 2, width, line_height_}, label);
    }
    paint_.fill({plot_.x - 1, plot_.y - 1, 1, plot_.height + 2}, line_);
    const int top = plot_.y + plot_.height + 1;
    const int room = box_.y + box_.height - top;
    if (room >= line_height_)
        paint_.text({plot_.x, top, box_.x + box_.width - plot_.x, line_height_}, title.c_str(), font_, ink_);
}

bool can_be_drawn(const Boxs* box, float from, float to)
{
    if (!box || !box->window || !std::isfinite(from) || !std::isfinite(to) || !(from < to))
        return false;
    const Plot_Area plot = Plot_Area_Of(*box);
    return plot.width > 0 && plot.height > 0;
}

// Drawing has no result: what there is no memory for is not drawn.
template <class Work>
void without_throwing(const Work& work)
{
    try {
        work();
    } catch (const std::exception&) {
    }
}

}

void Plot_Window_Axes_X(Boxs* box, int, short font_scale, const char* x_title, const char* x_unit, const char*,
    const char*, float from, float to)
{
    if (!can_be_drawn(box, from, to))
        return;
    without_throwing([&] {
        Axis(*box, Plot_Area_Of(*box), font_scale, "Plot_Window_Axes_X").draw_x(with_unit(x_title, x_unit), from, to);
    });
}

void Plot_Window_Axes_Y(Boxs* box, int, short font_scale, const char*, const char*, const char* y_title,
    const char* y_unit, float from, float to)
{
    if (!can_be_drawn(box, from, to))
        return;
    without_throwing([&] {
        Axis(*box, Plot_Area_Of(*box), font_scale, "Plot_Window_Axes_Y").draw_y(with_unit(y_title, y_unit), from, to);
    });
}
