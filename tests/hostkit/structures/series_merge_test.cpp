#include "histo/tool_histo.h"
#include "tests/hostkit/structures/made_series.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

using namespace test;

namespace {

// The panel adds up the frames of series that are made at random.
template <class Pixel>
class MergedSeries : public Made_Series {
protected:
    static constexpr int count = 3;

    MergedSeries() { hostkit::Variable<unsigned short>("$GLI_HISTO_BINS_MAX") = 65535; }

    // Of a random width, anywhere in the range of the type; both ends are there.
    std::vector<Pixel> random_pixels()
    {
        std::vector<Pixel> pixels(count * 50);
        if constexpr (std::is_floating_point_v<Pixel>) {
            const double scale = std::pow(10.0, between(-12, 12));
            std::uniform_real_distribution<double> values(scale * between(-1, 1), scale * between(1, 2));
            for (Pixel& pixel : pixels)
                pixel = static_cast<Pixel>(values(random));
        } else {
            using Limits = std::numeric_limits<Pixel>;
            std::uniform_int_distribution<std::int64_t> anywhere(Limits::min(), Limits::max());
            const std::int64_t first = anywhere(random);
            const auto span = static_cast<std::int64_t>(std::exp2(between(0, 8 * sizeof(Pixel))));
            std::uniform_int_distribution<std::int64_t> in_span(
                first, std::min<std::int64_t>(first + span, Limits::max()));
            for (Pixel& pixel : pixels)
                pixel = static_cast<Pixel>(in_span(random));
        }
        return pixels;
    }

    double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }

    std::mt19937 random{20240517};
    Tool_Histo panel;
};

using Pixels = ::testing::Types<std::uint8_t, std::int8_t, std::uint16_t, std::int16_t, std::uint32_t, std::int32_t,
    float, double>;
TYPED_TEST_SUITE(MergedSeries, Pixels);

}

TYPED_TEST(MergedSeries, NoPixelIsDropped)
{
    for (int i = 0; i < 150; ++i) {
        const auto pixels = this->random_pixels();
        const double slope = (i % 2 ? -1 : 1) * std::pow(10.0, this->between(-16, 8));
        const double intercept = i % 3 ? this->between(-40000, 40000) : 0;
        this->make(pixels, slope, intercept, this->count);
        this->panel.Update(0x102);
        ASSERT_TRUE(this->panel.Ready());
        ASSERT_EQ(sum_of(*this->panel.histo), pixels.size()) << "slope " << slope << ", intercept " << intercept;
    }
}

// Grey values that single precision keeps apart.
TYPED_TEST(MergedSeries, AValueIsLookedForWhereItWasCounted)
{
    for (int i = 0; i < 150; ++i) {
        const auto pixels = this->random_pixels();
        const double slope = (i % 2 ? -1 : 1) * std::pow(10.0, this->between(-2, 2));
        this->make(pixels, slope, i % 3 ? this->between(-100, 100) : 0, this->count);
        const Histo_Record& grid = this->histogram();
        const float reach = std::max(std::abs(grid.min), std::abs(grid.min + grid.width * grid.nb_bins));
        if (grid.width < reach * 1e-5f)
            continue;
        for (std::size_t z = 0; z < this->frames.size(); ++z) {
            std::vector<unsigned> looked_up(grid.nb_bins);
            for (int x = 0; x < 50; ++x)
                ++looked_up.at(static_cast<std::size_t>(bin_of(grid, this->grey(x, z))));
            ASSERT_EQ(looked_up, counts_of(this->histogram(z))) << "slope " << slope;
        }
    }
}

namespace {

class MergedColours : public Made_Series {};
class MergedFrames : public Made_Series {};

}

TEST_F(MergedColours, KeepTheirComponents)
{
    const std::vector<Rgb> pixels{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {7, 8, 9}};
    make(pixels, 1, 0, 2);
    Tool_Histo panel;
    panel.Update(0x102);
    ASSERT_TRUE(panel.Ready());
    EXPECT_EQ(panel.histo->nb_bins, 257);
    EXPECT_EQ(panel.histo->red[7], 2u);
    EXPECT_EQ(panel.histo->green[2], 1u);
    EXPECT_EQ(panel.histo->blue[6], 1u);
    EXPECT_EQ(panel.histo->max_component[9], 2u);
    EXPECT_EQ(sum_of(*panel.histo), 4u);
}

TEST_F(MergedFrames, FullTwelveBitDataKeepABinALevel)
{
    std::vector<std::uint16_t> pixels(4096);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint16_t>(i);
    make(pixels, 1, -1024, 2, "HU");
    Tool_Histo panel;
    panel.Update(0x102);
    ASSERT_TRUE(panel.Ready());
    EXPECT_EQ(panel.histo->nb_bins, 4097);
    for (int bin = 0; bin < 4096; ++bin)
        ASSERT_EQ(panel.histo->count[bin], 1u);
    EXPECT_STREQ(panel.x_unit, "HU");
}

TEST_F(MergedFrames, OnlySelectedOnesAreAdded)
{
    const std::vector<std::uint8_t> pixels{0, 1, 2, 9};
    make(pixels, 1, 0, 4);
    for (const std::size_t z : {0u, 3u})
        frames[z]->Flag_Set_Off(16, reinterpret_cast<void*>(std::uintptr_t{4}), 512);
    Tool_Histo panel;
    panel.Update(0x102);
    EXPECT_EQ(counts_of(*panel.histo), (std::vector<unsigned>{0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
}
