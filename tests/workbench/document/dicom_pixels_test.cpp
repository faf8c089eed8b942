#include "tests/workbench/document/fixtures.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

using Writing = Dicom::Writing;

/// Opens it alone.
Result<Opened> opened(const Dicom& dicom)
{
    const Folder folder;
    write_dicom(folder / "a.dcm", dicom);
    return document::open({folder / "a.dcm"});
}

std::string turned(std::string bytes, std::size_t width)
{
    for (std::size_t at = 0; at + width <= bytes.size(); at += width)
        std::reverse(bytes.begin() + std::ptrdiff_t(at), bytes.begin() + std::ptrdiff_t(at + width));
    return bytes;
}

/// An image of colours, two pixels wide and one high unless told.
Dicom colours(const std::string& photometric, const std::string& pixels, int bits = 8)
{
    Dicom dicom;
    dicom.photometric = photometric;
    dicom.samples = 3;
    dicom.bits = bits;
    dicom.columns = 2;
    dicom.rows = 1;
    dicom.pixels = pixels;
    return dicom;
}

/// An image of two pixels that are numbers of colours.
Dicom palette(std::uint16_t entries, std::uint16_t first, std::uint16_t bits, const std::vector<std::string>& tables)
{
    Dicom dicom;
    dicom.photometric = "PALETTE COLOR";
    dicom.bits = 8;
    dicom.columns = 2;
    dicom.rows = 1;
    dicom.pixels = "\x0B\x0C";
    for (std::uint32_t i = 0; i < 3; ++i) {
        dicom.more[0x00281101 + i] = {"US", as_bytes<std::uint16_t>({entries, first, bits})};
        dicom.more[0x00281201 + i] = {"OW", tables[i]};
    }
    return dicom;
}

std::vector<Rgb> colours_of(const Result<Opened>& opened)
{
    return opened && opened->volume.is_colour() ? pixels_of<Rgb>(opened->volume) : std::vector<Rgb>();
}

std::string rle(const std::vector<std::string>& segments)
{
    std::vector<std::uint32_t> table = {std::uint32_t(segments.size())};
    std::uint32_t at = 64;
    for (const auto& segment : segments) {
        table.push_back(at);
        at += std::uint32_t(segment.size());
    }
    table.resize(16);
    std::string bytes = as_bytes(table);
    for (const auto& segment : segments)
        bytes += segment;
    return bytes;
}

constexpr const char* rle_syntax = "1.2.840.10008.1.2.5";

}

TEST(DicomPixels, EachWayOfWritingGivesTheSameValues)
{
    const auto pixels = varied_pixels<std::int16_t>(24);
    for (const auto writing : {Writing::little_endian, Writing::implicit, Writing::big_endian, Writing::deflated})
        for (const bool bare : {false, true}) {
            if (bare && writing == Writing::deflated)
                continue; // nothing would tell
            Dicom dicom;
            dicom.writing = writing;
            dicom.bare = bare;
            dicom.is_signed = true;
            dicom.pixels = turned(as_bytes(pixels), writing == Writing::big_endian ? 2 : 1);
            const auto image = opened(dicom);
            ASSERT_TRUE(image) << message_of(image);
            EXPECT_EQ(pixels_of<std::int16_t>(image->volume), pixels) << int(writing) << bare;
        }
}

TEST(DicomPixels, WhatStandsInFrontOfTheMarkDoesNotMatter)
{
    for (const auto& begin : {std::string("II*\0\x08\0\0\0", 8), std::string("MM\0*", 4), std::string("BM")}) {
        Dicom dicom;
        dicom.preamble = begin + std::string(128 - begin.size(), '\0');
        const auto image = opened(dicom);
        ASSERT_TRUE(image) << message_of(image);
        EXPECT_EQ(image->volume.stored(5, 0, 0), 5);
    }
}

