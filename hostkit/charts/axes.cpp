#include "host/charts.h"

#include "hostkit/charts/axis_font.h"
#include "hostkit/charts/ticks.h"
#include "hostkit/gadgets/paint.h"

#include <cmath>
#include <exception>
#include <utility>

using hostkit::Area;
using hostkit::Round_Step;
using hostkit::Ticks;

namespace {

constexpr int tick_length = 4;
constexpr int label_distance = 1 + tick_length + 3; // from the plot

std::string with_unit(const char* title, const char* unit)
{
    std::string text = title ? title : "";
    if (unit && *unit)
        text += (text.empty() ? "[" : " [") + std::string(unit) + "]";
    return text;
}

// A tick: where it is, counted from the plot's corner, and its number.
struct Mark {
    int place;
    int width; // of the number
    std::string label;
};

// What both axes draw with.
class Axis {
public:
    Axis(const Boxs& box, const Plot_Area& plot, short font_scale, const char* caller)
        : paint_(box.window, caller), box_(hostkit::area_of(box)), plot_{plot.x, plot.y, plot.width, plot.height},
          font_(fitting_font(font_scale)), line_height_(paint_.line_height(font_)), ink_(box.text),
          line_(hostkit::blend(box.text, box.back, 120)), grid_(hostkit::blend(box.text, box.back, 30))
    {
    }

    void draw_x(const std::string& title, double from, double to) const;
    void draw_y(const std::string& title, double from, double to) const;

private:
    HFONT fitting_font(short scale) const;
    std::vector<Mark> marks(double from, double to, Round_Step step, int pixels) const;
    std::vector<Mark> x_marks(double from, double to) const;
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

// The margins do not grow with the font: one that is too large for them yields to a smaller one, so that the titles
// are there.
HFONT Axis::fitting_font(short scale) const
{
    constexpr short least_scale = 6;
    const int above = box_.y + box_.height - plot_.y - plot_.height - 1;
    const int below = (plot_.y - box_.y - label_distance) / 2;
    HFONT font = hostkit::Axis_Font(std::max(scale, least_scale));
    while (--scale >= least_scale && paint_.line_height(font) > std::min(above, below))
        font = hostkit::Axis_Font(scale);
    return font;
}

// Leaves out what would leave the box.
void Axis::write(const Area& area, const std::string& text) const
{
    const bool fits = area.x >= box_.x && area.y >= box_.y && area.x + area.width <= box_.x + box_.width &&
                      area.y + area.height <= box_.y + box_.height;
    if (fits)
        paint_.text(area, text.c_str(), font_, ink_);
}

std::vector<Mark> Axis::marks(double from, double to, Round_Step step, int pixels) const
{
    const Ticks ticks = hostkit::Ticks_In(from, to, step);
    std::vector<Mark> result;
    for (std::string& label : hostkit::Tick_Labels(ticks)) {
        const double share = (Tick_Value(ticks, static_cast<int>(result.size())) - from) / (to - from);
        const int width = paint_.text_width(label, font_);
        result.push_back({static_cast<int>(std::lround(share * pixels)), width, std::move(label)});
    }
    return result;
}

// The smallest step of at most ten in the range that leaves `room` pixels a mark.
Round_Step first_step(double from, double to, double room, int pixels)
{
    constexpr double most = 10;
    return hostkit::Round_Step_Of((to - from) * std::max(1 / most, room / pixels));
}

// ----------------------------------------------------------------------------------------------------- horizontal

int label_start(const Mark& mark)
{
    return mark.place - mark.width / 2;
}

bool are_apart(const std::vector<Mark>& marks, int gap)
{
    return std::adjacent_find(marks.begin(), marks.end(), [=](const Mark& one, const Mark& next) {
        return label_start(one) + one.width + gap > label_start(next);
    }) == marks.end();
}

std::vector<Mark> Axis::x_marks(double from, double to) const
{
    Round_Step step = first_step(from, to, line_height_, plot_.width);
    std::vector<Mark> result = marks(from, to, step, plot_.width);
    while (!are_apart(result, line_height_)) {
        step = step.next();
        result = marks(from, to, step, plot_.width);
    }
    return result;
}

// The numbers begin below the lower half of one that the other axis may have at the corner.
void Axis::draw_x(const std::string& title, double from, double to) const
{
    const int labels_y = plot_.y - std::max(label_distance, line_height_ / 2 + 2) - line_height_;
    for (const Mark& mark : x_marks(from, to)) {
        const int x = plot_.x + mark.place;
        paint_.fill({x, plot_.y, 1, plot_.height}, grid_);
        paint_.fill({x, plot_.y - 1 - tick_length, 1, tick_length}, line_);
        write({plot_.x + label_start(mark), labels_y, mark.width, line_height_}, mark.label);
    }
    paint_.fill({plot_.x - 1, plot_.y - 1, plot_.width + 2, 1}, line_);

    const int room = labels_y - box_.y;
    const Area& across = paint_.text_width(title, font_) <= plot_.width ? plot_ : box_;
    if (room >= line_height_)
        paint_.centred_text(
            {across.x, box_.y + (room - line_height_) / 2, across.width, line_height_}, title.c_str(), font_, ink_);
}

// ------------------------------------------------------------------------------------------------------- vertical

// The title stands above the axis, where it is read without turning one's head and leaves the numbers their room.
void Axis::draw_y(const std::string& title, double from, double to) const
{
    const Round_Step step = first_step(from, to, 2 * line_height_, plot_.height);
    const int labels_end = plot_.x - label_distance;
    for (const Mark& mark : marks(from, to, step, plot_.height)) {
        const int y = plot_.y + mark.place;
        paint_.fill({plot_.x, y, plot_.width, 1}, grid_);
        paint_.fill({plot_.x - 1 - tick_length, y, tick_length, 1}, line_);
        write({labels_end - mark.width, y - line_height_ / 2, mark.width, line_height_}, mark.label);
    }
    paint_.fill({plot_.x - 1, plot_.y - 1, 1, plot_.height + 2}, line_);

    const int top = plot_.y + plot_.height + 1;
    if (box_.y + box_.height - top >= line_height_)
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
