#include "tests/histo/peak_list.h"

#include <cstring>

// Which peaks a fit deletes, and how a list loses them.

using namespace test;

namespace {

using Lines = std::vector<std::string>;

class PeakPruning : public Own_Host {
protected:
    PeakPruning() { histo::peak_settings.maximum_width = 40; }

    /// A fit that has nothing to change: what is deleted in its first iteration, the starting values decide.
    void prune()
    {
        const auto data = list.model(200);
        Gauss_Newton(list.get(), 200, data.data(), 0);
        EXPECT_TRUE(reports.texts(2).empty());
    }

    /// Lets a peak stay where it is.
    static void hold(Histo_Peak* peak)
    {
        assign(*peak->param_min, {(*peak->param)[0] - 0.01, 0, 1});
        assign(*peak->param_max, {(*peak->param)[0] + 0.01, 1000, 1000});
    }

    /// What was deleted, with the iterations' traces of peaks ("0:3" three peaks after iteration 0).
    Lines events() const
    {
        Lines found;
        int peaks = 0;
        std::string iteration;
        const auto end_iteration = [&] {
            if (peaks)
                found.push_back(iteration + ':' + std::to_string(peaks));
            peaks = 0;
        };
        for (const std::string& text : reports.texts(11)) {
            if (text.starts_with("Iteration[")) {
                iteration = text.substr(10, text.find(']') - 10);
                ++peaks;
                continue;
            }
            end_iteration();
            if (text.starts_with("******* Delete peak at "))
                found.push_back(text.substr(std::strlen("******* Delete peak at ")));
        }
        return found;
    }

    /// The events up to the end of the first iteration.
    Lines first_events() const
    {
        Lines found;
        for (const std::string& event : events()) {
            found.push_back(event);
            if (event.starts_with("0:"))
                break;
        }
        return found;
    }

    Peak_List list;
};

}

TEST_F(PeakPruning, DeletesWhatIsAtTheLowerBounds)
{
    list.add(50, 100, 5);
    assign(*list.add(100, 30, 6)->param_min, {90, 30, 1});
    assign(*list.add(150, 80, 4)->param_min, {140, 0, 4});
    prune();
    EXPECT_EQ(first_events(),
        (Lines{"100.00: Peak to small (amp=30.0, width=6.0)", "150.00: Peak to small (amp=80.0, width=4.0)", "0:1"}));
    ASSERT_EQ(list->nb, 1);
    EXPECT_NEAR(list.centres()[0], 50, 1e-6);
}

TEST_F(PeakPruning, DeletesWhatIsAsWideAsTheLargestWidth)
{
    list.add(50, 100, 39.99);
    list.add(150, 80, 4);
    list.add(100, 200, 40);
    prune();
    EXPECT_EQ(first_events().front(), "100.00: Peak to wide (amp=200.0, width=40.0)");
}

TEST_F(PeakPruning, TheLargestWidthIsComparedAsItWasComputed)
{
    histo::peak_settings.maximum_width = 51.4f;
    const auto widest = static_cast<double>(51.4f);
    assign(*list.add(100, 100, widest)->param_max, {101.25, 200, widest});
    prune();
    EXPECT_EQ(first_events(), Lines{"100.00: Peak to wide (amp=100.0, width=51.4)"});
}

TEST_F(PeakPruning, SmallGoesBeforeWide)
{
    list.add(50, 100, 5);
    assign(*list.add(120, 30, 45)->param_min, {110, 30, 1});
    prune();
    EXPECT_EQ(first_events().front(), "120.00: Peak to small (amp=30.0, width=45.0)");
}

TEST_F(PeakPruning, OfTwoThatAreCloserThanTenBinsTheHigherStays)
{
    list.add(50, 100, 2);
    list.add(59.99, 80, 2);
    prune();
    EXPECT_EQ(first_events(), (Lines{"59.99: Peak to close b (50.0 /vs/ 60.0)", "0:1"}));

    reports.clear();
    Peak_List other;
    other.add(50, 80, 2);
    other.add(59, 100, 2);
    const auto data = other.model(200);
    Gauss_Newton(other.get(), 200, data.data(), 0);
    EXPECT_EQ(first_events(), (Lines{"50.00: Peak to close a (50.0 /vs/ 59.0)", "0:1"}));
    ASSERT_EQ(other->nb, 1);
    EXPECT_NEAR(other.centres()[0], 59, 0.5);
}

TEST_F(PeakPruning, TenBinsAreNotClose)
{
    list.add(50, 100, 2);
    list.add(60, 80, 2);
    prune();
    EXPECT_EQ(list->nb, 2);
}

TEST_F(PeakPruning, DistancesAndHeightsHaveSinglePrecision)
{
    list.add(50, 100, 2);
    list.add(60 - 1e-8, 100 + 1e-8, 2); // 60 and 100
    prune();
    EXPECT_EQ(list->nb, 2);
    list.add(65, 100 + 1e-7, 2);
    reports.clear();
    prune();
    EXPECT_EQ(first_events().front(), "65.00: Peak to close b (60.0 /vs/ 65.0)") << "of equal ones the later goes";
}

