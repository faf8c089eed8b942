#include "tests/hostkit/structures/made_series.h"

#include <cmath>
#include <cstdint>
#include <limits>

using namespace test;

namespace {

class SeriesHistogram : public Made_Series {
protected:
    void expect_grid(int bins, float min, float width)
    {
        EXPECT_EQ(histogram().nb_bins, bins);
        EXPECT_EQ(histogram().min, min);
        EXPECT_EQ(histogram().width, width);
        EXPECT_EQ(histogram().flags & 1, 0);
        EXPECT_EQ(histogram().red, nullptr);
    }
};

using Counts = std::vector<unsigned>;

template <class Pixel>
class OfWholeNumbers : public SeriesHistogram {
};
using Whole_Numbers =
    ::testing::Types<std::uint8_t, std::int8_t, std::uint16_t, std::int16_t, std::uint32_t, std::int32_t>;
TYPED_TEST_SUITE(OfWholeNumbers, Whole_Numbers);

}

TYPED_TEST(OfWholeNumbers, HasABinForEachLevel)
{
    const std::vector<TypeParam> pixels{7, 3, 3, 5, 7, 7};
    this->make(pixels);
    this->expect_grid(5, 3, 1);
    EXPECT_EQ(counts_of(this->histogram()), (Counts{2, 0, 1, 0, 3}));
    EXPECT_EQ(this->histogram().max_count, 3u);
}

TYPED_TEST(OfWholeNumbers, FramesHaveOneGrid)
{
    const std::vector<TypeParam> pixels{1, 2, 4, 4};
    this->make(pixels, 2, -10, 2);
    for (const std::size_t z : {0u, 1u}) {
        EXPECT_EQ(this->histogram(z).min, -8);
        EXPECT_EQ(this->histogram(z).width, 2);
    }
    EXPECT_EQ(counts_of(this->histogram(0)), (Counts{1, 1, 0, 0}));
    EXPECT_EQ(counts_of(this->histogram(1)), (Counts{0, 0, 0, 2}));
    EXPECT_EQ(this->histogram(0).max_count, 1u);
    EXPECT_EQ(this->histogram(1).max_count, 2u);
}

TYPED_TEST(OfWholeNumbers, ANegativeSlopeTurnsThemRound)
{
    const std::vector<TypeParam> pixels{10, 12, 12, 13};
    this->make(pixels, -0.5, 1);
    this->expect_grid(4, -5.5f, 0.5f);
    EXPECT_EQ(counts_of(this->histogram()), (Counts{1, 2, 0, 1}));
    EXPECT_EQ(this->grey(0), -4);
    EXPECT_EQ(this->grey(3), -5.5f);
}

TYPED_TEST(OfWholeNumbers, OfOneValueHaveABinOfWidthOne)
{
    const std::vector<TypeParam> pixels(20, 100);
    this->make(pixels, 0.25, -3, 2);
    this->expect_grid(1, 22, 1);
    EXPECT_EQ(counts_of(this->histogram()), (Counts{10}));
}

TYPED_TEST(OfWholeNumbers, TheWholeRangeIsKeptWithin65535Bins)
{
    using Limits = std::numeric_limits<TypeParam>;
    const std::vector<TypeParam> pixels{Limits::min(), Limits::min(), Limits::max()};
    this->make(pixels);
    const std::int64_t levels = std::int64_t{Limits::max()} - Limits::min() + 1;
    const std::int64_t per_bin = (levels + 65534) / 65535;
    EXPECT_EQ(this->histogram().nb_bins, (levels + per_bin - 1) / per_bin);
    EXPECT_EQ(this->histogram().count[0], 2u);
    EXPECT_EQ(this->histogram().count[this->histogram().nb_bins - 1], 1u);
    if (sizeof(TypeParam) < 4) {
        EXPECT_EQ(this->histogram().width, static_cast<float>(per_bin));
        EXPECT_EQ(this->histogram().min, static_cast<float>(Limits::min()));
    } else {
        EXPECT_LE(this->histogram().min + 65535 * this->histogram().width, 1.001e6f);
    }
}

TEST_F(SeriesHistogram, OfFloatsHas4096BinsFromTheSmallestToTheLargest)
{
    const std::vector<float> pixels{-1024, 0, 3072, 3071.5f, 1, 1.5f};
    make(pixels);
    expect_grid(4096, -1024, 1);
    EXPECT_EQ(histogram().count[0], 1u);
    EXPECT_EQ(histogram().count[1024], 1u);
    EXPECT_EQ(histogram().count[1025], 2u);
    EXPECT_EQ(histogram().count[4095], 2u) << "the largest is in the last bin";
}

