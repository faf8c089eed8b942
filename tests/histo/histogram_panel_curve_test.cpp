#include "tests/histo/histogram_panel.h"

#include <random>

// The curve, pixel by pixel: the panel joins only what can be seen of it.

using namespace test;

namespace {

class HistogramCurve : public Histogram_Panel {
protected:
    HistogramCurve()
    {
        reference_ = CreateWindowExA(0, "Vetra test", "", WS_OVERLAPPEDWINDOW, 0, 0, 800, 800, nullptr, nullptr,
            GetModuleHandleA(nullptr), nullptr);
        ShowWindow(reference_, SW_SHOW);
    }
    ~HistogramCurve() override { DestroyWindow(reference_); }

    /// Whether the panel shows what joining all points of the curve draws.
    ::testing::AssertionResult shows_all_of(const Counts& counts)
    {
        give(counts);
        lay_out();
        draw_all(counts);
        for (int y = bottom; y <= bottom + inner_height; ++y) {
            for (int x = left; x < left + inner_width; ++x) {
                const bool drawn = at(x, y) == yellow, wanted = pixel(reference_, {x, y}) == yellow;
                if (drawn != wanted)
                    return ::testing::AssertionFailure()
                           << (drawn ? "a pixel too many at " : "a pixel is missing at ") << x << ',' << y;
            }
        }
        return ::testing::AssertionSuccess();
    }

private:
    void draw_all(const Counts& counts) const
    {
        const float x_scale = static_cast<float>(inner_width) / static_cast<float>(counts.size());
        const float y_scale = static_cast<float>(inner_height) / static_cast<float>(panel.histo->max_count);
        std::vector<POINT> points{{left, bottom}};
        for (size_t bin = 0; bin < counts.size(); ++bin) {
            points.push_back({left + static_cast<int>(static_cast<float>(bin) * x_scale),
                bottom + static_cast<int>(static_cast<float>(counts[bin]) * y_scale)});
        }
        Y_setup(reference_, "test");
        const RECT everything{0, 0, 800, 800};
        const HBRUSH ground = CreateSolidBrush(0);
        FillRect(Y_DC, &everything, ground);
        DeleteObject(ground);
        const HPEN pen = CreatePen(PS_SOLID, 1, RGB(255, 255, 0));
        const HGDIOBJ before = SelectObject(Y_DC, pen);
        Polyline(Y_DC, points.data(), static_cast<int>(points.size()));
        SelectObject(Y_DC, before);
        DeleteObject(pen);
        Y_release();
    }

    HWND reference_;
};

}

// In these, what leads from one column to the next is level: how slanted lines are rounded is the platform's.
constexpr size_t bins_in_column = 4;

TEST_F(HistogramCurve, OfManyBinsInAColumnIsThatOfAllOfThem)
{
    std::mt19937 random(3);
    for (int round = 0; round < 5; ++round) {
        Counts counts(inner_width * bins_in_column, 500u);
        for (size_t bin = 1; bin < counts.size(); ++bin)
            counts[bin] = bin % bins_in_column ? static_cast<unsigned>(random() % 1000) : counts[bin - 1];
        EXPECT_TRUE(shows_all_of(counts));
    }
}

TEST_F(HistogramCurve, EndsBeforeItsLastPointAndNoEarlier)
{
    const std::vector<Counts> ends{{10, 50, 90}, {90, 50, 10}, {50, 90, 10}, {50, 10, 90}, {10, 90, 10}, {90, 10, 90},
        {10, 90, 50}, {30, 30, 30}, {90, 90, 10}, {10, 10, 90}, {30, 90, 30}, {30, 10, 30}};
    for (const Counts& end : ends) {
        Counts counts(inner_width * bins_in_column, 30u);
        counts[1] = 100;
        std::copy(end.begin(), end.end(), counts.end() - 3);
        EXPECT_TRUE(shows_all_of(counts)) << end[0] << ' ' << end[1] << ' ' << end[2];
    }
}
