#include "workbench/document/propagate.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using namespace document;
using Tags = std::vector<std::uint8_t>;

constexpr double nothing = std::numeric_limits<double>::quiet_NaN();

TagSet all_free()
{
    return TagSet().set();
}

TagSet all_free_but(std::size_t tag)
{
    return all_free().reset(tag);
}

/// Two frames whose pixels are grey(x, y, z); colours have the value in all three parts.
template <class Grey>
Volume made_volume(PixelType type, int width, int height, Grey grey)
{
    Volume volume;
    volume.type = type;
    volume.geometry.size = {width, height, 2};
    volume.geometry.spacing = {0.5, 2, 5};
    volume.pixels = PixelMemory::allocate(volume.geometry.voxels() * bytes_of(type));
    with_type(type, [&](auto pixel) {
        using Pixel = typename decltype(pixel)::type;
        auto* next = reinterpret_cast<Pixel*>(volume.pixels.data());
        for (int z = 0; z < 2; ++z)
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x, ++next) {
                    const double value = grey(x, y, z);
                    if constexpr (std::is_same_v<Pixel, Rgb>)
                        *next = {std::uint8_t(value), std::uint8_t(value), std::uint8_t(value)};
                    else if (std::is_floating_point_v<Pixel> || !std::isnan(value))
                        *next = Pixel(value);
                    else
                        *next = 0;
                }
    });
    return volume;
}

Volume flat_volume(int width, int height)
{
    return made_volume(PixelType::u8, width, height, [](int, int, int) { return 7.0; });
}

Tags disc(int side, double x0, double y0, double radius, std::uint8_t tag = 1)
{
    Tags tags(std::size_t(side * side));
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (std::hypot(x - x0, y - y0) <= radius)
                tags[std::size_t(y * side + x)] = tag;
    return tags;
}

double dice(const Tags& one, const Tags& other)
{
    double both = 0, sum = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        both += one[i] != 0 && one[i] == other[i];
        sum += (one[i] != 0) + (other[i] != 0);
    }
    return 2 * both / sum;
}

auto count(const Tags& tags, std::uint8_t tag)
{
    return std::count(tags.begin(), tags.end(), tag);
}

Tags carried(const Tags& source, const Tags& target, CarryMode mode, const TagSet& free = all_free())
{
    return carry(flat_volume(int(source.size()), 1), 0, 1, source, target, mode, free);
}

}

TEST(Propagate, AddFillsOnlyWhatIsNotPainted)
{
    EXPECT_EQ(carried({3, 3, 0, 4, 0}, {0, 5, 6, 0, 0}, CarryMode::add), (Tags{3, 5, 6, 4, 0}));
}

TEST(Propagate, ReplaceMakesTheCarriedTagsExactlyTheCarriedOnes)
{
    EXPECT_EQ(carried({3, 3, 0, 0, 4}, {0, 4, 3, 4, 0}, CarryMode::replace), (Tags{3, 3, 0, 0, 4}));
}

TEST(Propagate, ReplaceLeavesTagsThatAreNotOnTheSourceWhereNothingIsCarried)
{
    EXPECT_EQ(carried({3, 0, 0}, {6, 6, 0}, CarryMode::replace), (Tags{3, 6, 0}));
}

TEST(Propagate, AnEmptyFrameTakesNothingAway)
{
    const Tags target = {3, 6, 0};
    for (const auto mode : {CarryMode::add, CarryMode::replace, CarryMode::adapt})
        EXPECT_EQ(carried({0, 0, 0}, target, mode), target);
}

TEST(Propagate, TagsThatAreNotFreeNeitherComeNorGo)
{
    EXPECT_EQ(carried({3, 3, 4, 0}, {0, 0, 3, 3}, CarryMode::replace, all_free_but(3)), (Tags{0, 0, 3, 3}));
    EXPECT_EQ(carried({3, 4, 4, 4}, {0, 0, 3, 0}, CarryMode::add, all_free_but(3)), (Tags{0, 4, 3, 4}));
    EXPECT_EQ(carried({3, 4, 4, 4}, {0, 0, 3, 0}, CarryMode::adapt, all_free_but(3)), (Tags{0, 4, 3, 4}));
}

TEST(Propagate, ABackgroundThatIsNotFreeIsNeitherPaintedOnNorErasedTo)
{
    EXPECT_EQ(carried({3, 3, 0}, {0, 4, 3}, CarryMode::replace, all_free_but(0)), (Tags{0, 3, 3}));
    EXPECT_EQ(carried({3, 3, 0}, {0, 4, 3}, CarryMode::add, all_free_but(0)), (Tags{0, 4, 3}));
}

TEST(Propagate, WithoutGreyValuesToFollowAdaptingCopies)
{
    const Tags source = disc(64, 30, 30, 12);
    EXPECT_EQ(carry(flat_volume(64, 64), 0, 1, source, Tags(64 * 64), CarryMode::adapt, all_free()), source);
}

TEST(Propagate, AdaptingLeavesWhatIsPainted)
{
    const Tags source = disc(64, 30, 30, 12, 3), target = disc(64, 30, 30, 5, 4);
    const Tags result = carry(flat_volume(64, 64), 0, 1, source, target, CarryMode::adapt, all_free());
    EXPECT_EQ(count(result, 4), count(target, 4));
    EXPECT_EQ(count(result, 3), count(source, 3) - count(target, 4));
}

