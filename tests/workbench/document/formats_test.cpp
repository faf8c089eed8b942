#include "tests/workbench/document/fixtures.h"

#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

template <class Pixel>
void expect_round_trip(const Path& path, bool compressed)
{
    SCOPED_TRACE(path.filename().string() + " " + name_of(type_of<Pixel>()));
    const auto geometry = turned_geometry(7, 5, 3);
    const auto pixels = varied_pixels<Pixel>(geometry.voxels());
    write_image(path, type_of<Pixel>(), geometry, pixels.data(), 1, compressed);
    const auto opened = document::open({path});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.type, type_of<Pixel>());
    EXPECT_EQ(difference(opened->volume.geometry, geometry), "");
    EXPECT_EQ(pixels_of<Pixel>(opened->volume), pixels);
    EXPECT_EQ(opened->volume.slope, 1);
    EXPECT_EQ(opened->volume.intercept, 0);
    EXPECT_TRUE(opened->notices.empty());
    EXPECT_EQ(opened->volume.frames.size(), 3u);
    EXPECT_EQ(opened->volume.files, std::vector{path.string()});
}

template <class Pixel>
void expect_round_trips()
{
    const Folder folder;
    for (const char* name : {"a.nii", "a.nii.gz", "a.nrrd", "a.mha", "a.nhdr", "a.mhd", "a.hdr"})
        for (const bool compressed : {false, true})
            expect_round_trip<Pixel>(folder / name, compressed);
}

std::vector<std::uint8_t> picture_pixels(std::size_t count)
{
    return varied_pixels<std::uint8_t>(count);
}

}

TEST(Formats, EveryTypeOfEveryVolumeFormatKeepsItsValues)
{
    expect_round_trips<std::uint8_t>();
    expect_round_trips<std::int8_t>();
    expect_round_trips<std::uint16_t>();
    expect_round_trips<std::int16_t>();
    expect_round_trips<std::uint32_t>();
    expect_round_trips<std::int32_t>();
    expect_round_trips<float>();
    expect_round_trips<double>();
}

TEST(Formats, SampleOpensWithItsSizeAndPlace)
{
    const auto opened = document::open({"/usr/share/mricron/templates/ch2.nii.gz"});
    ASSERT_TRUE(opened) << message_of(opened);
    const auto& volume = opened->volume;
    EXPECT_EQ(volume.geometry.size, (std::array{181, 217, 181}));
    EXPECT_EQ(volume.type, PixelType::u8);
    Geometry geometry;
    const auto pixels = read_bytes_with_itk("/usr/share/mricron/templates/ch2.nii.gz", geometry);
    EXPECT_EQ(pixels_of<std::uint8_t>(volume), pixels);
    EXPECT_EQ(difference(volume.geometry, geometry), "");
}

TEST(Formats, SingleSliceAndOddSizesStayWhole)
{
    const Folder folder;
    for (const auto& size : {std::array{1, 1, 1}, std::array{3, 1, 1}, std::array{13, 11, 1}, std::array{1, 5, 9}}) {
        const auto geometry = turned_geometry(size[0], size[1], size[2]);
        const auto pixels = varied_pixels<std::int16_t>(geometry.voxels());
        for (const char* name : {"a.nii.gz", "a.nrrd", "a.mha"}) {
            write_image(folder / name, PixelType::i16, geometry, pixels.data(), 1, true);
            const auto opened = document::open({folder / name});
            ASSERT_TRUE(opened) << message_of(opened);
            EXPECT_EQ(difference(opened->volume.geometry, geometry), "") << name;
            EXPECT_EQ(pixels_of<std::int16_t>(opened->volume), pixels);
        }
    }
}

TEST(Formats, GreyPicturesKeepTheirPixels)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {13, 9, 1};
    const auto pixels = picture_pixels(geometry.voxels());
    for (const char* name : {"a.png", "a.tif", "a.bmp"}) {
        write_image(folder / name, PixelType::u8, geometry, pixels.data());
        const auto opened = document::open({folder / name});
        ASSERT_TRUE(opened) << message_of(opened);
        EXPECT_EQ(opened->volume.geometry.size, geometry.size) << name;
        EXPECT_EQ(opened->volume.frame_count(), 1);
        EXPECT_EQ(pixels_of<std::uint8_t>(opened->volume), pixels) << name;
    }
}

