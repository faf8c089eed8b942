#include "tests/workbench/document/fixtures.h"

#include <atomic>
#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

/// Slices of one series, named so that neither name nor number is the order of their positions.
void write_series(const Folder& folder, const Dicom& like, const std::vector<double>& places, const std::string& prefix)
{
    for (std::size_t i = 0; i < places.size(); ++i) {
        Dicom dicom = like;
        dicom.position = {-10, -20, places[i]};
        dicom.instance = int(100 - i);
        dicom.pixels = as_bytes(std::vector<std::uint16_t>(24, std::uint16_t(places[i] * 10)));
        write_dicom(folder / (prefix + std::to_string(i)), dicom);
    }
}

std::vector<double> first_values(const Volume& volume)
{
    std::vector<double> values;
    for (int z = 0; z < volume.frame_count(); ++z)
        values.push_back(volume.stored(0, 0, z));
    return values;
}

bool mentions(const std::vector<std::string>& notices, const std::string& text)
{
    for (const auto& notice : notices)
        if (notice.find(text) != std::string::npos)
            return true;
    return false;
}

}

TEST(Dicom, SeriesIsSortedByPlaceAlongItsNormal)
{
    const Folder folder;
    write_series(folder, {}, {20, 5, 15, 10}, "slice");
    const auto opened = document::open({folder.path()});
    ASSERT_TRUE(opened) << message_of(opened);
    const auto& volume = opened->volume;
    EXPECT_EQ(first_values(volume), (std::vector<double>{50, 100, 150, 200}));
    EXPECT_EQ(volume.geometry.spacing, (std::array{0.25, 0.5, 5.0}));
    EXPECT_EQ(volume.geometry.origin, (std::array{-10.0, -20.0, 5.0}));
    ASSERT_EQ(volume.frames.size(), 4u);
    EXPECT_EQ(volume.frames[0].position, 5);
    EXPECT_EQ(volume.frames[0].instance, 99);
    EXPECT_EQ(Path(volume.frames[0].file).filename(), "slice1");
    EXPECT_EQ(volume.files.size(), 4u);
    EXPECT_TRUE(opened->notices.empty());
}

TEST(Dicom, OrderFollowsTheNormalOfOtherPlanes)
{
    const Folder folder;
    for (int i = 0; i < 3; ++i) {
        Dicom dicom; // coronal: the normal points to the front
        dicom.orientation = {1, 0, 0, 0, 0, -1};
        dicom.position = {0, double(10 * i), 0};
        dicom.pixels = as_bytes(std::vector<std::uint16_t>(24, std::uint16_t(i)));
        write_dicom(folder / std::to_string(i), dicom);
    }
    const auto opened = document::open({folder.path()});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(first_values(opened->volume), (std::vector<double>{0, 1, 2}));
    const auto last = opened->volume.geometry.position(0, 0, 2);
    EXPECT_NEAR(last[1], 20, 1e-6);
}

TEST(Dicom, OneFileOffersItsWholeSeries)
{
    const Folder folder;
    write_series(folder, {}, {0, 1, 2}, "a");
    Dicom other;
    other.series_uid = "1.2.4";
    write_series(folder, other, {0, 1, 2, 3, 4}, "b");
    const auto opened = document::open({folder / "a1"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.frame_count(), 3);
    EXPECT_TRUE(opened->notices.empty());
}

TEST(Dicom, OfSeveralSeriesTheLargestIsOpenedAndTheOthersAreNamed)
{
    const Folder folder;
    write_series(folder, {}, {0, 1, 2}, "a");
    Dicom other;
    other.series_uid = "1.2.4";
    other.series = "Coronal";
    write_series(folder, other, {0, 1, 2, 3, 4}, "b");
    write_file(folder / "notes.txt", "no image");
    const auto opened = document::open({folder.path()});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.series, "Coronal");
    EXPECT_EQ(opened->volume.frame_count(), 5);
    EXPECT_TRUE(mentions(opened->notices, "\"Axial\" (3 frames)"));

    const auto list = list_series(folder.path());
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 2u);
    EXPECT_EQ((*list)[0].description, "Axial");
    EXPECT_EQ((*list)[1].files.size(), 5u);
    const auto first = open_series((*list)[0]);
    ASSERT_TRUE(first) << message_of(first);
    EXPECT_EQ(first->volume.series, "Axial");
}