TEST(DicomPixels, ZerosAfterTheLastElementDoNotMatter)
{
    const Folder folder;
    write_dicom(folder / "a", {});
    write_file(folder / "a", bytes_of_file(folder / "a") + std::string(333, '\0'));
    const auto image = document::open({folder / "a"});
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.stored(5, 0, 0), 5);
}

TEST(DicomPixels, OnlyTheStoredBitsCount)
{
    Dicom dicom;
    dicom.columns = 4;
    dicom.rows = 1;
    dicom.bits_stored = 12;
    dicom.pixels = as_bytes<std::uint16_t>({0xF123, 0x0FFF, 0x8800, 0x0000});
    const auto plain = opened(dicom);
    ASSERT_TRUE(plain) << message_of(plain);
    EXPECT_EQ(pixels_of<std::uint16_t>(plain->volume), (std::vector<std::uint16_t>{0x123, 0xFFF, 0x800, 0}));

    dicom.is_signed = true;
    const auto with_sign = opened(dicom);
    ASSERT_TRUE(with_sign) << message_of(with_sign);
    EXPECT_EQ(pixels_of<std::int16_t>(with_sign->volume), (std::vector<std::int16_t>{0x123, -1, -2048, 0}));

    dicom.high_bit = 15;
    const auto in_upper_bits = opened(dicom);
    ASSERT_TRUE(in_upper_bits) << message_of(in_upper_bits);
    EXPECT_EQ(
        pixels_of<std::int16_t>(in_upper_bits->volume), (std::vector<std::int16_t>{0xF12 - 0x1000, 0xFF, -1920, 0}));
}

TEST(DicomPixels, SingleBitsAreReadWithoutGapsBetweenRowsAndFrames)
{
    Dicom dicom;
    dicom.bits = 1;
    dicom.columns = 3;
    dicom.rows = 3;
    dicom.frames = 2;
    dicom.pixels = "\x11\x12\x01"; // 1000 1000 0100 1000 10
    for (const auto writing : {Writing::little_endian, Writing::big_endian}) {
        dicom.writing = writing;
        const auto image = opened(dicom);
        ASSERT_TRUE(image) << message_of(image);
        EXPECT_EQ(pixels_of<std::uint8_t>(image->volume),
            (std::vector<std::uint8_t>{1, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 0, 1, 0}));
    }
}

TEST(DicomPixels, BytesThatWereWrittenAsWordsInTheOtherOrderAreTurned)
{
    Dicom dicom;
    dicom.writing = Writing::big_endian;
    dicom.bits = 8;
    dicom.columns = 3;
    dicom.rows = 1;
    dicom.frames = 2;
    dicom.more[0x7FE00010] = {"OW", std::string("\2\1\4\3\6\5")};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(pixels_of<std::uint8_t>(image->volume), (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6}));
}

TEST(DicomPixels, FloatingPointNumbersAreKept)
{
    const auto values = varied_pixels<float>(24);
    Dicom dicom;
    dicom.bits = 32;
    dicom.more[0x7FE00008] = {"OF", as_bytes(values)};
    dicom.more[0x7FE00010] = {};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(pixels_of<float>(image->volume), values);
}

TEST(DicomPixels, ColoursAreRedGreenAndBlueWhateverTheirOrder)
{
    const std::vector<Rgb> expected = {{1, 2, 3}, {4, 5, 6}};
    EXPECT_EQ(colours_of(opened(colours("RGB", "\1\2\3\4\5\6"))), expected);
    auto planar = colours("RGB", "\1\4\2\5\3\6");
    planar.planar = true;
    EXPECT_EQ(colours_of(opened(planar)), expected);
}