TEST_F(SeriesHistogram, OfFloatsWithASlope)
{
    const std::vector<double> pixels{0, 512, 1024};
    make(pixels, -4, 100);
    expect_grid(4096, -3996, 1);
    EXPECT_EQ(histogram().count[2048], 1u);
}

TEST_F(SeriesHistogram, FloatsOfOneValueHaveABinOfWidthOne)
{
    const std::vector<float> pixels(6, 0.125f);
    make(pixels);
    expect_grid(1, 0.125f, 1);
    EXPECT_EQ(counts_of(histogram()), (Counts{6}));
}

TEST_F(SeriesHistogram, ASmallRangeIsMultipliedByAPowerOfTenThatTheUnitNames)
{
    const std::vector<float> pixels{0, 0.5f, 1};
    make(pixels, 1, 0, 3, "mm/s");
    EXPECT_STREQ(frames[1]->unit, "mm/s");
    expect_grid(4096, 0, 1000.f / 4096);
    for (const auto* frame : frames)
        EXPECT_STREQ(frame->unit, "10^-3 mm/s");
    EXPECT_EQ(hostkit::Series_Grey_Factor(series), 1000);
    EXPECT_EQ(grey(0, 1), 500);
}

TEST_F(SeriesHistogram, LargeValuesAreDividedByAPowerOfTen)
{
    const std::vector<double> pixels{0, 5e9};
    make(pixels);
    EXPECT_STREQ(frames[0]->unit, "");
    EXPECT_EQ(histogram().min, 0);
    EXPECT_STREQ(frames[0]->unit, "10^4");
    EXPECT_FLOAT_EQ(histogram().width, 5e5f / 4096);
    EXPECT_FLOAT_EQ(grey(1), 5e5f);
    const std::vector<std::int32_t> whole{0, 3'000'000};
    make(whole);
    EXPECT_FLOAT_EQ(histogram().width, 4.6f); // 46 levels
    EXPECT_STREQ(frames[0]->unit, "10^1");
}

TEST_F(SeriesHistogram, WholeNumbersOfATinyRangeAreMultipliedToo)
{
    const std::vector<std::uint16_t> pixels{0, 500, 4095};
    make(pixels, 1e-6);
    EXPECT_EQ(histogram().nb_bins, 4096);
    EXPECT_FLOAT_EQ(histogram().width, 1);
    EXPECT_STREQ(frames[0]->unit, "10^-6");
}

TEST_F(SeriesHistogram, ValuesAtTheEndOfDoublesAreShown)
{
    const double most = std::numeric_limits<double>::max();
    const std::vector<double> pixels{-most, 0, most};
    make(pixels);
    EXPECT_EQ(histogram().nb_bins, 4096);
    EXPECT_GE(histogram().min, -1e6f);
    EXPECT_EQ(histogram().count[0], 1u);
    EXPECT_EQ(histogram().count[2048], 1u);
    EXPECT_EQ(histogram().count[4095], 1u);
    EXPECT_EQ(bin_of(histogram(), grey(2)), 4095);
}

TEST_F(SeriesHistogram, LeavesInfiniteOnesAndNotANumberOutAndSaysSoOnce)
{
    using Limits = std::numeric_limits<float>;
    const std::vector<float> pixels{0, Limits::infinity(), 4096, Limits::quiet_NaN(), 7, -Limits::infinity()};
    make(pixels, 1, 0, 2);
    EXPECT_EQ(hostkit::Series_Grey_Factor(series), 1);
    EXPECT_EQ(sum_of(histogram(0)), 2u);
    EXPECT_EQ(sum_of(histogram(1)), 1u);
    EXPECT_EQ(raw(1), no_value);
    EXPECT_EQ(raw(0, 1), no_value);
    EXPECT_EQ(raw(2, 1), no_value);
    EXPECT_EQ(reports.texts(4),
        std::vector<std::string>{"3 pixels of \"made\" are infinite or not a number; histograms leave them out."});
}

TEST_F(SeriesHistogram, AValueThatItsSlopeMakesInfiniteIsLeftOut)
{
    const std::vector<double> pixels{0, 1, 1e200};
    make(pixels, 1e200);
    EXPECT_EQ(sum_of(histogram()), 2u);
    EXPECT_EQ(raw(2), no_value);
}

TEST_F(SeriesHistogram, WithoutAnyNumberThereIsNone)
{
    const std::vector<float> pixels(4, std::numeric_limits<float>::quiet_NaN());
    make(pixels, 1, 0, 2);
    EXPECT_EQ(frames[0]->Histogram_Get(), nullptr);
    EXPECT_EQ(frames[1]->Histogram_Get(), nullptr);
    EXPECT_EQ(reports.texts(4).size(), 1u);
}