TEST(Dicom, HeaderTellsUnitWindowAndNames)
{
    const Folder folder;
    Dicom dicom;
    dicom.window_centre = "40\\300";
    dicom.window_width = "400\\1500";
    dicom.slope = "1";
    dicom.intercept = "-1024";
    dicom.character_set = "ISO_IR 100";
    dicom.patient = "M\xFCller^Eva";
    write_dicom(folder / "a", dicom);
    const auto opened = document::open({folder / "a"});
    ASSERT_TRUE(opened) << message_of(opened);
    const auto& volume = opened->volume;
    EXPECT_EQ(volume.unit, "HU");
    EXPECT_EQ(volume.modality, "CT");
    EXPECT_EQ(volume.patient, "M\xC3\xBCller Eva");
    EXPECT_EQ(volume.study, "Head");
    ASSERT_TRUE(volume.header_window);
    EXPECT_EQ(*volume.header_window, (Window{40, 400}));
    EXPECT_EQ(volume.grey(1, 0, 0), -1023);
}

TEST(Dicom, ImplicitColourAndInvertedImagesOpen)
{
    const Folder folder;
    Dicom plain;
    plain.writing = Dicom::Writing::implicit;
    write_dicom(folder / "implicit", plain);
    const auto implicit = document::open({folder / "implicit"});
    ASSERT_TRUE(implicit) << message_of(implicit);
    EXPECT_EQ(implicit->volume.stored(5, 0, 0), 5);

    Dicom colour;
    colour.series_uid = "1.5";
    colour.samples = 3;
    colour.bits = 8;
    colour.photometric = "RGB";
    write_dicom(folder / "colour", colour);
    const auto rgb = document::open({folder / "colour"});
    ASSERT_TRUE(rgb) << message_of(rgb);
    EXPECT_EQ(rgb->volume.colour(1, 0, 0), (Rgb{3, 4, 5}));

    Dicom inverted;
    inverted.series_uid = "1.6";
    inverted.photometric = "MONOCHROME1";
    write_dicom(folder / "inverted", inverted);
    const auto negative = document::open({folder / "inverted"});
    ASSERT_TRUE(negative) << message_of(negative);
    EXPECT_TRUE(negative->volume.inverted);
    EXPECT_EQ(negative->volume.stored(5, 0, 0), 5);
}

TEST(Dicom, InvertedImagesKeepTheirStoredValuesWhateverTheScale)
{
    for (const bool is_signed : {false, true})
        for (const char* slope : {"", "2", "0.1"}) {
            const Folder folder;
            Dicom dicom;
            dicom.photometric = "MONOCHROME1";
            dicom.is_signed = is_signed;
            dicom.slope = slope;
            dicom.intercept = *slope ? "-7" : "";
            std::vector<std::uint16_t> pixels(24);
            for (std::size_t i = 0; i < pixels.size(); ++i)
                pixels[i] = std::uint16_t(i * 2849);
            dicom.pixels = as_bytes(pixels);
            write_dicom(folder / "a", dicom);
            const auto opened = document::open({folder / "a"});
            ASSERT_TRUE(opened) << message_of(opened);
            const auto* const stored = reinterpret_cast<const std::uint16_t*>(opened->volume.pixels.data());
            EXPECT_EQ(std::vector<std::uint16_t>(stored, stored + 24), pixels) << is_signed << " " << slope;
        }
}

TEST(Dicom, FramesWithScalesOfTheirOwnKeepTheirGreyValues)
{
    const Folder folder;
    for (int i = 0; i < 3; ++i) {
        Dicom dicom;
        dicom.modality = "PT";
        dicom.position = {0, 0, double(i)};
        dicom.slope = std::to_string(i + 1) + ".5";
        dicom.intercept = "0";
        write_dicom(folder / std::to_string(i), dicom);
    }
    const auto opened = document::open({folder.path()});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_FLOAT_EQ(float(opened->volume.grey(4, 0, 0)), 6);
    EXPECT_FLOAT_EQ(float(opened->volume.grey(4, 0, 2)), 14);
    EXPECT_TRUE(mentions(opened->notices, "scales of their own"));
}

