#include "tests/workbench/document/fixtures.h"

#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

using Writing = Dicom::Writing;

/// A group of a frame: a sequence of one item with these elements.
std::string group(std::uint32_t tag, const std::string& elements, Writing writing)
{
    return element(tag, "SQ", items({elements}), writing);
}

/// Frames at these places along z, of 2 x 1 pixels that count up, each with its place in a group of its own.
Dicom placed_frames(const std::vector<std::string>& places, Writing writing = Writing::little_endian)
{
    Dicom dicom;
    dicom.writing = writing;
    dicom.columns = 2;
    dicom.rows = 1;
    dicom.frames = int(places.size());
    dicom.position = {};
    dicom.orientation = {};
    std::vector<std::string> own;
    for (const auto& place : places)
        own.push_back(group(0x00209113, element(0x00200032, "DS", "-10\\-20\\" + place, writing), writing));
    const auto plane = group(0x00209116, element(0x00200037, "DS", "1\\0\\0\\0\\1\\0", writing), writing);
    const auto measures = group(
        0x00289110, element(0x00180050, "DS", "3", writing) + element(0x00280030, "DS", "0.75\\1.5", writing), writing);
    dicom.more[0x00280030] = {};
    dicom.more[0x52009229] = {"SQ", items({plane + measures})};
    dicom.more[0x52009230] = {"SQ", items(own)};
    return dicom;
}

Result<Opened> opened(const Dicom& dicom)
{
    const Folder folder;
    write_dicom(folder / "a.dcm", dicom);
    return document::open({folder / "a.dcm"});
}

std::vector<double> first_values(const Volume& volume)
{
    std::vector<double> values;
    for (int z = 0; z < volume.frame_count(); ++z)
        values.push_back(volume.stored(0, 0, z));
    return values;
}

}

TEST(DicomFrames, OfOneFileAreSortedByTheirOwnPlaces)
{
    for (const auto writing : {Writing::little_endian, Writing::implicit}) {
        const auto image = opened(placed_frames({"15", "5", "10"}, writing));
        ASSERT_TRUE(image) << message_of(image);
        const auto& volume = image->volume;
        EXPECT_EQ(first_values(volume), (std::vector<double>{2, 4, 0}));
        EXPECT_EQ(volume.geometry.origin, (std::array{-10.0, -20.0, 5.0}));
        EXPECT_EQ(volume.geometry.spacing, (std::array{1.5, 0.75, 5.0}));
        ASSERT_EQ(volume.frames.size(), 3u);
        EXPECT_EQ(volume.frames[0].position, 5);
        EXPECT_EQ(volume.frames[0].instance, 2);
        EXPECT_EQ(volume.files.size(), 1u);
    }
}

TEST(DicomFrames, SeveralAtEachPlaceOfOneFileAreTold)
{
    const auto image = opened(placed_frames({"0", "2", "0", "2"}));
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(first_values(image->volume), (std::vector<double>{0, 2}));
    ASSERT_EQ(image->notices.size(), 1u);
    EXPECT_NE(image->notices[0].find("4 frames at 2 places"), std::string::npos);
}

TEST(DicomFrames, WithoutPlacesKeepTheirOrderAndTheGivenDistance)
{
    Dicom dicom;
    dicom.frames = 3;
    dicom.position = {};
    const auto by_thickness = opened(dicom);
    ASSERT_TRUE(by_thickness) << message_of(by_thickness);
    EXPECT_EQ(first_values(by_thickness->volume), (std::vector<double>{0, 24, 48}));
    EXPECT_EQ(by_thickness->volume.geometry.spacing, (std::array{0.25, 0.5, 2.5}));
    dicom.more[0x00180088] = {"DS", "4"};
    const auto by_distance = opened(dicom);
    ASSERT_TRUE(by_distance) << message_of(by_distance);
    EXPECT_EQ(by_distance->volume.geometry.spacing[2], 4);
}

TEST(DicomFrames, ScalesOfTheirOwnLeadToGreyValues)
{
    auto dicom = placed_frames({"0", "1"});
    std::vector<std::string> own;
    for (const auto* slope : {"1", "10"}) {
        const auto place = element(0x00200032, "DS", *(slope + 1) == 0 ? "0\\0\\0" : "0\\0\\1");
        const auto scale = element(0x00281052, "DS", "100") + element(0x00281053, "DS", slope);
        own.push_back(
            group(0x00209113, place, Writing::little_endian) + group(0x00289145, scale, Writing::little_endian));
    }
    dicom.more[0x52009230] = {"SQ", items(own)};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.grey(1, 0, 0), 101);
    EXPECT_EQ(image->volume.grey(1, 0, 1), 130);
}

