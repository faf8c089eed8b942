// What real programs and devices wrote, where Debian's python3-pydicom is installed.
#include "tests/workbench/document/fixtures.h"
#include "tests/workbench/document/real_dicom_files.h"

#include <gtest/gtest.h>

using namespace document;
using namespace document_test;

namespace {

const Path folder_of_files = "/usr/lib/python3/dist-packages/pydicom/data/test_files";

class RealDicom : public testing::Test {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(folder_of_files))
            GTEST_SKIP() << "python3-pydicom is not installed";
    }

    /// Opens a file apart from those that lie beside it.
    static Result<Opened> opened(const Path& file)
    {
        const Folder alone;
        std::filesystem::copy_file(file, alone / file.filename().string());
        return document::open({alone / file.filename().string()});
    }
};

struct Sums {
    double plain = 0, weighted = 0;

    void add(double value)
    {
        plain += value;
        weighted += value * (1 + count++ % 997);
    }
    int count = 0;
};

Sums sums_of(const Volume& volume)
{
    Sums sums;
    with_type(volume.type, [&](auto type) {
        using Pixel = typename decltype(type)::type;
        for (const Pixel pixel : volume.as<Pixel>()) {
            if constexpr (std::is_same_v<Pixel, Rgb>)
                for (const auto channel : {pixel.red, pixel.green, pixel.blue})
                    sums.add(channel);
            else
                sums.add(double(pixel));
        }
    });
    return sums;
}

}

TEST_F(RealDicom, ImagesHaveTheValuesThatOtherProgramsRead)
{
    for (const auto& file : real_files) {
        if (!std::filesystem::exists(folder_of_files / file.name))
            continue; // another version of the package
        SCOPED_TRACE(file.name);
        const auto image = opened(folder_of_files / file.name);
        ASSERT_TRUE(image) << message_of(image);
        const auto& volume = image->volume;
        EXPECT_EQ(volume.geometry.size, (std::array{file.columns, file.rows, file.frames}));
        EXPECT_EQ(volume.type, file.type);
        EXPECT_EQ(volume.slope, file.slope);
        EXPECT_EQ(volume.intercept, file.intercept);
        const auto sums = sums_of(volume);
        EXPECT_EQ(sums.plain, file.sum);
        EXPECT_EQ(sums.weighted, file.weighted_sum);
    }
}

TEST_F(RealDicom, EachFileIsShownOrRefusedByNameAndNothingIsPrinted)
{
    int refused = 0;
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_of_files.parent_path())) {
        if (!entry.is_regular_file())
            continue;
        const auto image = opened(entry.path());
        const auto name = "\"" + entry.path().filename().string() + "\"";
        EXPECT_TRUE(image || message_of(image).find(name) != std::string::npos) << name << message_of(image);
        refused += image ? 0 : 1;
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_GT(refused, 0);
}

TEST_F(RealDicom, WhatCannotBeShownIsToldWithItsReason)
{
    const std::pair<const char*, const char*> reasons[] = {
        {"MR_truncated.dcm", "is cut off"},
        {"JPEG2000-embedded-sequence-delimiter.dcm", "its picture cannot be unpacked"},
        {"rtplan.dcm", "without a picture"},
        {"ExplVR_BigEndNoMeta.dcm", "without a picture"},
        {"ExplVR_LitEndNoMeta.dcm", "without a picture"},
        {"dicomdirtests/DICOMDIR", "without a picture"},
        {"no_meta.dcm", "does not begin like"},
        {"zipMR.gz", "is packed with gzip"},
    };
    for (const auto& [name, reason] : reasons)
        if (std::filesystem::exists(folder_of_files / name)) {
            const auto message = message_of(opened(folder_of_files / name));
            EXPECT_NE(message.find(reason), std::string::npos) << name << ": " << message;
        }
}

TEST_F(RealDicom, FilesOfOneFolderAreSortedIntoSeries)
{
    const auto image = document::open({folder_of_files / "dicomdirtests/98892001/CT5N"});
    ASSERT_TRUE(image) << message_of(image);
    EXPECT_EQ(image->volume.frame_count(), 5);
    EXPECT_NEAR(image->volume.geometry.spacing[2], 2.5, 1e-9);
    EXPECT_NEAR(image->volume.geometry.origin[2], -1.2375, 1e-9);
}
