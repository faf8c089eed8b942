#include "tests/histo/own_host.h"

#include <algorithm>
#include <random>

// Where the counts of the frames go.

using namespace test;

using HistogramCounts = Own_Host;

namespace {

Counts filled(int bins, unsigned count)
{
    return Counts(static_cast<size_t>(bins), count);
}

Histogram colored(float min, float width, int bins)
{
    return {min, width, filled(bins, 1), {filled(bins, 2), filled(bins, 3), filled(bins, 4), filled(bins, 5)}};
}

// Bin by bin, as the sum is defined.
Counts sum_by_definition(const std::vector<const Histogram*>& histograms, const Histo_Record& sum)
{
    Counts counts(sum.nb_bins, 0u);
    for (const Histogram* histogram : histograms) {
        const Histo_Record& frame = *histogram->get();
        for (int bin = 0; bin < frame.nb_bins; ++bin) {
            const float grey = (static_cast<float>(bin) + 0.5f) * frame.width + frame.min;
            const auto to = static_cast<int>((grey - sum.min) / sum.width);
            if (to >= 0 && to < frame.nb_bins && to < sum.nb_bins)
                counts[static_cast<size_t>(to)] += frame.count[bin];
        }
    }
    return counts;
}

}

TEST_F(HistogramCounts, AreSummedOverFrames)
{
    const Histogram one(0, 1, {1, 2, 3}), other(0, 1, {10, 20, 30}), third(1, 1, {100, 200, 300});
    ASSERT_EQ(compute({&one, &other, &third}), 1);
    EXPECT_EQ(counts(), (Counts{11, 122, 233, 0, 0})) << "the last bin of the third lies behind its own number of bins";
    EXPECT_EQ(record().max_count, 233u);
}

TEST_F(HistogramCounts, FramesFarAboveTheLowerEdgeAreLeftOut)
{
    const auto low = Histogram::ones(0, 1, 256), high = Histogram::ones(1000, 1, 256);
    compute({&low, &high});
    EXPECT_EQ(record().nb_bins, 1257);
    EXPECT_EQ(sum_of(counts()), 256u);
}

TEST_F(HistogramCounts, CoarseBinsGoWholeToTheirCentreWhileThatLiesNear)
{
    const auto fine = Histogram::ones(0, 1, 256), coarse = Histogram::ones(-100, 2, 100);
    compute({&fine, &coarse});
    EXPECT_EQ(record().nb_bins, 357);
    EXPECT_EQ(sum_of(counts()), 206u);
    EXPECT_EQ(counts()[0], 0u);
    EXPECT_EQ(counts()[1], 1u);
    const auto coarser = Histogram::ones(0, 10, 10);
    compute({&fine, &coarser});
    EXPECT_EQ(sum_of(counts()), 257u);
    EXPECT_EQ(counts()[5], 2u);
}

TEST_F(HistogramCounts, FineBinsShareOne)
{
    limit_bins(30);
    compute(Histogram(0, 1, filled(99, 7)));
    EXPECT_EQ(record().width, 4.0f);
    EXPECT_EQ(counts()[0], 28u);
}

// Each of these moves by a bin when a product and a sum are rounded together, or a division becomes a product.
TEST_F(HistogramCounts, EveryOperationIsRoundedToSinglePrecision)
{
    limit_bins(65535);
    const auto frame = Histogram::one_at(2560, -1024, 0.1f, 6000), finer = Histogram(-1024, 0.05f, {0});
    compute({&frame, &finer});
    ASSERT_EQ(record().width, 0.05f);
    EXPECT_EQ(counts()[5121], 1u);

    const auto beside = Histogram::one_at(1, 0, 0.1f, 300), below = Histogram(-10, 0.05f, {0});
    compute({&beside, &below});
    EXPECT_EQ(counts()[202], 1u);
}

TEST_F(HistogramCounts, EqualGridsAreNoReasonToSkipTheArithmetic)
{
    compute(Histogram::one_at(2, -32768, 0.001f, 10));
    EXPECT_EQ(record().width, 0.001f);
    EXPECT_EQ(counts()[1], 1u);
    compute(Histogram::one_at(6, -32768, 0.001f, 10));
    EXPECT_EQ(counts()[5], 1u);
}

TEST_F(HistogramCounts, WrapAround)
{
    const Histogram one(0, 1, {0xFFFFFFFFu, 5}), other(0, 1, {3, 0xFFFFFFFAu});
    compute({&one, &other});
    EXPECT_EQ(counts(), (Counts{2, 0xFFFFFFFFu, 0}));
    EXPECT_EQ(record().max_count, 0xFFFFFFFFu);
}

