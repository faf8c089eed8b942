#include "tests/workbench/document/fixtures.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

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
