#include "tests/histo/own_host.h"

#include <cstring>
#include <deque>
#include <optional>

// What a computation asks of its host and tells of its result.

using namespace test;
using own_frames::Frame;

namespace {

constexpr unsigned long long selection_changed = 0x102;

class HistogramComputation : public Own_Host {
protected:
    struct Described {
        const Histo_Record* histogram;
        const char* unit;
    };

    /// Computes with these frames. @return the unit that the panel then has
    std::string unit_of_frames(const std::vector<Described>& described)
    {
        std::deque<Frame> frames;
        std::vector<Frame*> shown;
        for (const auto& [its_histogram, unit] : described)
            shown.push_back(&frames.emplace_back(its_histogram, unit));
        own_frames::show(shown);
        EXPECT_EQ(Histo_Compute(&panel), 1);
        own_frames::show({});
        return panel.x_unit;
    }

    /// The same with frames that all have a histogram.
    std::string unit_of(const std::vector<const char*>& units)
    {
        std::vector<Described> described;
        for (const char* unit : units)
            described.push_back({histogram.get(), unit});
        return unit_of_frames(described);
    }

    std::string scope() const
    {
        char text[40];
        std::snprintf(text, sizeof text, "%p", window());
        return text;
    }

    const Histogram histogram = Histogram::ones(0, 1, 4);
};

}

TEST_F(HistogramComputation, GoesTwiceThroughTheSelectedFramesOfTheWindow)
{
    ASSERT_EQ(compute(histogram), 1);
    const std::string next = "next 0x2fff " + scope() + " selected";
    EXPECT_EQ(own_frames::take_calls(), (std::vector<std::string>{"begin Tool_Histo: Histo_Compute", next, "end",
                                            "begin Tool_Histo: Histo_Compute", next, "end"}));
    EXPECT_EQ(own_frames::open_iterators(), 0);
}

TEST_F(HistogramComputation, LeavesOutWhatIsNotSelectedOrHasNoHistogram)
{
    Frame counted(histogram.get()), not_selected(histogram.get()), without(nullptr);
    not_selected.selected = false;
    own_frames::show({&not_selected, &without, &counted});
    EXPECT_EQ(Histo_Compute(&panel), 1);
    EXPECT_EQ(sum_of(counts()), 4u);
    own_frames::show({&not_selected, &without});
    EXPECT_EQ(Histo_Compute(&panel), 0);
}

TEST_F(HistogramComputation, IsTracedFirstAndSilentOtherwise)
{
    compute(histogram);
    EXPECT_EQ(reports.all(), (std::vector<Report>{{17, "in Histo_Compute()"}}));
    own_registry::define_array("$WINDOW_CUR", nullptr);
    reports.clear();
    EXPECT_EQ(Histo_Compute(&panel), 0);
    EXPECT_EQ(reports.all(), (std::vector<Report>{{17, "in Histo_Compute()"}}));
}

TEST_F(HistogramComputation, WithoutAWindowNothingChanges)
{
    compute(histogram);
    own_registry::define_array("$WINDOW_CUR", nullptr);
    choose_component(2);
    own_frames::take_calls();
    EXPECT_EQ(compute(Histogram::ones(0, 1, 9)), 0);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1, 0}));
    EXPECT_EQ(panel.color_component, 4);
    EXPECT_TRUE(own_frames::take_calls().empty());
}

TEST_F(HistogramComputation, WithoutFramesTheHistogramIsGoneAndTheSharedNumberStays)
{
    EXPECT_EQ(compute(std::vector<const Histogram*>{}), 0);
    ASSERT_NE(panel.histo, nullptr) << "the record stays for the panel's life";
    EXPECT_EQ(panel.histo->nb_bins, 0);
    EXPECT_FALSE(panel.Ready());
    EXPECT_EQ(shared_bins(), 9);
    EXPECT_STREQ(panel.x_title, "");

    Histo_Record* const first = panel.histo;
    EXPECT_EQ(compute(histogram), 1);
    EXPECT_EQ(panel.histo, first);
    EXPECT_EQ(compute(std::vector<const Histogram*>{}), 0);
    EXPECT_EQ(panel.histo, first);
    EXPECT_EQ(first->count, nullptr);
    EXPECT_EQ(first->nb_bins, 5) << "numbers stay";
    EXPECT_EQ(first->max_count, 1u);
    EXPECT_EQ(shared_bins(), 5);
    EXPECT_FALSE(panel.Ready());
}

TEST_F(HistogramComputation, TakesTheColourComponent)
{
    choose_component(2);
    compute(histogram);
    EXPECT_EQ(panel.color_component, 2);
    choose_component(255);
    compute(std::vector<const Histogram*>{});
    EXPECT_EQ(panel.color_component, 255) << "even without a frame";
}

TEST_F(HistogramComputation, WithoutItsFirstIteratorItFails)
{
    own_frames::fail_to_open({1});
    EXPECT_EQ(compute(histogram), 0);
    EXPECT_EQ(panel.histo->count, nullptr);
    EXPECT_EQ(shared_bins(), 9);
    EXPECT_EQ(own_frames::take_calls().size(), 1u) << "what did not open is not closed";
    EXPECT_EQ(reports.all().size(), 1u);
}

TEST_F(HistogramComputation, WithoutItsSecondIteratorAllCountsAreZero)
{
    own_frames::fail_to_open({2});
    EXPECT_EQ(compute(histogram), 1);
    EXPECT_EQ(counts(), Counts(5, 0u));
    EXPECT_EQ(record().max_count, 0u);
    EXPECT_TRUE(panel.Ready());
    EXPECT_STREQ(panel.x_title, "Pixel Intensity");
    EXPECT_STREQ(panel.y_title, "Nb of Pixels");
}