TEST_F(SeriesHistogram, OfColoursHasItsComponents)
{
    const std::vector<Rgb> pixels{{10, 20, 30}, {255, 255, 255}, {200, 20, 0}, {99, 99, 99}};
    make(pixels);
    const Histo_Record& record = histogram();
    EXPECT_EQ(record.flags & 1, 1);
    EXPECT_EQ(record.nb_bins, 256);
    EXPECT_EQ(record.min, 0);
    EXPECT_EQ(record.width, 1);
    EXPECT_EQ(record.red[10] + record.red[255] + record.red[200] + record.red[99], 4u);
    EXPECT_EQ(record.green[20], 2u);
    EXPECT_EQ(record.blue[30] + record.blue[0], 2u);
    EXPECT_EQ(record.max_component[30] + record.max_component[200], 2u);
    EXPECT_EQ(record.max_count, 2u);
    EXPECT_EQ(record.count[3 + 11 + 3], 1u);
    EXPECT_EQ(record.count[255 * 30 / 100 + 255 * 59 / 100 + 255 * 11 / 100], 1u) << "each product is cut by itself";
    EXPECT_EQ(record.count[29 + 58 + 10], 1u);
    EXPECT_EQ(record.count[60 + 11], 1u);
    EXPECT_EQ(sum_of(record), 4u);
    EXPECT_EQ(raw(2), 200 | 20 << 8);
    EXPECT_EQ(frames[0]->color, 1);
}

TEST_F(SeriesHistogram, IsKeptUntilThePixelsChange)
{
    std::vector<std::uint8_t> pixels{1, 2, 3, 4};
    make(pixels, 1, 0, 2);
    const Histo_Record* before = frames[0]->Histogram_Get();
    pixels[0] = 9;
    EXPECT_EQ(frames[0]->Histogram_Get(), before);
    EXPECT_EQ(before->nb_bins, 4);
    hostkit::Series_Pixels_Changed(series);
    EXPECT_EQ(histogram().nb_bins, 8);
    EXPECT_EQ(histogram().count[7], 1u);
}

TEST_F(SeriesHistogram, WithoutPixelsThereIsNeitherHistogramNorValue)
{
    make({}, 2);
    EXPECT_EQ(frames[0]->Histogram_Get(), nullptr);
    EXPECT_EQ(raw(0), no_value);
    EXPECT_EQ(Fct_GLI_2_Float(frames[0], 5), 0);
    EXPECT_EQ(Fct_GLI_2_Float(nullptr, 5), 0);
    EXPECT_EQ(hostkit::Series_Grey_Factor(series), 1);
    hostkit::Series_Pixels_Changed(series);
    const std::vector<std::uint8_t> one{1};
    make({hostkit::Pixel_Type::u8, one.data(), 1, 1, 0, 1, 0, ""}, 1);
    EXPECT_EQ(frames[0]->Histogram_Get(), nullptr);
}

TEST_F(SeriesHistogram, AFrameBeyondThePixelsHasNone)
{
    const std::vector<std::uint8_t> pixels{1, 2};
    make({hostkit::Pixel_Type::u8, pixels.data(), 1, 1, 2, 1, 0, ""}, 3);
    EXPECT_NE(frames[1]->Histogram_Get(), nullptr);
    EXPECT_EQ(frames[2]->Histogram_Get(), nullptr);
    EXPECT_EQ(raw(0, 2), no_value);
}

TEST_F(SeriesHistogram, PlacesOutsideTheImageHaveNoValue)
{
    const std::vector<std::uint16_t> pixels{11, 12, 13, 14, 15, 16};
    make({hostkit::Pixel_Type::u16, pixels.data(), 3, 2, 1, 1, 0, ""}, 1);
    const auto at = [&](float x, float y) { return frames[0]->Value_Get({x, y, 0, 0}); };
    EXPECT_EQ(at(0, 0), 11);
    EXPECT_EQ(at(2.9f, 1.9f), 16);
    for (const auto& [x, y] : {std::pair{-0.1f, 0.f}, {3.f, 0.f}, {0.f, -1.f}, {0.f, 2.f}, {NAN, 0.f}})
        EXPECT_EQ(at(x, y), no_value);
}

TEST_F(SeriesHistogram, LargestWholeNumbersAreNotTakenForNoValue)
{
    const std::vector<std::int32_t> pixels{0x7FFFFFFF, 0x7FFFFFFE, 0x7FFFFFFD, -1};
    make(pixels);
    EXPECT_EQ(raw(0), 0x7FFFFFFD);
    EXPECT_EQ(raw(1), 0x7FFFFFFD);
    EXPECT_EQ(raw(3), -1);
    const std::vector<std::uint32_t> positive{0xFFFFFFFF, 0};
    make(positive);
    EXPECT_FLOAT_EQ(grey(0), 429496.7296f);
}