TEST_F(HistogramCounts, OfManyFramesOnFewGridsAreWhatTheDefinitionSays)
{
    std::mt19937 random(7);
    const auto number = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    for (int round = 0; round < 40; ++round) {
        std::vector<Histogram> histograms;
        for (int i = 0; i < 12; ++i) {
            Counts frame_counts(static_cast<size_t>(1 + number(3) * 40 + (round % 4 == 0 ? number(9) : 0)));
            std::generate(frame_counts.begin(), frame_counts.end(), random);
            histograms.emplace_back(static_cast<float>(number(3)) * 1.7f - 2.0f,
                0.3f + 0.2f * static_cast<float>(number(3)), std::move(frame_counts));
        }
        std::vector<const Histogram*> shown;
        for (const Histogram& histogram : histograms)
            shown.push_back(&histogram);
        limit_bins(static_cast<unsigned short>(round % 2 ? 4096 : 20 + number(300)));
        ASSERT_EQ(compute(shown), 1);
        ASSERT_EQ(counts(), sum_by_definition(shown, record())) << "round " << round;
    }
}

TEST_F(HistogramCounts, SixtyFiveThousandBinsAreSummed)
{
    limit_bins(65535);
    const auto one = Histogram::ones(0, 0.01f, 65434), other = Histogram::ones(0, 0.01f, 65434);
    ASSERT_EQ(compute({&one, &other}), 1);
    EXPECT_EQ(counts(), sum_by_definition({&one, &other}, record()));
}

// ------------------------------------------------------------------------------------------------------ colours

TEST_F(HistogramCounts, AColourFrameBringsFourMoreArrays)
{
    compute(colored(0, 1, 3));
    EXPECT_EQ(record().flags, 1);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 0}));
    EXPECT_EQ(counts_of(record(), record().red), (Counts{2, 2, 2, 0}));
    EXPECT_EQ(counts_of(record(), record().green), (Counts{3, 3, 3, 0}));
    EXPECT_EQ(counts_of(record(), record().blue), (Counts{4, 4, 4, 0}));
    EXPECT_EQ(counts_of(record(), record().max_component), (Counts{5, 5, 5, 0}));
    EXPECT_EQ(record().max_count, 5u) << "the largest of all arrays";
}

TEST_F(HistogramCounts, GreyFramesCountOnlyAsGrey)
{
    const auto grey = Histogram::ones(0, 1, 3), color = colored(0, 1, 3), later = Histogram(0, 1, {20, 0, 0});
    compute({&grey, &color, &later});
    EXPECT_EQ(record().flags, 1);
    EXPECT_EQ(counts(), (Counts{22, 2, 2, 0}));
    EXPECT_EQ(counts_of(record(), record().red), (Counts{2, 2, 2, 0}));
    EXPECT_EQ(record().max_count, 22u);
    compute({&color, &grey, &color});
    EXPECT_EQ(counts(), (Counts{3, 3, 3, 0}));
    EXPECT_EQ(counts_of(record(), record().max_component), (Counts{10, 10, 10, 0}));
}

TEST_F(HistogramCounts, OnlyBitZeroMakesAColourFrame)
{
    auto color = colored(0, 1, 3), grey = Histogram::ones(0, 1, 3);
    color->flags = 0xFFFE;
    grey->flags = 2;
    compute({&color, &grey});
    EXPECT_EQ(record().flags, 0);
    EXPECT_EQ(counts(), (Counts{2, 2, 2, 0}));
    EXPECT_EQ(record().red, nullptr);
}

TEST_F(HistogramCounts, ArraysThatAreNotThereAddNothing)
{
    const Histogram no_green(0, 1, {1, 1}, {Counts{2, 2}, Counts{}, Counts{4, 4}, Counts{5, 5}});
    auto no_counts = colored(0, 1, 2);
    no_counts->count = nullptr;
    ASSERT_EQ(compute({&no_green, &no_counts}), 1);
    EXPECT_EQ(counts(), (Counts{1, 1, 0}));
    EXPECT_EQ(counts_of(record(), record().red), (Counts{4, 4, 0}));
    EXPECT_EQ(counts_of(record(), record().green), (Counts{3, 3, 0}));
}

TEST_F(HistogramCounts, AreReplacedByEveryComputation)
{
    compute(colored(0, 1, 3));
    compute(Histogram(0, 1, {7, 0}));
    EXPECT_EQ(record().flags, 0);
    EXPECT_EQ(counts(), (Counts{7, 0, 0}));
    for (const unsigned* array : {record().red, record().green, record().blue, record().max_component})
        EXPECT_EQ(array, nullptr);
    EXPECT_EQ(record().max_count, 7u);
}