class PropagateEveryType : public ::testing::TestWithParam<PixelType> {};

TEST_P(PropagateEveryType, AdaptingFollowsTheGreyValues)
{
    constexpr int side = 96;
    const auto grey = [](int x, int y, int z) {
        if (x == 0 && y < 10)
            return nothing; // counts as dark
        const double from_rim = (z == 0 ? 20 : 24) - std::hypot(x - (z == 0 ? 45 : 48), y - 50);
        return 20 + 80 * std::clamp(from_rim / 3 + 0.5, 0.0, 1.0);
    };
    const auto volume = made_volume(GetParam(), side, side, grey);
    const Tags source = disc(side, 45, 50, 20), truth = disc(side, 48, 50, 24);
    const Tags result = carry(volume, 0, 1, source, Tags(side * side), CarryMode::adapt, all_free());
    EXPECT_LT(dice(source, truth), 0.85);
    EXPECT_GT(dice(result, truth), 0.97);
}

INSTANTIATE_TEST_SUITE_P(Types, PropagateEveryType,
    ::testing::Values(PixelType::u8, PixelType::i8, PixelType::u16, PixelType::i16, PixelType::u32, PixelType::i32,
        PixelType::f32, PixelType::f64, PixelType::rgb),
    [](const auto& tested) {
        std::string name = name_of(tested.param);
        std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
        return name;
    });

TEST(Propagate, VeryLargeFramesAreAdaptedToo)
{
    constexpr int side = 1200;
    const auto grey = [](int x, int y, int z) {
        return 20 + 80 * std::clamp((400 + 20 * z - std::hypot(x - 600, y - 600)) / 10 + 0.5, 0.0, 1.0);
    };
    const auto volume = made_volume(PixelType::u8, side, side, grey);
    const Tags source = disc(side, 600, 600, 400), truth = disc(side, 600, 600, 420);
    const Tags result = carry(volume, 0, 1, source, Tags(source.size()), CarryMode::adapt, all_free());
    EXPECT_LT(dice(source, truth), 0.96);
    EXPECT_GT(dice(result, truth), 0.99);
}

TEST(Propagate, NeighbouringTagsStayNeighbours)
{
    constexpr int side = 96;
    const auto grey = [](int x, int y, int z) {
        return 10 + 90 * std::clamp((20 - std::hypot(x - 45 - 4 * z, y - 50)) / 3 + 0.5, 0.0, 1.0);
    };
    Tags source = disc(side, 45, 50, 20);
    for (std::size_t i = source.size() / 2; i < source.size(); ++i)
        source[i] *= 9;
    const auto result = carry(
        made_volume(PixelType::u8, side, side, grey), 0, 1, source, Tags(side * side), CarryMode::adapt, all_free());
    const Tags both = disc(side, 49, 50, 20);
    EXPECT_EQ(count(result, 0) + count(result, 1) + count(result, 9), side * side);
    EXPECT_NEAR(double(count(result, 1)), double(count(source, 1)), 0.1 * double(count(source, 1)));
    EXPECT_NEAR(double(count(result, 9)), double(count(source, 9)), 0.1 * double(count(source, 9)));
    EXPECT_NEAR(double(count(result, 0)), double(count(both, 0)), 0.1 * double(count(both, 1)));
}

TEST(Propagate, FramesThatHaveNothingInCommonKeepTheSizesOfTags)
{
    constexpr int side = 80;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> value(-1e30, 1e30);
    const auto volume = made_volume(PixelType::f32, side, side, [&](int, int, int) { return value(random); });
    for (const double radius : {1.0, 3.0, 10.0, 30.0}) {
        const Tags source = disc(side, 40, 40, radius);
        const Tags result = carry(volume, 0, 1, source, Tags(source.size()), CarryMode::adapt, all_free());
        EXPECT_GE(2 * count(result, 1), count(source, 1)) << radius;
        EXPECT_LE(count(result, 1), 2 * count(source, 1)) << radius;
    }
}

TEST(Propagate, AdaptsSinglePixelsAndRegionsAtTheRimOfFramesOfAnySize)
{
    const auto slope = [](int x, int y, int z) { return 3.0 * x + y + 10 * z; };
    for (const auto& [width, height] : {std::pair(1, 1), std::pair(2, 1), std::pair(1, 40), std::pair(17, 33)}) {
        const auto volume = made_volume(PixelType::i16, width, height, slope);
        const std::size_t pixels = volume.geometry.frame_voxels();
        for (const std::size_t at : {std::size_t(0), pixels / 2, pixels - 1}) {
            Tags source(pixels);
            source[at] = 255;
            const Tags result = carry(volume, 0, 1, source, Tags(pixels), CarryMode::adapt, all_free());
            EXPECT_GE(count(result, 255), 1) << width << " x " << height;
            EXPECT_LE(count(result, 255), 2) << width << " x " << height;
        }
    }
}

TEST(Propagate, ValuesWithoutAnyNumberAreCopied)
{
    const auto volume = made_volume(PixelType::f64, 40, 40, [](int, int, int) { return nothing; });
    const Tags source = disc(40, 20, 20, 8);
    EXPECT_EQ(carry(volume, 0, 1, source, Tags(source.size()), CarryMode::adapt, all_free()), source);
}