TEST_F(HistogramComputation, NamesTheAxes)
{
    EXPECT_STREQ(panel.x_title, "");
    ASSERT_EQ(compute(histogram), 1);
    EXPECT_STREQ(panel.x_title, "Pixel Intensity");
    EXPECT_STREQ(panel.y_title, "Nb of Pixels");
    EXPECT_STREQ(panel.x_unit, "");
    EXPECT_STREQ(panel.y_unit, "");
}

TEST_F(HistogramComputation, TheUnitIsThatOfAllFrames)
{
    const std::string copy = "HU";
    EXPECT_EQ(unit_of({"HU", copy.c_str(), "HU"}), "HU");
    EXPECT_EQ(unit_of({"HU", "SUV"}), "mix");
    EXPECT_EQ(unit_of({"HU", "SUV", "HU"}), "mix");
    EXPECT_EQ(unit_of({nullptr, nullptr, "HU", "HU"}), "HU");
    EXPECT_EQ(unit_of({"HU", nullptr}), "mix");
    EXPECT_EQ(unit_of({nullptr, "HU", nullptr}), "mix");
    EXPECT_EQ(unit_of({"HU", "hu"}), "mix");
    EXPECT_EQ(unit_of({"mix", "HU"}), "mix");
    EXPECT_EQ(unit_of({"", "HU"}), "mix");
    EXPECT_EQ(unit_of({"mi", "mi"}), "mi");
}

TEST_F(HistogramComputation, FramesWithoutAHistogramHaveAUnitToo)
{
    EXPECT_EQ(unit_of_frames({{histogram.get(), "HU"}, {nullptr, "SUV"}}), "mix");
    EXPECT_EQ(unit_of_frames({{nullptr, "SUV"}, {histogram.get(), "SUV"}}), "SUV");
    EXPECT_EQ(unit_of_frames({{nullptr, "SUV"}, {histogram.get(), nullptr}}), "mix");
    EXPECT_EQ(unit_of_frames({{histogram.get(), nullptr}, {nullptr, "SUV"}}), "SUV");
}

TEST_F(HistogramComputation, WithoutAUnitTheLastOneStays)
{
    EXPECT_EQ(unit_of({"HU"}), "HU");
    EXPECT_EQ(unit_of({nullptr, nullptr}), "HU");
    EXPECT_EQ(unit_of({""}), "") << "an empty text is a unit";
    std::strcpy(panel.y_unit, "kept");
    unit_of({"HU"});
    EXPECT_STREQ(panel.y_unit, "kept");
}

TEST_F(HistogramComputation, ALongUnitIsCutBetweenCharacters)
{
    const std::string longest(79, 'u');
    EXPECT_EQ(unit_of({longest.c_str()}), longest);
    const std::string longer(200, 'u');
    EXPECT_EQ(unit_of({longer.c_str()}), longest);
    EXPECT_STREQ(panel.y_unit, "");
    const std::string before(78, 'u'), micro = before + "\xc2\xb5g",
                                       euro = before.substr(1) + "\xe2\x82\xac"
                                                                 "s";
    EXPECT_EQ(unit_of({micro.c_str()}), before);
    EXPECT_EQ(unit_of({euro.c_str()}), before.substr(1));
    const std::string fits = before.substr(1) + "\xc2\xb5", and_more = fits + "g";
    EXPECT_EQ(unit_of({fits.c_str()}), fits);
    EXPECT_EQ(unit_of({and_more.c_str()}), fits);
}

TEST_F(HistogramComputation, TheChangeOfTheSelectionStartsIt)
{
    Frame frame(histogram.get());
    own_frames::show({&frame});
    for (const unsigned long long alone : {0x2ull, 0x100ull, 0x101ull, 0x104ull, 0x402ull}) {
        panel.Update(alone);
        EXPECT_EQ(panel.histo, nullptr) << std::hex << alone;
    }
    panel.Update(selection_changed);
    EXPECT_TRUE(panel.Ready());
}

TEST_F(HistogramComputation, EachPanelHasItsOwn)
{
    Tool_Histo other;
    compute(histogram);
    EXPECT_EQ(other.histo, nullptr);
    Frame frame(histogram.get());
    own_frames::show({&frame});
    other.Update(selection_changed);
    EXPECT_NE(other.histo, panel.histo);
    EXPECT_NE(other.histo->count, panel.histo->count);
}

TEST_F(HistogramComputation, TheArraysGoWithThePanelTheRecordStays)
{
    std::optional<Tool_Histo> going(std::in_place);
    Frame frame(histogram.get());
    own_frames::show({&frame});
    going->Update(selection_changed);
    const Histo_Record* const left = going->histo;
    going.reset();
    EXPECT_EQ(left->count, nullptr);
    EXPECT_EQ(left->flags, 0);
}

TEST_F(HistogramComputation, ARecordIsLaidOutAsHostsExpect)
{
    EXPECT_EQ(sizeof(Histo_Record), 56u);
    EXPECT_EQ(offsetof(Histo_Record, flags), 0u);
    EXPECT_EQ(offsetof(Histo_Record, nb_bins), 2u);
    EXPECT_EQ(offsetof(Histo_Record, min), 4u);
    EXPECT_EQ(offsetof(Histo_Record, width), 8u);
    EXPECT_EQ(offsetof(Histo_Record, max_count), 12u);
    EXPECT_EQ(offsetof(Histo_Record, count), 16u);
    EXPECT_EQ(offsetof(Histo_Record, red), 24u);
    EXPECT_EQ(offsetof(Histo_Record, green), 32u);
    EXPECT_EQ(offsetof(Histo_Record, blue), 40u);
    EXPECT_EQ(offsetof(Histo_Record, max_component), 48u);
}