TEST(DicomFrames, DistancesOfPixelsComeFromTheBestSource)
{
    const auto spacing = [](const Dicom& dicom) {
        const auto image = opened(dicom);
        return image ? image->volume.geometry.spacing : std::array<double, 3>{};
    };
    Dicom dicom;
    dicom.more[0x00280030] = {};
    EXPECT_EQ(spacing(dicom), (std::array{1.0, 1.0, 2.5}));
    dicom.more[0x00280034] = {"IS", "2\\1"};
    EXPECT_EQ(spacing(dicom), (std::array{1.0, 2.0, 2.5}));
    const auto centimetres = as_bytes<std::uint16_t>({3});
    dicom.more[0x00186011] = {
        "SQ", items({element(0x00186024, "US", centimetres) + element(0x00186026, "US", centimetres) +
                     element(0x0018602C, "FD", as_bytes<double>({0.0625})) +
                     element(0x0018602E, "FD", as_bytes<double>({0.03125}))})};
    EXPECT_EQ(spacing(dicom), (std::array{0.625, 0.3125, 2.5}));
    dicom.more[0x00181164] = {"DS", "0.25\\0.125"};
    EXPECT_EQ(spacing(dicom), (std::array{0.125, 0.25, 2.5}));
    dicom.more[0x00280030] = {"DS", "0.5\\0.75"};
    EXPECT_EQ(spacing(dicom), (std::array{0.75, 0.5, 2.5}));
}

TEST(DicomFrames, OfADoseLieAtTheirOffsetsAndHaveItsScale)
{
    Dicom dicom;
    dicom.modality = "RTDOSE";
    dicom.frames = 3;
    dicom.position = {1, 2, 30};
    dicom.more[0x30040002] = {"CS", "GY"};
    dicom.more[0x3004000C] = {"DS", "0\\-4\\-8"};
    dicom.more[0x3004000E] = {"DS", "0.5"};
    const auto image = opened(dicom);
    ASSERT_TRUE(image) << message_of(image);
    const auto& volume = image->volume;
    EXPECT_EQ(first_values(volume), (std::vector<double>{48, 24, 0}));
    EXPECT_EQ(volume.geometry.origin, (std::array{1.0, 2.0, 22.0}));
    EXPECT_EQ(volume.geometry.spacing[2], 4);
    EXPECT_EQ(volume.grey(0, 0, 0), 24);
    EXPECT_EQ(volume.unit, "Gy");
}

TEST(DicomFrames, OfDifferentKindsOfPixelsInOneSeriesAreStacksOfTheirOwn)
{
    const Folder folder;
    Dicom grey;
    write_dicom(folder / "a", grey);
    Dicom colour;
    colour.photometric = "RGB";
    colour.samples = 3;
    colour.bits = 8;
    write_dicom(folder / "b", colour);
    const auto image = document::open({folder / "a"});
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.frame_count(), 1);
    ASSERT_EQ(image->notices.size(), 1u);
    EXPECT_NE(image->notices[0].find("\"Axial\" (1 frame)"), std::string::npos) << image->notices[0];
}

TEST(DicomFrames, OfManyOtherSeriesAFewAreNamedShortly)
{
    const Folder folder;
    for (int i = 0; i < 12; ++i) {
        Dicom dicom;
        dicom.series_uid = "1.2.3." + std::to_string(i);
        dicom.series = i < 6 ? "" : i < 8 ? "Scout" : "Axial " + std::to_string(i);
        dicom.frames = i == 0 ? 5 : 1;
        write_dicom(folder / ("file" + std::to_string(i)), dicom);
    }
    const auto image = document::open({folder.path()});
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.frame_count(), 5);
    ASSERT_EQ(image->notices.size(), 1u);
    EXPECT_EQ(image->notices[0],
        "Not opened, but in the same place: CT in \"file1\" (1 frame), CT in \"file2\" (1 frame),"
        " CT in \"file3\" (1 frame) and 7 more.");
}
