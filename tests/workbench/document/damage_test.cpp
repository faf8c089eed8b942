#include "tests/workbench/document/fixtures.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

using namespace document;
using namespace document_test;

namespace {

/// Writes a small image of every kind; returns its name.
std::vector<std::string> write_all(const Folder& folder)
{
    const auto geometry = turned_geometry(9, 7, 5);
    const auto pixels = varied_pixels<std::int16_t>(geometry.voxels());
    for (const char* name : {"a.nii", "a.nii.gz", "a.nrrd", "a.mha"})
        write_image(folder / name, PixelType::i16, geometry, pixels.data());
    for (const char* name : {"z.nrrd", "z.mha"})
        write_image(folder / name, PixelType::i16, geometry, pixels.data(), 1, true);
    Geometry flat;
    flat.size = {20, 15, 1};
    const auto colours = varied_pixels<std::uint8_t>(900);
    for (const char* name : {"a.png", "a.jpg", "a.tif", "a.bmp"})
        write_image(folder / name, PixelType::u8, flat, colours.data(), 3);
    write_dicom(folder / "a.dcm", {});
    const auto values = varied_pixels<std::uint16_t>(256);
    write_compressed_dicom(folder / "z.dcm", 16, 16, values);
    write_compressed_dicom(folder / "j.dcm", 16, 16, values, Compression::jpeg);
    Dicom dicom;
    dicom.columns = dicom.rows = 16;
    dicom.syntax = "1.2.840.10008.1.2.4.80";
    dicom.fragments = {"", jpeg_ls(16, 16, 1, values)};
    write_dicom(folder / "l.dcm", dicom);
    Dicom deflated;
    deflated.writing = Dicom::Writing::deflated;
    write_dicom(folder / "d.dcm", deflated);
    return {"a.nii", "a.nii.gz", "a.nrrd", "a.mha", "z.nrrd", "z.mha", "a.png", "a.jpg", "a.tif", "a.bmp", "a.dcm",
        "z.dcm", "j.dcm", "l.dcm", "d.dcm"};
}

}

TEST(Damage, FileCutOffAnywhereIsRefusedByName)
{
    const Folder folder, cut;
    for (const auto& name : write_all(folder)) {
        ASSERT_TRUE(document::open({folder / name})) << message_of(document::open({folder / name}));
        const auto bytes = bytes_of_file(folder / name);
        for (std::size_t length = 0; length < bytes.size(); length += length + 40 < bytes.size() ? 7 : 1) {
            write_file(cut / name, bytes.substr(0, length));
            const auto opened = document::open({cut / name});
            ASSERT_FALSE(opened) << name << " cut to " << length << " of " << bytes.size();
            EXPECT_NE(opened.failure().message.find("\"" + name + "\""), std::string::npos)
                << name << " cut to " << length << ": " << opened.failure().message;
        }
        std::filesystem::remove(cut / name);
    }
}

TEST(Damage, ChangedBytesNeverEndTheProgram)
{
    const Folder folder, changed;
    std::mt19937 random(11);
    for (const auto& name : write_all(folder)) {
        const auto bytes = bytes_of_file(folder / name);
        const bool everywhere = name.ends_with(".dcm"); // else in the header
        for (int i = 0; i < 60; ++i) {
            auto damaged = bytes;
            for (int k = 0; k < 3; ++k)
                damaged[random() % (everywhere ? bytes.size() : std::min<std::size_t>(bytes.size(), 400))] =
                    char(random());
            write_file(changed / name, damaged);
            const auto opened = document::open({changed / name});
            EXPECT_TRUE(opened || !opened.failure().message.empty());
        }
        std::filesystem::remove(changed / name);
    }
}

TEST(Damage, CompressedDataThatChangedAreRefused)
{
    const Folder folder;
    const auto geometry = turned_geometry(30, 30, 5);
    const auto pixels = varied_pixels<std::int16_t>(geometry.voxels());
    for (const char* name : {"a.nii.gz", "a.nrrd", "a.png"}) {
        if (std::string(name) == "a.png") {
            Geometry flat;
            flat.size = {60, 60, 1};
            write_image(folder / name, PixelType::u8, flat, pixels.data());
        } else {
            write_image(folder / name, PixelType::i16, geometry, pixels.data(), 1, true);
        }
        auto bytes = bytes_of_file(folder / name);
        bytes[bytes.size() * 3 / 4] = char(bytes[bytes.size() * 3 / 4] ^ 0x10);
        write_file(folder / name, bytes);
        const auto message = message_of(document::open({folder / name}));
        EXPECT_NE(message.find("is damaged"), std::string::npos) << name << ": " << message;
    }
}