TEST(Formats, SixteenBitPicturesKeepTheirPixels)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {13, 9, 1};
    const auto pixels = varied_pixels<std::uint16_t>(geometry.voxels());
    for (const char* name : {"a.png", "a.tif"}) {
        write_image(folder / name, PixelType::u16, geometry, pixels.data());
        const auto opened = document::open({folder / name});
        ASSERT_TRUE(opened) << message_of(opened);
        EXPECT_EQ(pixels_of<std::uint16_t>(opened->volume), pixels) << name;
    }
}

TEST(Formats, ColourPicturesKeepTheirColours)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {7, 5, 1};
    const auto pixels = picture_pixels(geometry.voxels() * 3);
    for (const char* name : {"a.png", "a.tif", "a.bmp", "a.nii.gz", "a.nrrd", "a.mha"}) {
        write_image(folder / name, PixelType::u8, geometry, pixels.data(), 3);
        const auto opened = document::open({folder / name});
        ASSERT_TRUE(opened) << message_of(opened);
        ASSERT_TRUE(opened->volume.is_colour()) << name;
        for (std::size_t i = 0; i < geometry.voxels(); ++i)
            ASSERT_EQ(opened->volume.as<Rgb>()[i], (Rgb{pixels[3 * i], pixels[3 * i + 1], pixels[3 * i + 2]})) << name;
    }
}

TEST(Formats, TransparencyIsDropped)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {7, 5, 1};
    const auto pixels = picture_pixels(geometry.voxels() * 4);
    write_image(folder / "a.png", PixelType::u8, geometry, pixels.data(), 4);
    const auto opened = document::open({folder / "a.png"});
    ASSERT_TRUE(opened) << message_of(opened);
    ASSERT_EQ(opened->volume.type, PixelType::rgb);
    EXPECT_EQ(opened->volume.pixels.size(), geometry.voxels() * 3);
    for (std::size_t i = 0; i < geometry.voxels(); ++i)
        ASSERT_EQ(opened->volume.as<Rgb>()[i], (Rgb{pixels[4 * i], pixels[4 * i + 1], pixels[4 * i + 2]}));
}

TEST(Formats, SixteenBitColoursAreScaledDownAndToldSo)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {2, 1, 1};
    const std::vector<std::uint16_t> pixels = {0, 65535, 257, 128, 129, 32896};
    write_image(folder / "a.png", PixelType::u16, geometry, pixels.data(), 3);
    const auto opened = document::open({folder / "a.png"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.colour(0, 0, 0), (Rgb{0, 255, 1}));
    EXPECT_EQ(opened->volume.colour(1, 0, 0), (Rgb{0, 1, 128}));
    EXPECT_EQ(opened->notices.size(), 1u);
}

