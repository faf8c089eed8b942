#include "tests/hostkit/charts/axes_fixture.h"
#include "tests/hostkit/charts/seen_texts.h"

#include <algorithm>
#include <cmath>

using test::Axes;
using test::Range;
using test::Seen_Text;

namespace {

class Axes_Layout : public Axes {
protected:
    std::vector<Seen_Text> Texts_Of(Range x, Range y, short scale = 8)
    {
        test::take_seen_texts();
        Draw_X(x, scale);
        Draw_Y(y, scale);
        auto texts = test::take_seen_texts();
        std::erase_if(texts, [](const Seen_Text& one) { return one.text.empty(); });
        return texts;
    }

    void Expect_Order(const std::vector<Seen_Text>& texts) const
    {
        for (size_t one = 0; one < texts.size(); ++one) {
            const RECT& place = texts[one].place;
            EXPECT_GE(place.left, 0);
            EXPECT_GE(place.top, 0);
            EXPECT_LE(place.right, box.width);
            EXPECT_LE(place.bottom, box.height);
            for (size_t other = 0; other < one; ++other)
                EXPECT_FALSE(Meet(place, texts[other].place)) << one << " and " << other;
        }
    }

    static bool Meet(const RECT& one, const RECT& other)
    {
        return one.left < other.right && other.left < one.right && one.top < other.bottom && other.top < one.bottom;
    }
};

const Seen_Text* find(const std::vector<Seen_Text>& texts, const std::u16string& text)
{
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const Seen_Text& one) { return one.text == text; });
    return found == texts.end() ? nullptr : &*found;
}

constexpr Range tomography{-1228.8f, 3276.8f};
constexpr Range ranges[] = {tomography, {0, 1}, {-12345, 135795}, {1234.5f, 1234.75f}, {1234500, 1234600},
    {-3e7f, 3.3e8f}, {-1e-7f, 1e-7f}, {99999, 100001}, {-1e20f, 1e20f}, {16777214, 16777216}};

}

TEST_F(Axes_Layout, TextsNeverMeetNorLeaveTheBox)
{
    for (const auto& [width, height] : {std::pair{57, 52}, {60, 900}, {900, 60}, {100, 100}, {131, 87}, {200, 120},
             {333, 222}, {784, 292}, {1584, 790}}) {
        Make_Box(width, height);
        for (const short scale : std::initializer_list<short>{7, 8, 10, 13, 17, 25}) {
            for (const Range& range : ranges) {
                SCOPED_TRACE(testing::Message() << width << " x " << height << ", size " << scale << ", " << range.from
                                                << " to " << range.to);
                Expect_Order(Texts_Of(range, range, scale));
            }
        }
    }
}

TEST_F(Axes_Layout, TextsNeverMeetWhileZoomingIn)
{
    Make_Box(784, 292);
    for (float size = 4096; size > 0.001f; size *= 0.7f) {
        SCOPED_TRACE(size);
        Expect_Order(Texts_Of({1000 - size, 1000 + size / 3}, {-size / 10, size}));
    }
}

TEST_F(Axes_Layout, SmallestPlotHasNoMoreThanFits)
{
    Make_Box(58, 54);
    ASSERT_EQ(Plot_Area_Of(box).width, 1);
    ASSERT_EQ(Plot_Area_Of(box).height, 1);
    EXPECT_LE(Texts_Of(tomography, tomography).size(), 5u);
}

TEST_F(Axes_Layout, TitlesHaveTheirUnitBehindThem)
{
    Make_Box(784, 292);
    const auto texts = Texts_Of(tomography, {0, 100});
    EXPECT_NE(find(texts, u"Pixel Intensity [HU]"), nullptr);
    EXPECT_NE(find(texts, u"Nb of Pixels"), nullptr);
    test::take_seen_texts();
    Draw_X(tomography, 8, "Pixel Intensity", nullptr);
    EXPECT_NE(find(test::take_seen_texts(), u"Pixel Intensity"), nullptr);
    Draw_Y(tomography, 8, "", "ms");
    EXPECT_NE(find(test::take_seen_texts(), u"[ms]"), nullptr);
}

TEST_F(Axes_Layout, TitlesAreThereWhateverTheSizeOfTheFont)
{
    Make_Box(784, 292);
    for (const short scale : std::initializer_list<short>{6, 8, 11, 17, 40}) {
        const auto texts = Texts_Of(tomography, {0, 100}, scale);
        EXPECT_NE(find(texts, u"Pixel Intensity [HU]"), nullptr) << scale;
        EXPECT_NE(find(texts, u"Nb of Pixels"), nullptr) << scale;
    }
}

TEST_F(Axes_Layout, TitleThatIsTooLongIsCut)
{
    Make_Box(200, 120);
    Draw_X(tomography, 8, "The grey value of the pixels of all the selected frames together", "HU");
    const auto texts = test::take_seen_texts();
    const auto cut =
        std::find_if(texts.begin(), texts.end(), [](const Seen_Text& one) { return one.text.back() == u'\u2026'; });
    ASSERT_NE(cut, texts.end());
    Expect_Order(texts);
}

TEST_F(Axes_Layout, NumbersAreCentredAtTheirTicks)
{
    Make_Box(784, 292);
    const Plot_Area plot = Plot_Area_Of(box);
    const auto texts = Texts_Of({0, 100}, {0, 100});
    const Seen_Text* const fifty = find(texts, u"50");
    ASSERT_NE(fifty, nullptr);
    const int middle = plot.x + static_cast<int>(std::lround(0.5 * plot.width));
    EXPECT_NEAR((fifty->place.left + fifty->place.right) / 2, middle, 1);
    const Seen_Text* const sixty =
        &*std::find_if(texts.rbegin(), texts.rend(), [](const Seen_Text& one) { return one.text == u"60"; });
    const int row = box.height - 1 - (plot.y + static_cast<int>(std::lround(0.6 * plot.height)));
    EXPECT_NEAR((sixty->place.top + sixty->place.bottom) / 2, row, 1);
    EXPECT_LT(sixty->place.right, plot.x);
}

TEST_F(Axes_Layout, FullViewOfCountsHasNoNumbersBelowZero)
{
    for (const auto& [width, height] : {std::pair{200, 120}, {784, 292}, {1584, 790}, {1900, 1900}}) {
        Make_Box(width, height);
        for (float largest = 1; largest < 1e9f; largest *= 1.7f) {
            for (const Seen_Text& one : Texts_Of({0, 1}, {-0.1f * largest, 1.1f * largest}))
                EXPECT_NE(one.text.front(), u'\u2212') << largest;
        }
    }
}