TEST(DicomPixels, BrightnessAndChromaBecomeRedGreenAndBlue)
{
    const std::vector<Rgb> red_and_grey = {{254, 0, 0}, {128, 128, 128}};
    EXPECT_EQ(colours_of(opened(colours("YBR_FULL", "\x4C\x55\xFF\x80\x80\x80"))), red_and_grey);
    const std::vector<Rgb> light_and_dark_red = {{254, 0, 0}, {178, 0, 0}};
    EXPECT_EQ(colours_of(opened(colours("YBR_FULL_422", std::string("\x4C\0\x55\xFF", 4)))), light_and_dark_red);
    const std::vector<Rgb> white_and_black = {{255, 255, 255}, {0, 0, 0}};
    EXPECT_EQ(colours_of(opened(colours("YBR_PARTIAL_422", "\xEB\x10\x80\x80"))), white_and_black);
}

TEST(DicomPixels, ColoursOfMoreBitsAreScaledToEightAndThatIsTold)
{
    const std::vector<Rgb> expected = {{0, 128, 255}, {1, 2, 3}};
    const auto told = [](const Result<Opened>& image, const std::string& bits) {
        return image && image->notices.size() == 1 &&
               image->notices[0].find(bits + " bits a channel") != std::string::npos;
    };
    const auto wide = opened(colours("RGB", as_bytes<std::uint16_t>({0, 0x8080, 0xFFFF, 0x0101, 0x0202, 0x0303}), 16));
    EXPECT_EQ(colours_of(wide), expected);
    EXPECT_TRUE(told(wide, "16"));
    const auto widest = opened(
        colours("RGB", as_bytes<std::uint32_t>({0, 0x80808080, 0xFFFFFFFF, 0x01010101, 0x02020202, 0x03030303}), 32));
    EXPECT_EQ(colours_of(widest), expected);
    EXPECT_TRUE(told(widest, "32"));
    auto twelve = colours("RGB", as_bytes<std::uint16_t>({0, 2056, 4095, 16, 32, 48}), 16);
    twelve.bits_stored = 12;
    EXPECT_EQ(colours_of(opened(twelve)), expected);
}

TEST(DicomPixels, NumbersOfColoursAreLookedUpInTheTables)
{
    const std::vector<Rgb> expected = {{20, 50, 80}, {30, 60, 90}};
    const auto eight = palette(3, 10, 8, {"\x0A\x14\x1E", "\x28\x32\x3C", "\x46\x50\x5A"});
    EXPECT_EQ(colours_of(opened(eight)), expected);
    const auto words = [](std::uint16_t a, std::uint16_t b, std::uint16_t c) {
        return as_bytes<std::uint16_t>({a, b, c});
    };
    const auto sixteen =
        palette(3, 10, 16, {words(0x0A12, 0x14FF, 0x1E00), words(0x2800, 0x3201, 0x3C12), words(0x4612, 0x50, 0x5A12)});
    EXPECT_EQ(colours_of(opened(sixteen)), (std::vector<Rgb>{{20, 50, 0}, {30, 60, 90}}));
    const auto half = palette(3, 10, 16, {words(10, 20, 30), words(40, 50, 60), words(70, 80, 90)});
    EXPECT_EQ(colours_of(opened(half)), expected);
    auto beyond = eight;
    beyond.pixels = "\x01\xFF";
    EXPECT_EQ(colours_of(opened(beyond)), (std::vector<Rgb>{{10, 40, 70}, {30, 60, 90}}));
}

TEST(DicomPixels, NumbersOfColoursWithoutTablesAreShownAsGreyAndThatIsTold)
{
    auto dicom = palette(3, 10, 8, {"\x0A\x14\x1E", "\x28\x32\x3C", "\x46\x50\x5A"});
    dicom.more.erase(0x00281202);
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.stored(1, 0, 0), 12);
    ASSERT_EQ(image->notices.size(), 1u);
    EXPECT_NE(image->notices[0].find("table of colours"), std::string::npos);
}

TEST(DicomPixels, ColoursOfRetiredKindsAreRefused)
{
    auto dicom = colours("CMYK", "12345678");
    dicom.samples = 4;
    EXPECT_NE(message_of(opened(dicom)).find("cannot be shown (CMYK)"), std::string::npos);
}

