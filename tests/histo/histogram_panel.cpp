#include "tests/histo/histogram_panel.h"

#include "hostkit/structures/tree.h"

#include <numeric>

namespace test {

Histogram_Panel::Histogram_Panel()
{
    reports.clear();
}

Histogram_Panel::~Histogram_Panel()
{
    free_counts();
}

void Histogram_Panel::free_counts()
{
    if (!panel.histo)
        return;
    for (auto array : {&Histo_Record::count, &Histo_Record::red, &Histo_Record::green, &Histo_Record::blue,
             &Histo_Record::max_component}) {
        delete[](panel.histo->*array);
        panel.histo->*array = nullptr;
    }
}

void Histogram_Panel::lay_out(int x, int y, int width, int height, short border)
{
    area.window = main_window();
    area.x = static_cast<short>(x);
    area.y = static_cast<short>(y);
    area.width = static_cast<short>(width);
    area.height = static_cast<short>(height);
    area.border = border;
    area.state = 66;
    area.frame = frame;
    area.back = back;
    area.text = text;
    EXPECT_EQ(panel.Resize(&area), 1);
    panel.Draw();
    reports.clear();
}

void Histogram_Panel::give(const Histogram& histogram)
{
    free_counts();
    panel.histo = panel_record(histogram);
}

std::vector<int> Histogram_Panel::columns_with(Colors color, int y) const
{
    std::vector<int> found;
    for (int x = panel.x; x < panel.x + panel.width; ++x) {
        if (at(x, y) == color)
            found.push_back(x);
    }
    return found;
}

std::vector<int> Histogram_Panel::rows_with(Colors color, int x) const
{
    std::vector<int> found;
    for (int y = panel.y; y < panel.y + panel.height; ++y) {
        if (at(x, y) == color)
            found.push_back(y);
    }
    return found;
}

std::vector<std::string> Histogram_Panel::traces() const
{
    std::vector<std::string> found;
    for (const std::string& line : reports.lines()) {
        if (line.starts_with("16 ") || line.starts_with("17 "))
            found.push_back(line);
    }
    return found;
}

std::vector<int> all_from(int first, int end)
{
    std::vector<int> numbers(static_cast<size_t>(end - first));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

}