TEST(Damage, MissingEmptyUnknownAndEmptyFoldersAreTold)
{
    const Folder folder;
    EXPECT_NE(message_of(document::open({folder / "no.nii"})).find("\"no.nii\" does not exist"), std::string::npos);
    write_file(folder / "empty.nii", "");
    EXPECT_NE(message_of(document::open({folder / "empty.nii"})).find("\"empty.nii\" is empty"), std::string::npos);
    write_file(folder / "text.txt", std::string(1000, 'x'));
    EXPECT_NE(message_of(document::open({folder / "text.txt"})).find("\"text.txt\" is of no kind"), std::string::npos);
    write_file(folder / "fake.nii", std::string(1000, 'x'));
    EXPECT_NE(message_of(document::open({folder / "fake.nii"})).find("not what its name says"), std::string::npos);
    EXPECT_NE(message_of(document::open({folder.path()})).find("holds no image"), std::string::npos);
    EXPECT_FALSE(document::open({}));
    ASSERT_EQ(mkfifo((folder / "pipe.nii").c_str(), 0600), 0);
    EXPECT_NE(message_of(document::open({folder / "pipe.nii"})).find("no regular file"), std::string::npos);
}

TEST(Damage, FileThatMayNotBeReadIsTold)
{
    const Folder folder;
    write_file(folder / "a.nii", "anything");
    chmod(folder.path().c_str(), 0755);
    chmod((folder / "a.nii").c_str(), 0);
    const auto message = in_child([&]() -> std::string {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0) // the administrator may read everything
            return "cannot become another user";
        return message_of(document::open({folder / "a.nii"}));
    });
    EXPECT_NE(message.find("\"a.nii\" may not be read"), std::string::npos) << message;
}

TEST(Damage, HeaderThatPromisesMoreThanThereIsIsRefusedWithNumbers)
{
    const Folder folder;
    const auto geometry = turned_geometry(4, 4, 4);
    const std::vector<std::uint8_t> pixels(64);
    write_image(folder / "a.nii", PixelType::u8, geometry, pixels.data());
    auto bytes = bytes_of_file(folder / "a.nii");
    const std::int16_t most = 32767;
    for (std::size_t axis = 0; axis < 3; ++axis)
        std::memcpy(bytes.data() + 42 + 2 * axis, &most, 2);
    write_file(folder / "a.nii", bytes);
    write_gzip(folder / "b.nii.gz", bytes);
    for (const char* name : {"a.nii", "b.nii.gz"}) {
        const auto message = message_of(document::open({folder / name}));
        EXPECT_NE(message.find("32767 x 32767 x 32767"), std::string::npos) << message;
        EXPECT_NE(message.find("TB"), std::string::npos) << message;
    }
    write_file(folder / "c.mha",
        "ObjectType = Image\nNDims = 3\nDimSize = 2000000000 2000000000 2000000000\nElementType = MET_DOUBLE\n"
        "ElementDataFile = LOCAL\n");
    EXPECT_FALSE(document::open({folder / "c.mha"}));
    write_file(folder / "d.nrrd", "NRRD0004\ntype: short\ndimension: 3\nsizes: 2 -2 1\nencoding: raw\n\nabcd");
    EXPECT_FALSE(document::open({folder / "d.nrrd"}));
}

TEST(Damage, MoreThanTheMemoryIsRefusedBeforeItIsTaken)
{
    const Folder folder;
    // A hole: the file is as long as promised, but takes no room on the disk.
    const std::string header = "NRRD0004\ntype: uchar\ndimension: 3\nsizes: 100000 100000 100\nencoding: raw\n\n";
    write_file(folder / "a.nrrd", header);
    std::error_code error;
    std::filesystem::resize_file(folder / "a.nrrd", header.size() + 1'000'000'000'000, error);
    if (error)
        std::filesystem::resize_file(folder / "a.nrrd", header.size());
    const auto message = message_of(document::open({folder / "a.nrrd"}));
    EXPECT_NE(message.find("1.0 TB"), std::string::npos) << message;
}
