#include "tests/histo/own_host.h"

#include <cmath>
#include <limits>

// The grid that the histograms of several frames are brought to.

using namespace test;

using HistogramGrid = Own_Host;

namespace {

constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();

// Counting up, as the factor is defined.
int factor_by_counting(float n, int limit)
{
    int k = 1;
    while (std::trunc(n / static_cast<float>(k)) > static_cast<float>(limit))
        ++k;
    return k;
}

}

TEST_F(HistogramGrid, OneFrameGetsOneBinMoreThanItHas)
{
    ASSERT_EQ(compute(Histogram::ones(0, 1, 256)), 1);
    EXPECT_EQ(record().nb_bins, 257);
    EXPECT_EQ(shared_bins(), 257);
    EXPECT_EQ(record().min, 0.0f);
    EXPECT_EQ(record().width, 1.0f);
    EXPECT_EQ(record().max_count, 1u);
    EXPECT_EQ(counts()[255], 1u);
    EXPECT_EQ(counts()[256], 0u);
}

TEST_F(HistogramGrid, ALimitMergesBinsByAWholeNumber)
{
    limit_bins(100);
    ASSERT_EQ(compute(Histogram::ones(0, 1, 256)), 1);
    EXPECT_EQ(record().nb_bins, 85);
    EXPECT_EQ(shared_bins(), 85);
    EXPECT_EQ(record().width, 3.0f);
    EXPECT_EQ(counts(), Counts(85, 3u)) << "grey value 255 lies one bin past the end";
}

TEST_F(HistogramGrid, ALimitIsReachedBeforeBinsAreMerged)
{
    limit_bins(257);
    compute(Histogram::ones(0, 1, 256));
    EXPECT_EQ(record().nb_bins, 257);
    limit_bins(256);
    compute(Histogram::ones(0, 1, 256));
    EXPECT_EQ(record().nb_bins, 128);
    EXPECT_EQ(record().width, 2.0f);
    limit_bins(1);
    compute(Histogram::ones(0, 1, 256));
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().width, 129.0f);
}

TEST_F(HistogramGrid, TwelveBitsAreMergedAt4096BinsAndNotAt4352)
{
    compute(Histogram::ones(-1024, 1, 4096));
    EXPECT_EQ(record().nb_bins, 2048);
    EXPECT_EQ(record().width, 2.0f);
    limit_bins(4352);
    compute(Histogram::ones(-1024, 1, 4096));
    EXPECT_EQ(record().nb_bins, 4097);
    EXPECT_EQ(record().width, 1.0f);
}

TEST_F(HistogramGrid, TheRoomThatIsAddedIsOneGreyValueNotOneBin)
{
    compute(Histogram::ones(0, 0.5f, 200));
    EXPECT_EQ(record().nb_bins, 202);
    compute(Histogram::ones(0, 0.25f, 7));
    EXPECT_EQ(record().nb_bins, 11);
    compute(Histogram::ones(0, 3, 10));
    EXPECT_EQ(record().nb_bins, 10);
}

TEST_F(HistogramGrid, ItsSizeIsComputedInSinglePrecision)
{
    compute(Histogram::ones(0, 0.1f, 3));
    EXPECT_EQ(record().nb_bins, 12) << "13 when an intermediate result has double precision";
    compute(Histogram::ones(0, 0.1f, 1));
    EXPECT_EQ(record().nb_bins, 11) << "10 when it is never rounded to single precision";
}

TEST_F(HistogramGrid, SpansAllFramesWithTheFinestBins)
{
    const auto coarse = Histogram::ones(-50, 2, 10), fine = Histogram::ones(10, 0.5f, 40),
               distant = Histogram::ones(90, 4, 3);
    ASSERT_EQ(compute({&coarse, &fine, &distant}), 1);
    EXPECT_EQ(record().min, -50.0f);
    EXPECT_EQ(record().width, 0.5f);
    EXPECT_EQ(record().nb_bins, 306); // (102 + 50 + 1) / 0.5
}

TEST_F(HistogramGrid, TheMergeFactorIsTheSmallestThatFits)
{
    for (const int bins : {2, 3, 255, 1000, 4097, 40000, 65535}) {
        for (const int limit : {1, 2, 3, 7, 100, 255, 256, 257, 4095, 4096, 4097, 65534, 65535}) {
            limit_bins(static_cast<unsigned short>(limit));
            ASSERT_EQ(compute(Histogram::ones(0, 1, bins)), 1);
            const auto n = static_cast<float>(bins + 1);
            const int k = factor_by_counting(n, limit);
            ASSERT_EQ(record().width, static_cast<float>(k)) << bins << " bins, at most " << limit;
            ASSERT_EQ(record().nb_bins, static_cast<int>(n / static_cast<float>(k))) << bins << ' ' << limit;
        }
    }
}

TEST_F(HistogramGrid, AHugeFactorIsFoundToo)
{
    const float fine = 1e-3f;
    const auto tiny = Histogram::ones(0, fine, 1), wide = Histogram::ones(0, 1000, 1000);
    for (const int limit : {100, 4352, 65535}) {
        limit_bins(static_cast<unsigned short>(limit));
        ASSERT_EQ(compute({&tiny, &wide}), 1);
        const float n = (1e6f + 1.0f) / fine;
        const int k = factor_by_counting(n, limit);
        EXPECT_EQ(record().width, fine * static_cast<float>(k)) << limit;
        EXPECT_EQ(record().nb_bins, static_cast<int>(n / static_cast<float>(k))) << limit;
    }
}

