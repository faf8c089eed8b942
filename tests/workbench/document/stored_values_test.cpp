#include "tests/workbench/document/fixtures.h"
#include "workbench/document/stored_values.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

constexpr double awkward_slopes[] = {0.1, 1.0 / 3, -2.5, 1e-6, 7.25e4, 0.0009765625, 1.0};

/// Scales a NIfTI file by changing its header, which leaves the stored values alone.
void set_scale(const Path& path, float slope, float intercept)
{
    auto bytes = bytes_of_file(path);
    std::memcpy(bytes.data() + 112, &slope, 4);
    std::memcpy(bytes.data() + 116, &intercept, 4);
    write_file(path, bytes);
}

template <class Pixel>
void expect_scaled_nifti(float slope, float intercept)
{
    const Folder folder;
    Geometry geometry;
    geometry.size = {256, 256, 1};
    std::vector<Pixel> pixels = varied_pixels<Pixel>(geometry.voxels());
    if (sizeof(Pixel) == 2)
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = static_cast<Pixel>(i);
    write_image(folder / "a.nii", type_of<Pixel>(), geometry, pixels.data());
    set_scale(folder / "a.nii", slope, intercept);
    write_gzip(folder / "a.nii.gz", bytes_of_file(folder / "a.nii"));
    for (const char* name : {"a.nii", "a.nii.gz"}) {
        const auto opened = document::open({folder / name});
        ASSERT_TRUE(opened) << message_of(opened);
        EXPECT_EQ(opened->volume.type, type_of<Pixel>());
        EXPECT_EQ(pixels_of<Pixel>(opened->volume), pixels);
        EXPECT_EQ(opened->volume.slope, double(slope));
        EXPECT_EQ(opened->volume.intercept, double(intercept));
        EXPECT_EQ(opened->volume.grey(1, 0, 0), double(pixels[1]) * double(slope) + double(intercept));
    }
}

template <class Pixel, class Scaled>
void expect_recovered(double slope, double intercept, Element scaled_type, Element stored_type)
{
    const auto stored = varied_pixels<Pixel>(65536);
    std::vector<Scaled> scaled;
    for (const Pixel pixel : stored)
        scaled.push_back(static_cast<Scaled>(intercept + double(pixel) * slope));
    std::vector<Pixel> recovered(stored.size());
    ASSERT_TRUE(recover_stored(std::as_bytes(std::span(scaled)), scaled_type,
        std::as_writable_bytes(std::span(recovered)), stored_type, slope, intercept))
        << slope;
    EXPECT_EQ(recovered, stored) << slope;
}

}

TEST(StoredValues, ScaledNiftiKeepsWhatTheFileStores)
{
    for (const float slope : {0.1f, 1.0f / 3, -2.5f}) {
        expect_scaled_nifti<std::int16_t>(slope, -17.3f);
        expect_scaled_nifti<std::uint16_t>(slope, 0);
        expect_scaled_nifti<std::int32_t>(slope, 5);
        expect_scaled_nifti<std::uint32_t>(slope, 5);
        expect_scaled_nifti<std::uint8_t>(slope, 1e5f);
    }
}

TEST(StoredValues, SlopeOfZeroMeansUnscaled)
{
    const Folder folder;
    const auto geometry = turned_geometry(3, 3, 3);
    const auto pixels = varied_pixels<std::int16_t>(27);
    write_image(folder / "a.nii", PixelType::i16, geometry, pixels.data());
    set_scale(folder / "a.nii", 0, 7);
    const auto opened = document::open({folder / "a.nii"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.slope, 1);
    EXPECT_EQ(opened->volume.intercept, 0);
}

TEST(StoredValues, AreRecoveredFromDoublesWhateverTheScale)
{
    for (const double slope : awkward_slopes)
        for (const double intercept : {0.0, -1024.0, 0.7}) {
            expect_recovered<std::uint16_t, double>(slope, intercept, Element::f64, Element::u16);
            expect_recovered<std::int16_t, double>(slope, intercept, Element::f64, Element::i16);
            expect_recovered<std::int8_t, double>(slope, intercept, Element::f64, Element::i8);
            expect_recovered<std::int32_t, double>(slope, intercept, Element::f64, Element::i32);
            expect_recovered<std::uint32_t, double>(slope, intercept, Element::f64, Element::u32);
        }
}

TEST(StoredValues, ThatCannotHaveBeenStoredAreRefused)
{
    const std::vector<double> scaled = {1.05};
    std::vector<std::int16_t> stored(1);
    const auto recover = [&](double slope) {
        return recover_stored(std::as_bytes(std::span(scaled)), Element::f64, std::as_writable_bytes(std::span(stored)),
            Element::i16, slope, 0);
    };
    EXPECT_FALSE(recover(0.1));
    EXPECT_FALSE(recover(1e-9));
    EXPECT_TRUE(recover(0.05));
    EXPECT_EQ(stored[0], 21);
}

namespace {

template <class Pixel>
void expect_scaled_dicom(const std::string& slope, const std::string& intercept)
{
    SCOPED_TRACE(slope + " " + intercept);
    const Folder folder;
    Dicom dicom;
    dicom.columns = dicom.rows = 256;
    dicom.is_signed = std::is_signed_v<Pixel>;
    dicom.slope = slope;
    dicom.intercept = intercept;
    std::vector<Pixel> pixels(65536);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<Pixel>(i);
    dicom.pixels = as_bytes(pixels);
    write_dicom(folder / "a.dcm", dicom);
    const auto opened = document::open({folder / "a.dcm"});
    ASSERT_TRUE(opened) << message_of(opened);
    EXPECT_EQ(opened->volume.type, type_of<Pixel>());
    EXPECT_EQ(pixels_of<Pixel>(opened->volume), pixels);
    EXPECT_NEAR(opened->volume.grey(9, 0, 0), double(pixels[9]) * std::stod(slope) + std::stod(intercept), 1e-9);
}

}

TEST(StoredValues, SixteenBitsOfDicomAreKeptOverTheWholeRange)
{
    for (const char* slope : {"1", "2", "0.1", "0.333333333333", "-2.5"})
        for (const char* intercept : {"0", "-1024", "0.5"}) {
            expect_scaled_dicom<std::uint16_t>(slope, intercept);
            expect_scaled_dicom<std::int16_t>(slope, intercept);
        }
}
