#include "tests/tools/brush_panel_fixture.h"

#include <algorithm>

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace test {

std::vector<std::string> shape(unsigned brush)
{
    const int side = 2 * Variable<unsigned short>("$BRUSH_RADIUS") + 1;
    unsigned char** const rows = Array_Variable<unsigned char**>("$BRUSH_PT")[brush];
    std::vector<std::string> result;
    for (int y = 0; y < side; ++y) {
        result.emplace_back();
        for (int x = 0; x < side; ++x)
            result.back() += static_cast<char>('0' + rows[y][x]);
    }
    return result;
}

int points(unsigned brush)
{
    int count = 0;
    for (const std::string& row : shape(brush))
        count += static_cast<int>(std::count(row.begin(), row.end(), '1'));
    return count;
}

void set_brushes(std::initializer_list<unsigned short> radii)
{
    EXPECT_TRUE(hostkit::Brushes_Set({radii.begin(), radii.size()}));
}

}

BrushPanel::BrushPanel() : reference_window_(make_reference_window()) {}

BrushPanel::~BrushPanel()
{
    DestroyWindow(reference_window_);
}

void BrushPanel::lay_out(Tool_Brush& panel, Extent place, short border)
{
    set_area(area, main_window(), place, 66, border);
    EXPECT_EQ(panel.Resize(&area), 1);
    panel.Draw();
    reports.clear();
}

Extent BrushPanel::button(int brush) const
{
    const int count = std::min<int>(Variable<unsigned short>("$BRUSH_NB"), 8);
    const int space = Variable<short>("$INTERFACE_SPACE_DIM");
    const int width = (area.width - 2 * space) / count;
    return {area.x + space + brush * width, area.y + space, width, area.height - 2 * space};
}

int BrushPanel::click_at(Tool_Brush& panel, Place place, int up_down)
{
    point(main_window(), place);
    return panel.Click(up_down);
}

int BrushPanel::click_on(Tool_Brush& panel, int brush, int up_down)
{
    return click_at(panel, middle(button(brush)), up_down);
}

void BrushPanel::leave(Tool_Brush& panel)
{
    point(main_window(), {700, 700});
    panel.Motion(0);
    panel.Leave();
}

namespace {

// The rules of the pictures once more, point by point.
class Picture_Rules {
public:
    Picture_Rules(Buttons& button, int largest)
        : width_(button.width),
          height_(button.height), pictures_{button.Picture(1), button.Picture(2), button.Picture(3), button.Picture(4)}
    {
        const auto side = static_cast<float>(2 * largest + 1);
        const int edge = 2 * BORDER + 4;
        scale_ = std::max(side / static_cast<float>(width_ - edge), side / static_cast<float>(height_ - edge));
        const float drawn = side / scale_;
        margin_x_ = static_cast<int>((static_cast<float>(width_) - drawn) / 2);
        margin_y_ = static_cast<int>((static_cast<float>(height_) - drawn) / 2);
    }

    void paint_disc(int size, unsigned color)
    {
        const float radius = static_cast<float>(size) / scale_;
        const auto limit = static_cast<short>(static_cast<int>(radius * radius));
        const int half_width = (width_ & ~1) / 2, half_height = (height_ & ~1) / 2;
        for (int y = 1 - half_height; y < half_height; ++y) {
            for (int x = 1 - half_width; x < half_width; ++x) {
                if (x * x + y * y <= limit)
                    paint(half_width + x, half_height + y, color);
            }
        }
    }

    void outline()
    {
        for_square([this](int x, int y) {
            if (!is_disc(x, y) && touches_disc(x, y))
                at(3, x, y) = 0;
        });
        for_square([this](int x, int y) {
            if (at(3, x, y) == 0)
                at(1, x, y) = at(2, x, y) = at(4, x, y) = 0;
        });
    }

private:
    template <class Function>
    void for_square(Function function)
    {
        for (int y = std::max(margin_y_ - 1, 0); y <= std::min(height_ - margin_y_, height_ - 1); ++y) {
            for (int x = std::max(margin_x_ - 1, 0); x <= std::min(width_ - margin_x_, width_ - 1); ++x)
                function(x, y);
        }
    }

    unsigned& at(int picture, int x, int y) { return pictures_[picture - 1][y * width_ + x]; }
    bool is_disc(int x, int y) { return at(4, x, y) == at(2, x, y); }

    bool touches_disc(int x, int y)
    {
        for (int beside_y = std::max(y - 1, 0); beside_y <= std::min(y + 1, height_ - 1); ++beside_y) {
            for (int beside_x = std::max(x - 1, 0); beside_x <= std::min(x + 1, width_ - 1); ++beside_x) {
                if (is_disc(beside_x, beside_y))
                    return true;
            }
        }
        return false;
    }

    void paint(int x, int y, unsigned color)
    {
        for (int picture = 1; picture <= 4; ++picture)
            at(picture, x, y) = color;
    }

    int width_;
    int height_;
    unsigned* pictures_[4];
    float scale_ = 1;
    int margin_x_ = 0;
    int margin_y_ = 0;
};

}

bool BrushPanel::shows(int brush, Colors color, State state)
{
    const unsigned short* sizes = Array_Variable<unsigned short>("$BRUSH_SIZE");
    const int count = std::min<int>(Variable<unsigned short>("$BRUSH_NB"), 8);
    const Extent place = button(brush);
    Buttons reference;
    reference.x = static_cast<short>(place.x);
    reference.y = static_cast<short>(place.y);
    reference.width = static_cast<short>(place.width);
    reference.height = static_cast<short>(place.height);
    reference.border = area.border;
    reference.frame = area.frame;
    reference.back = area.back;
    reference.text = area.text;
    reference.Init(reference_window_);

    const int edge = 2 * BORDER + 4;
    if (place.width > edge && place.height > edge) {
        Picture_Rules rules(reference, *std::max_element(sizes, sizes + count));
        rules.paint_disc(sizes[brush], unsigned{color.red} << 16 | unsigned{color.green} << 8 | color.blue);
        rules.outline();
    }
    reference.cur = state == State::current;
    point(reference_window_, state == State::highlighted || state == State::held ? middle(place) : Place{700, 700});
    reference.Select(state == State::held ? 17 : 0);
    reference.Draw();
    return picture(main_window(), place) == picture(reference_window_, place);
}

std::vector<std::string> BrushPanel::traces() const
{
    std::vector<std::string> result;
    for (const Report& report : reports.all())
        result.push_back(std::to_string(report.level) + ' ' + report.text);
    return result;
}