TEST(Dicom, FileOfSeveralFramesIsAVolume)
{
    const Folder folder;
    Dicom dicom;
    dicom.frames = 5;
    write_dicom(folder / "a", dicom);
    const auto opened = document::open({folder / "a"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.frame_count(), 5);
    EXPECT_EQ(opened->volume.stored(0, 0, 4), 4 * 24);
    EXPECT_EQ(opened->volume.frames.size(), 5u);
}

TEST(Dicom, UnevenSpacingAndRepeatedPlacesAreTold)
{
    const Folder gap;
    write_series(gap, {}, {0, 1, 2, 4}, "a");
    const auto uneven = document::open({gap.path()});
    ASSERT_TRUE(uneven) << message_of(uneven);
    EXPECT_TRUE(mentions(uneven->notices, "not evenly spaced"));

    const Folder twice;
    write_series(twice, {}, {0, 1, 2}, "a");
    Dicom later;
    for (int i = 0; i < 3; ++i) {
        later.position = {-10, -20, double(i)};
        later.instance = 200 + i;
        write_dicom(twice / ("later" + std::to_string(i)), later);
    }
    const auto opened = document::open({twice.path()});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(first_values(opened->volume), (std::vector<double>{0, 10, 20}));
    EXPECT_TRUE(mentions(opened->notices, "6 frames at 3 places"));
    ASSERT_EQ(opened->volume.left_out.size(), 3u);
    EXPECT_EQ(opened->volume.left_out[1].instance, 201);
    EXPECT_EQ(opened->volume.left_out[1].position, 1);
    EXPECT_EQ(Path(opened->volume.left_out[1].file).filename(), "later1");
}

TEST(Dicom, CompressedPixelsOpen)
{
    const Folder folder;
    const auto pixels = varied_pixels<std::uint16_t>(64 * 48);
    write_compressed_dicom(folder / "a.dcm", 64, 48, pixels);
    const auto opened = document::open({folder / "a.dcm"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(pixels_of<std::uint16_t>(opened->volume), pixels);
}

TEST(Dicom, DamagedFrameOfASeriesIsNamed)
{
    const Folder folder;
    write_series(folder, {}, {0, 1, 2}, "a");
    const auto bytes = bytes_of_file(folder / "a1");
    write_file(folder / "a1", bytes.substr(0, bytes.size() - 10));
    const auto message = message_of(document::open({folder / "a0"}));
    EXPECT_NE(message.find("\"a1\" is cut off"), std::string::npos) << message;
}

// ----------------------------------------------------------------------------------------------- several series at
// once

TEST(OpenAll, OfAFolderEverySeriesIsOpenedInTheOrderOfNumbers)
{
    const Folder folder;
    Dicom axial, coronal;
    axial.more[0x00200011] = {"IS", "7 "};
    coronal.series_uid = "1.2.4";
    coronal.series = "Coronal";
    coronal.more[0x00200011] = {"IS", "2 "};
    write_series(folder, axial, {10, 0, 5}, "a");
    write_series(folder, coronal, {0, 1}, "b");
    write_file(folder / "notes.txt", "no image");
    const auto opened = document::open_all({folder.path()});
    ASSERT_TRUE(opened) << opened.failure().message;
    ASSERT_EQ(opened->images.size(), 2u);
    EXPECT_EQ(opened->images[0].volume.series, "Coronal");
    EXPECT_EQ(opened->images[0].volume.series_number, 2);
    EXPECT_EQ(first_values(opened->images[1].volume), (std::vector<double>{0, 50, 100}));
    EXPECT_TRUE(opened->images[1].notices.empty());
    EXPECT_TRUE(opened->unreadable.empty());
}

TEST(OpenAll, WhatCannotBeReadKeepsNothingElseAway)
{
    const Folder folder;
    write_series(folder, {}, {0, 1}, "a");
    Dicom damaged;
    damaged.series_uid = "1.2.4";
    damaged.pixels = "short";
    write_dicom(folder / "b", damaged);
    const auto opened = document::open_all({folder.path()});
    ASSERT_TRUE(opened) << opened.failure().message;
    EXPECT_EQ(opened->images.size(), 1u);
    ASSERT_EQ(opened->unreadable.size(), 1u);
    EXPECT_NE(opened->unreadable[0].find("\"b\""), std::string::npos) << opened->unreadable[0];
}

TEST(OpenAll, OfAFolderThatHoldsFoldersTheirSeriesAreOpened)
{
    const Folder folder;
    std::filesystem::create_directories(folder / "patient" / "second");
    Dicom second;
    second.series_uid = "1.2.4";
    write_series(folder, {}, {0, 1}, "patient/");
    write_series(folder, second, {0, 1}, "patient/second/");
    write_dicom(folder / "DICOMDIR", {});
    write_file(folder / "readme.txt", "no image");
    const auto opened = document::open_all({folder.path()});
    ASSERT_TRUE(opened) << opened.failure().message;
    ASSERT_EQ(opened->images.size(), 2u);
    EXPECT_EQ(opened->images[0].volume.frame_count(), 2);
    EXPECT_TRUE(opened->unreadable.empty());

    write_series(folder, second, {0, 1}, "a");
    const auto direct = document::open_all({folder.path()});
    ASSERT_TRUE(direct) << direct.failure().message;
    EXPECT_EQ(direct->images.size(), 1u) << "what lies in it comes first, and alone";
}

TEST(OpenAll, FilesOfSeveralSeriesAreSortedIntoThem)
{
    const Folder folder;
    write_series(folder, {}, {0, 1, 2}, "a");
    Dicom other;
    other.series_uid = "1.2.4";
    write_series(folder, other, {0, 1}, "b");
    const auto opened = document::open_all({folder / "b1", folder / "a0", folder / "a2", folder / "missing"});
    ASSERT_TRUE(opened) << opened.failure().message;
    ASSERT_EQ(opened->images.size(), 2u);
    EXPECT_EQ(opened->images[0].volume.frame_count() + opened->images[1].volume.frame_count(), 3);
    EXPECT_EQ(opened->unreadable.size(), 1u);
}

TEST(OpenAll, AFileThatIsNamedTwiceIsOpenedOnce)
{
    const Folder folder;
    write_series(folder, {}, {0, 1, 2}, "a");
    std::filesystem::create_symlink(folder.path(), folder / "same");
    const auto opened = document::open_all({folder.path(), folder / "a1", folder / "same" / "a0", folder.path()});
    ASSERT_TRUE(opened) << opened.failure().message;
    ASSERT_EQ(opened->images.size(), 1u);
    EXPECT_EQ(opened->images[0].volume.frame_count(), 3);
    EXPECT_TRUE(opened->images[0].notices.empty());
    const auto one = document::open_all({folder / "a1", folder / "a1"});
    ASSERT_TRUE(one) << one.failure().message;
    EXPECT_EQ(one->images.size(), 1u);
    EXPECT_EQ(one->images[0].volume.frame_count(), 3) << "its series, as of one file";
}

TEST(OpenAll, FailsWhenThereIsNothingToShow)
{
    const Folder folder;
    EXPECT_FALSE(document::open_all({}));
    EXPECT_FALSE(document::open_all({folder.path()}));
    EXPECT_FALSE(document::open_all({folder / "missing"}));
    write_series(folder, {}, {0, 1}, "a");
    std::atomic<bool> cancelled = true;
    document::Progress progress;
    progress.cancelled = &cancelled;
    const auto stopped = document::open_all({folder.path()}, progress);
    ASSERT_FALSE(stopped);
    EXPECT_TRUE(stopped.failure().cancelled);
}

TEST(Dicom, TellsTheStudyAndScouts)
{
    const Folder folder;
    Dicom dicom;
    dicom.more[0x0020000D] = {"UI", std::string("1.2.99\0", 7) + '\0'};
    dicom.more[0x00080020] = {"DA", "20240531"};
    dicom.more[0x00200011] = {"IS", "12"};
    dicom.more[0x00080008] = {"CS", "ORIGINAL\\PRIMARY\\LOCALIZER "};
    write_dicom(folder / "scout", dicom);
    const auto opened = document::open({folder / "scout"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.study_uid, "1.2.99");
    EXPECT_EQ(opened->volume.series_uid, "1.2.3");
    EXPECT_EQ(opened->volume.study_date, "2024-05-31");
    EXPECT_EQ(opened->volume.series_number, 12);
    ASSERT_EQ(opened->volume.frames.size(), 1u);
    EXPECT_TRUE(opened->volume.frames[0].is_scout);

    dicom.more[0x00080008] = {"CS", "DERIVED\\PRIMARY "};
    dicom.more[0x00080020] = {"DA", "2024.05."};
    write_dicom(folder / "scout", dicom);
    const auto other = document::open({folder / "scout"});
    ASSERT_TRUE(other) << message_of(other);
    EXPECT_EQ(other->volume.study_date, "");
    EXPECT_FALSE(other->volume.frames[0].is_scout);
}