TEST_F(PeakPruning, ASurvivorMeetsItsNewNeighbourInTheNextIteration)
{
    hold(list.add(100, 500, 1.5));
    hold(list.add(104, 400, 1.5));
    hold(list.add(108, 450, 1.5));
    prune();
    const Lines found = events();
    ASSERT_GE(found.size(), 4u);
    EXPECT_EQ(found[0], "104.00: Peak to close b (100.0 /vs/ 104.0)");
    EXPECT_EQ(found[1], "0:2");
    EXPECT_EQ(found[2].substr(found[2].find(':')), ": Peak to close b (100.0 /vs/ 108.0)");
    EXPECT_EQ(found[3], "1:1");
}

TEST_F(PeakPruning, AfterTheLowerFirstOneTheNextIsCompared)
{
    hold(list.add(100, 300, 1.5));
    hold(list.add(105, 400, 1.5));
    hold(list.add(110, 500, 1.5));
    hold(list.add(150, 500, 1.5));
    prune();
    EXPECT_EQ(first_events(),
        (Lines{"100.00: Peak to close a (100.0 /vs/ 105.0)", "105.00: Peak to close a (105.0 /vs/ 110.0)", "0:2"}));
}

TEST_F(PeakPruning, AfterTheDeletedNextTheOneBehindItIsCompared)
{
    for (const double centre : {100.0, 105.0, 110.0, 115.0})
        hold(list.add(centre, 600 - centre, 1.5));
    prune();
    EXPECT_EQ(first_events(),
        (Lines{"105.00: Peak to close b (100.0 /vs/ 105.0)", "115.00: Peak to close b (110.0 /vs/ 115.0)", "0:2"}));
}

TEST_F(PeakPruning, WhenAllAreGoneTheFitStops)
{
    assign(*list.add(100, 30, 6)->param_min, {90, 30, 1});
    const std::vector<double> data(200, 5.0);
    EXPECT_EQ(Gauss_Newton(list.get(), 200, data.data(), 0.1), 2500.0);
    EXPECT_EQ(list->nb, 0);
    EXPECT_EQ(list->head, nullptr);
    EXPECT_TRUE(reports.texts(2).empty()) << "no peak is no failure";
}

// ------------------------------------------------------------------------------------------------------ the list

TEST_F(PeakPruning, DeletingKeepsTheOthersInOrder)
{
    Histo_Peak* const first = list.add(10, 1, 2);
    Histo_Peak* const second = list.add(20, 1, 2);
    Histo_Peak* const third = list.add(30, 1, 2);
    list.add(40, 1, 2);
    Peak_Delete(list.get(), second, "middle");
    EXPECT_EQ(list.centres(), (std::vector<double>{10, 30, 40}));
    EXPECT_EQ(third->prev, first);
    Peak_Delete(list.get(), first, "head");
    EXPECT_EQ(list->head, third);
    EXPECT_EQ(third->prev, nullptr);
    Peak_Delete(list.get(), third->next, "tail");
    EXPECT_EQ(third->next, nullptr);
    EXPECT_EQ(list->nb, 1);
    Peak_Delete(list.get(), third, "last");
    EXPECT_EQ(list->head, nullptr);
    EXPECT_EQ(list->nb, 0);
}

TEST_F(PeakPruning, TheReasonIsReported)
{
    Peak_Delete(list.get(), list.add(12.345, 1, 2), "%d %s", 5, "100% sure");
    EXPECT_EQ(reports.lines(), Lines{"11 ******* Delete peak at 12.35: 5 100% sure"});
}

TEST_F(PeakPruning, ALongReasonIsCut)
{
    Peak_Delete(list.get(), list.add(12, 1, 2), "%s", std::string(5000, 'x').c_str());
    EXPECT_EQ(reports.texts(11)[0], "******* Delete peak at 12.00: " + std::string(1023, 'x'));
}

TEST_F(PeakPruning, AnAddedPeakTakesItsHeightFromTheData)
{
    Peak_List smoothed(50);
    smoothed->smooth[20] = 40;
    histo::peak_settings.centre_freedom = 1.25f;
    histo::peak_settings.maximum_width = 10.2f;
    Histo_Peak* tail = nullptr;
    Histo_Peak* const peak = Peak_Add(smoothed.get(), &tail, 20, 0.25f, 10.0f);
    ASSERT_NE(peak, nullptr);
    EXPECT_EQ(tail, peak);
    EXPECT_EQ(smoothed->head, peak);
    EXPECT_EQ(smoothed.params(), (std::vector<std::vector<double>>{{20, 10, 10}}));
    EXPECT_EQ((*peak->param_min)[0], 18.75);
    EXPECT_EQ((*peak->param_max)[0], 21.25);
    EXPECT_EQ((*peak->param_max)[1], 80.0);
    EXPECT_EQ((*peak->param_max)[2], static_cast<double>(10.2f));
    EXPECT_EQ(peak->curve, nullptr);
    EXPECT_EQ(peak->nb_pts, 0);
}
