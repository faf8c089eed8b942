#include "tests/workbench/document/fixtures.h"
#include "workbench/document/render.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

template <class Pixel>
Volume volume_of(const std::vector<Pixel>& pixels, int width)
{
    Volume volume;
    volume.type = type_of<Pixel>();
    volume.geometry.size = {width, int(pixels.size()) / width, 1};
    volume.pixels = PixelMemory::allocate(pixels.size() * sizeof(Pixel));
    std::memcpy(volume.pixels.data(), pixels.data(), pixels.size() * sizeof(Pixel));
    return volume;
}

std::vector<std::uint32_t> rendered(const Volume& volume, Window window)
{
    std::vector<std::uint32_t> picture(volume.geometry.frame_voxels());
    render_frame(volume, 0, window, {0, 0, volume.width(), volume.height()}, picture.data(), volume.width());
    return picture;
}

template <class Pixel>
void expect_ramp()
{
    const auto volume = volume_of<Pixel>({0, 10, 60, 110, 120}, 5);
    const auto picture = rendered(volume, {60, 100});
    EXPECT_EQ(picture, (std::vector<std::uint32_t>{0xFF000000, 0xFF000000, 0xFF808080, 0xFFFFFFFF, 0xFFFFFFFF}))
        << name_of(volume.type);
}

}

TEST(Render, SpreadsTheWindowOverTheGreyLevelsForEveryType)
{
    expect_ramp<std::uint8_t>();
    expect_ramp<std::int8_t>();
    expect_ramp<std::uint16_t>();
    expect_ramp<std::int16_t>();
    expect_ramp<std::uint32_t>();
    expect_ramp<std::int32_t>();
    expect_ramp<float>();
    expect_ramp<double>();
}

TEST(Render, UsesSlopeInterceptAndInversion)
{
    auto volume = volume_of<std::int16_t>({-10, 0, 10}, 3);
    volume.slope = 2;
    volume.intercept = 100;
    EXPECT_EQ(rendered(volume, {100, 40}), (std::vector<std::uint32_t>{0xFF000000, 0xFF808080, 0xFFFFFFFF}));
    volume.inverted = true;
    EXPECT_EQ(rendered(volume, {100, 40})[0], 0xFFFFFFFFu);
    EXPECT_EQ(rendered(volume, {100, 40})[2], 0xFF000000u);
}

TEST(Render, NotANumberIsBlackAndInfinityIsClamped)
{
    const float infinity = INFINITY;
    const auto volume = volume_of<float>({NAN, -infinity, infinity}, 3);
    EXPECT_EQ(rendered(volume, {0, 1}), (std::vector<std::uint32_t>{0xFF000000, 0xFF000000, 0xFFFFFFFF}));
}

TEST(Render, RegionsLieWhereTheyShall)
{
    std::vector<std::uint8_t> pixels(35);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = std::uint8_t(i);
    const auto volume = volume_of(pixels, 7);
    std::vector<std::uint32_t> picture(40, 7);
    render_frame(volume, 0, {127.5, 255}, {2, 1, 3, 2}, picture.data(), 10);
    EXPECT_EQ(picture[0], 0xFF090909u);
    EXPECT_EQ(picture[2], 0xFF0B0B0Bu);
    EXPECT_EQ(picture[3], 7u);
    EXPECT_EQ(picture[10], 0xFF101010u);
    EXPECT_EQ(picture[20], 7u);
}

TEST(Render, ColoursKeepTheirChannels)
{
    Volume volume;
    volume.type = PixelType::rgb;
    volume.geometry.size = {1, 1, 1};
    volume.pixels = PixelMemory::allocate(3);
    std::memcpy(volume.pixels.data(), "\x12\x80\xFE", 3);
    EXPECT_EQ(rendered(volume, suggest_window(volume)), std::vector{0xFF1280FEu});
    EXPECT_EQ(value_text(volume, 0, 0, 0), "R 18 G 128 B 254");
}

TEST(SuggestWindow, LeavesAFewExtremesOut)
{
    std::vector<float> pixels(10'000);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = float(i % 100);
    pixels[5] = 1e9f;
    pixels[6] = NAN;
    const auto window = suggest_window(volume_of(pixels, 100));
    EXPECT_NEAR(window.centre, 49.5, 1);
    EXPECT_NEAR(window.width, 99, 2);
}

TEST(SuggestWindow, OfAConstantImageHasAWidth)
{
    const auto window = suggest_window(volume_of(std::vector<std::uint16_t>(100, 500), 10));
    EXPECT_EQ(window.centre, 500);
    EXPECT_GT(window.width, 0);
    const auto blank = suggest_window(volume_of(std::vector<float>(100, NAN), 10));
    EXPECT_GT(blank.width, 0);
}

TEST(SuggestWindow, ShowsTheLittleThatDiffers)
{
    std::vector<std::uint8_t> pixels(10'000, 0);
    pixels[50] = 200;
    const auto window = suggest_window(volume_of(pixels, 100));
    EXPECT_EQ(window, (Window{100, 200}));
}

TEST(SuggestWindow, TakesTheHeadersAndGreyValuesOfANegativeSlope)
{
    auto volume = volume_of(std::vector<std::int16_t>{0, 100}, 2);
    volume.slope = -1;
    volume.intercept = 10;
    EXPECT_EQ(suggest_window(volume), (Window{-40, 100}));
    volume.header_window = Window{40, 400};
    EXPECT_EQ(suggest_window(volume), (Window{40, 400}));
}

TEST(ValueText, HasTheUnit)
{
    auto volume = volume_of(std::vector<std::int16_t>{24}, 1);
    volume.intercept = -1024;
    volume.unit = "HU";
    EXPECT_EQ(value_text(volume, 0, 0, 0), "-1000 HU");
}