TEST(DicomPixels, EachCompressionWithoutLossGivesTheStoredValues)
{
    const auto pixels = varied_pixels<std::uint16_t>(64 * 48);
    for (const auto compression : {Compression::jpeg, Compression::jpeg_2000}) {
        const Folder folder;
        write_compressed_dicom(folder / "a.dcm", 64, 48, pixels, compression);
        const auto image = document::open({folder / "a.dcm"});
        ASSERT_TRUE(image) << message_of(image);
        EXPECT_EQ(pixels_of<std::uint16_t>(image->volume), pixels) << int(compression);
    }
}

TEST(DicomPixels, JpegLsGivesTheStoredValues)
{
    const auto pixels = varied_pixels<std::uint16_t>(24);
    Dicom dicom;
    dicom.syntax = "1.2.840.10008.1.2.4.80";
    dicom.fragments = {"", jpeg_ls(6, 4, 1, pixels)};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(pixels_of<std::uint16_t>(image->volume), pixels);

    auto colour = colours("RGB", "", 16);
    colour.syntax = dicom.syntax;
    colour.fragments = {"", jpeg_ls(2, 1, 3, {0x0101, 0x0404, 0x0202, 0x0505, 0x0303, 0x0606})};
    EXPECT_EQ(colours_of(opened(colour)), (std::vector<Rgb>{{1, 2, 3}, {4, 5, 6}}));
}

TEST(DicomPixels, RunsAndLiteralsOfSeveralBytesAreUnpacked)
{
    Dicom dicom;
    dicom.rows = 1;
    dicom.columns = 5;
    dicom.syntax = rle_syntax;
    // The upper bytes: 5 times 1; the lower: 2, 3, then 3 times 4 with a code that stands for nothing between.
    dicom.fragments = {"", rle({std::string("\xFC\1"), std::string("\1\2\3\x80\xFE\4")})};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(pixels_of<std::uint16_t>(image->volume), (std::vector<std::uint16_t>{0x102, 0x103, 0x104, 0x104, 0x104}));
}

TEST(DicomPixels, FramesInSeveralPiecesAreFoundByTheirTable)
{
    const auto first = rle({std::string("\xFB\x0A")}), second = rle({std::string("\xFB\x14\0", 3)});
    Dicom dicom;
    dicom.bits = 8;
    dicom.rows = 2;
    dicom.columns = 3;
    dicom.frames = 2;
    dicom.syntax = rle_syntax;
    const auto begin = std::uint32_t(first.size() + 2 * 8);
    dicom.fragments = {as_bytes<std::uint32_t>({0, begin}), first.substr(0, 40), first.substr(40), second.substr(0, 30),
        second.substr(30)};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.stored(2, 1, 0), 10);
    EXPECT_EQ(image->volume.stored(2, 1, 1), 20);

    dicom.fragments[0] = as_bytes<std::uint32_t>({0, begin + 1});
    EXPECT_NE(message_of(opened(dicom)).find("frame 1 cannot be unpacked"), std::string::npos);
}

TEST(DicomPixels, PicturesThatDoNotFitOrAreMissingAreRefused)
{
    Dicom dicom;
    dicom.bits = 8;
    dicom.syntax = rle_syntax;
    dicom.fragments = {"", rle({std::string("\xFB\x0A")})};
    EXPECT_NE(
        message_of(opened(dicom)).find("\"a.dcm\" is damaged: its picture cannot be unpacked"), std::string::npos);
    dicom.frames = 3;
    EXPECT_NE(message_of(opened(dicom)).find("promises 3 frames, but 1 are there"), std::string::npos);
    dicom.frames = 1;
    dicom.syntax = "1.2.840.10008.1.2.4.100";
    EXPECT_NE(message_of(opened(dicom)).find("transfer syntax 1.2.840.10008.1.2.4.100"), std::string::npos);
    dicom.fragments.clear();
    dicom.syntax.clear();
    dicom.more[0x7FE00010] = {"OB", ""};
    EXPECT_NE(message_of(opened(dicom)).find("is cut off"), std::string::npos);
}