TEST_F(HistogramGrid, TenBillionsOfBinsTakeNoTime)
{
    const auto tiny = Histogram::ones(0, 1e-7f, 1), wide = Histogram::ones(0, 1000, 1000);
    limit_bins(65535);
    ASSERT_EQ(compute({&tiny, &wide}), 1);
    EXPECT_EQ(record().nb_bins, 65535);
    EXPECT_NEAR(record().width * 65535, 1e6f, 100);
}

TEST_F(HistogramGrid, WhatNoFactorBringsToTheLimitIsOneBin)
{
    const auto tiny = Histogram::ones(0, 1e-7f, 1), wide = Histogram::ones(0, 1000, 1000);
    limit_bins(4352);
    ASSERT_EQ(compute({&tiny, &wide}), 1);
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().width, 1e-7f);
    EXPECT_EQ(shared_bins(), 1);
}

TEST_F(HistogramGrid, ALimitOfZeroLeavesOneBin)
{
    limit_bins(0);
    ASSERT_EQ(compute(Histogram::ones(0, 1, 10)), 1);
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().width, 12.0f) << "the first factor above 11";
    EXPECT_EQ(shared_bins(), 1);
    EXPECT_EQ(counts(), Counts{10});
}

TEST_F(HistogramGrid, AFrameWithoutBinsCountsWithItsEdge)
{
    ASSERT_EQ(compute(Histogram(0, 5, {})), 1);
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().width, 5.0f);
    EXPECT_EQ(counts(), Counts{0});
}

TEST_F(HistogramGrid, OfFramesAboveAMillionTheMillionIsTheLowerEdge)
{
    limit_bins(65535);
    ASSERT_EQ(compute(Histogram::ones(2e6f, 1, 100)), 1);
    EXPECT_EQ(record().min, 1e6f);
    EXPECT_EQ(record().width, 16.0f);
    EXPECT_EQ(record().nb_bins, 62506);
    EXPECT_EQ(record().max_count, 0u);
}

TEST_F(HistogramGrid, OfFramesBelowMinusAMillionThatIsTheUpperEdge)
{
    ASSERT_EQ(compute(Histogram::ones(-3e6f, 1, 100)), 1);
    EXPECT_EQ(record().min, -3e6f);
    EXPECT_EQ(record().width, 489.0f);
    EXPECT_EQ(record().nb_bins, 4089);
    EXPECT_EQ(counts()[0], 100u);
    EXPECT_EQ(sum_of(counts()), 100u);
}

TEST_F(HistogramGrid, BinsWiderThanAMillionAreAMillionWide)
{
    ASSERT_EQ(compute(Histogram::ones(0, 3e6f, 2)), 1);
    EXPECT_EQ(record().width, 1e6f);
    EXPECT_EQ(record().nb_bins, 6);
}

TEST_F(HistogramGrid, AWidthOfZeroIsOneEmptyBin)
{
    ASSERT_EQ(compute(Histogram::ones(7, 0, 1)), 1);
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().min, 7.0f);
    EXPECT_EQ(record().width, 0.0f);
    EXPECT_EQ(counts(), Counts{0});
    EXPECT_EQ(shared_bins(), 1);
}

TEST_F(HistogramGrid, ANegativeWidthIsOneBin)
{
    const auto usual = Histogram::ones(0, 1, 10), turned = Histogram::ones(0, -1, 10);
    ASSERT_EQ(compute({&usual, &turned}), 1);
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().min, 0.0f);
    EXPECT_EQ(record().width, -1.0f);
    EXPECT_EQ(shared_bins(), 1);
}

TEST_F(HistogramGrid, NotANumberPassesBy)
{
    const auto usual = Histogram::ones(0, 1, 10);
    const auto nan_edge = Histogram::ones(not_a_number, 0.5f, 10), nan_width = Histogram::ones(-2, not_a_number, 10);
    ASSERT_EQ(compute({&nan_edge, &usual, &nan_width}), 1);
    EXPECT_EQ(record().min, -2.0f);
    EXPECT_EQ(record().width, 0.5f);
    EXPECT_EQ(record().nb_bins, 26);
    EXPECT_EQ(sum_of(counts()), 3u) << "of the usual one what comes before the tenth bin";
    EXPECT_EQ(compute(nan_edge), 0);
}

TEST_F(HistogramGrid, AnInfiniteRangeIsOneEmptyBin)
{
    ASSERT_EQ(compute(Histogram::ones(-infinite, 1, 10)), 1);
    EXPECT_EQ(counts(), Counts{0});
    const auto usual = Histogram::ones(0, 1, 10), endless = Histogram::ones(5, infinite, 10);
    ASSERT_EQ(compute({&usual, &endless}), 1);
    EXPECT_EQ(record().nb_bins, 1);
    EXPECT_EQ(record().width, 1.0f);
    EXPECT_EQ(counts(), Counts{1}) << "the first bin of the usual one";
}