TEST(Formats, JpegOpensNearToWhatWasWritten)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {16, 16, 1};
    const std::vector<std::uint8_t> pixels(256, 100);
    write_image(folder / "a.jpg", PixelType::u8, geometry, pixels.data());
    const auto opened = document::open({folder / "a.jpg"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_NEAR(opened->volume.grey(5, 5, 0), 100, 2);
}

TEST(Formats, OfSeveralVolumesTheFirstIsTakenAndToldSo)
{
    const Folder folder;
    const auto geometry = turned_geometry(4, 3, 10);
    const auto pixels = varied_pixels<std::int16_t>(geometry.voxels());
    write_image(folder / "a.nii", PixelType::i16, geometry, pixels.data());
    auto bytes = bytes_of_file(folder / "a.nii");
    bytes[40] = 4; // the number of dimensions, then 4 x 3 x 5 x 2
    bytes[46] = 5;
    bytes[48] = 2;
    write_file(folder / "a.nii", bytes);
    write_gzip(folder / "b.nii.gz", bytes);
    for (const char* name : {"a.nii", "b.nii.gz"}) {
        const auto opened = document::open({folder / name});
        ASSERT_TRUE(opened) << message_of(opened);
        EXPECT_EQ(opened->volume.geometry.size, (std::array{4, 3, 5}));
        EXPECT_EQ(pixels_of<std::int16_t>(opened->volume), std::vector(pixels.begin(), pixels.begin() + 60));
        ASSERT_EQ(opened->notices.size(), 1u);
        EXPECT_NE(opened->notices[0].find("2 volumes"), std::string::npos);
    }
}

TEST(Formats, OtherByteOrderIsTurnedRound)
{
    const Folder folder;
    write_file(folder / "a.nrrd",
        "NRRD0004\ntype: uint16\ndimension: 3\nsizes: 2 1 1\nendian: big\nencoding: raw\n\n\x12\x34\xFF\x01");
    const auto opened = document::open({folder / "a.nrrd"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.stored(0, 0, 0), 0x1234);
    EXPECT_EQ(opened->volume.stored(1, 0, 0), 0xFF01);
}

TEST(Formats, TextPixelsAndListsOfFilesAreRead)
{
    const Folder folder;
    write_file(
        folder / "a.nrrd", "NRRD0004\ntype: short\ndimension: 3\nsizes: 2 2 1\nencoding: ascii\n\n1 -2\n300 4\n");
    const auto text = document::open({folder / "a.nrrd"});
    ASSERT_TRUE(text) << message_of(text);
    EXPECT_EQ(pixels_of<std::int16_t>(text->volume), (std::vector<std::int16_t>{1, -2, 300, 4}));

    write_file(folder / "1.raw", "abcd");
    write_file(folder / "2.raw", "efgh");
    write_file(folder / "list.mhd", "ObjectType = Image\nNDims = 3\nDimSize = 2 2 2\nElementType = "
                                    "MET_UCHAR\nElementDataFile = LIST\n1.raw\n2.raw\n");
    write_file(folder / "pattern.mhd",
        "ObjectType = Image\nNDims = 3\nDimSize = 2 2 2\nElementType = MET_UCHAR\nElementDataFile = %d.raw 1 2 1\n");
    write_file(folder / "list.nhdr",
        "NRRD0004\ntype: uchar\ndimension: 3\nsizes: 2 2 2\nencoding: raw\ndata file: LIST\n1.raw\n2.raw\n");
    for (const char* name : {"list.mhd", "pattern.mhd", "list.nhdr"}) {
        const auto opened = document::open({folder / name});
        ASSERT_TRUE(opened) << name << ": " << message_of(opened);
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(opened->volume.pixels.data()), 8), "abcdefgh") << name;
    }
}

TEST(Formats, SixtyFourBitIntegersBecomeWhatHoldsThem)
{
    const Folder folder;
    const auto open_values = [&](const std::vector<std::int64_t>& values) {
        write_file(folder / "a.nrrd", "NRRD0004\ntype: int64\ndimension: 3\nsizes: " + std::to_string(values.size()) +
                                          " 1 1\nendian: little\nencoding: raw\n\n" + as_bytes(values));
        return document::open({folder / "a.nrrd"});
    };
    const auto small = open_values({-5, 0, 7});
    ASSERT_TRUE(small) << message_of(small);
    EXPECT_EQ(pixels_of<std::int32_t>(small->volume), (std::vector{-5, 0, 7}));
    const auto middle = open_values({4'000'000'000, 1});
    ASSERT_TRUE(middle) << message_of(middle);
    EXPECT_EQ(pixels_of<std::uint32_t>(middle->volume), (std::vector{4'000'000'000u, 1u}));
    const auto large = open_values({-5'000'000'001, 1});
    ASSERT_TRUE(large) << message_of(large);
    EXPECT_EQ(pixels_of<double>(large->volume), (std::vector{-5'000'000'001.0, 1.0}));
    EXPECT_NE(message_of(open_values({std::int64_t(1) << 60})).find("2^53"), std::string::npos);
}

TEST(Formats, VoxelFileOfAPairLeadsToItsHeader)
{
    const Folder folder;
    const auto geometry = turned_geometry(3, 4, 5);
    const auto pixels = varied_pixels<std::int16_t>(geometry.voxels());
    write_image(folder / "a.hdr", PixelType::i16, geometry, pixels.data());
    ASSERT_TRUE(std::filesystem::exists(folder / "a.img"));
    const auto opened = document::open({folder / "a.img"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(pixels_of<std::int16_t>(opened->volume), pixels);
}

TEST(Formats, ReadingTellsHowFarItIsAndStopsWhenTold)
{
    std::vector<double> told;
    std::atomic<bool> cancelled = false;
    Progress progress{[&](double done) { told.push_back(done); }, &cancelled};
    ASSERT_TRUE(document::open({"/usr/share/mricron/templates/ch2.nii.gz"}, progress));
    ASSERT_GT(told.size(), 3u);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 1);
    cancelled = true;
    const auto stopped = document::open({"/usr/share/mricron/templates/ch2.nii.gz"}, progress);
    ASSERT_FALSE(stopped);
    EXPECT_TRUE(stopped.failure().cancelled);
}
