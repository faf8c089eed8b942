#include "tests/workbench/document/fixtures.h"
#include "workbench/document/label_map.h"

#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace document;
using namespace document_test;

namespace {

LabelMap labels_of(const Geometry& geometry, unsigned seed = 1)
{
    auto labels = std::move(*LabelMap::create(geometry));
    std::mt19937 random(seed);
    for (auto& tag : labels.tags())
        tag = std::uint8_t(random());
    return labels;
}

std::vector<std::uint8_t> content(const LabelMap& map)
{
    return {map.tags().begin(), map.tags().end()};
}

std::string saved(const Path& path, const LabelMap& labels)
{
    const auto failure = save_labels(path, labels);
    return failure ? failure->message : std::string();
}

std::string load_message(const Path& path, const Geometry& geometry)
{
    const auto loaded = load_labels(path, geometry);
    return loaded ? std::string() : loaded.failure().message;
}

/// Leaves the process little to write: a disk of 1 MiB at `mount_point` when one may be mounted, else below a limit for
/// the size of files.
void make_room_small(const Path& mount_point)
{
    if (unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        mount("tmpfs", mount_point.c_str(), "tmpfs", 0, "size=1m") == 0)
        return;
    const rlimit limit = {1 << 20, 1 << 20};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
}

const char* const extensions[] = {".nii", ".nii.gz", ".nrrd", ".mha"};

}

TEST(LabelFile, RoundTripKeepsTagsAndGeometryInEveryFormat)
{
    const Folder folder;
    for (const auto& size : {std::array{9, 7, 5}, std::array{33, 1, 17}, std::array{13, 11, 1}, std::array{1, 1, 1}})
        for (const char* extension : extensions) {
            SCOPED_TRACE(extension);
            const auto geometry = turned_geometry(size[0], size[1], size[2]);
            const auto labels = labels_of(geometry);
            const auto path = folder / (std::string("labels") + extension);
            ASSERT_EQ(saved(path, labels), "");
            const auto loaded = load_labels(path, geometry);
            ASSERT_TRUE(loaded) << loaded.failure().message;
            EXPECT_EQ(content(*loaded), content(labels));
            EXPECT_EQ(difference(loaded->geometry(), geometry), "");
        }
    EXPECT_EQ(folder.names().size(), std::size(extensions));
}

TEST(LabelFile, OthersReadWhatWasSaved)
{
    const Folder folder;
    const auto geometry = turned_geometry(9, 7, 5);
    const auto labels = labels_of(geometry);
    for (const char* extension : extensions) {
        const auto path = folder / (std::string("labels") + extension);
        ASSERT_EQ(saved(path, labels), "");
        Geometry read;
        EXPECT_EQ(read_bytes_with_itk(path, read), content(labels)) << extension;
        EXPECT_EQ(difference(read, geometry), "") << extension;
    }
}

TEST(LabelFile, TruncatedLabelMapIsRefused)
{
    const Folder folder;
    const auto geometry = turned_geometry(9, 7, 5);
    for (const char* extension : extensions) {
        const auto path = folder / (std::string("labels") + extension);
        ASSERT_EQ(saved(path, labels_of(geometry)), "");
        const auto bytes = bytes_of_file(path);
        for (std::size_t length = bytes.size() * 6 / 10; length < bytes.size(); length += 5) {
            write_file(path, bytes.substr(0, length));
            EXPECT_FALSE(load_labels(path, geometry)) << extension << " " << length;
        }
    }
}

TEST(LabelFile, AnotherGeometryIsRefusedWithNumbers)
{
    const Folder folder;
    const auto geometry = turned_geometry(9, 7, 5);
    ASSERT_EQ(saved(folder / "a.nrrd", labels_of(geometry)), "");
    auto other = geometry;
    other.size[2] = 6;
    EXPECT_NE(load_message(folder / "a.nrrd", other).find("9 x 7 x 5 instead of 9 x 7 x 6"), std::string::npos);
    other = geometry;
    other.origin[0] += 1;
    EXPECT_NE(load_message(folder / "a.nrrd", other).find("origin"), std::string::npos);
}

TEST(LabelFile, OtherTypesOfNumbersAreTakenWhenTheyAreTags)
{
    const Folder folder;
    const auto geometry = turned_geometry(2, 2, 1);
    const std::vector<std::int16_t> good = {0, 1, 254, 255};
    write_image(folder / "good.nrrd", PixelType::i16, geometry, good.data());
    const auto loaded = load_labels(folder / "good.nrrd", geometry);
    ASSERT_TRUE(loaded) << loaded.failure().message;
    EXPECT_EQ(content(*loaded), (std::vector<std::uint8_t>{0, 1, 254, 255}));

    const std::vector<std::int16_t> large = {0, 1, 256, 3}, negative = {0, -1, 2, 3};
    write_image(folder / "large.nrrd", PixelType::i16, geometry, large.data());
    EXPECT_NE(load_message(folder / "large.nrrd", geometry).find("the value 256"), std::string::npos);
    write_image(folder / "negative.nrrd", PixelType::i16, geometry, negative.data());
    EXPECT_NE(load_message(folder / "negative.nrrd", geometry).find("the value -1"), std::string::npos);
    const std::vector<float> broken = {0, 1.5f, 2, 3};
    write_image(folder / "broken.nrrd", PixelType::f32, geometry, broken.data());
    EXPECT_NE(load_message(folder / "broken.nrrd", geometry).find("the value 1.5"), std::string::npos);
    const std::vector<std::uint8_t> colours(12);
    write_image(folder / "colours.nrrd", PixelType::u8, geometry, colours.data(), 3);
    EXPECT_NE(load_message(folder / "colours.nrrd", geometry).find("colour"), std::string::npos);
}

TEST(LabelFile, ExtensionMustTellTheFormat)
{
    const Folder folder;
    const auto message = saved(folder / "labels.png", labels_of(turned_geometry(2, 2, 2)));
    EXPECT_NE(message.find("\"labels.png\""), std::string::npos);
    EXPECT_NE(message.find(".nii.gz"), std::string::npos);
    EXPECT_TRUE(folder.names().empty());
}

TEST(LabelFile, LinkIsFollowedAndStaysALink)
{
    const Folder folder;
    const auto geometry = turned_geometry(3, 4, 5);
    std::filesystem::create_directory(folder / "real");
    write_file(folder / "real/old.nii.gz", "old");
    std::filesystem::create_symlink("real/old.nii.gz", folder / "link.nii.gz");
    std::filesystem::create_symlink(folder / "real/new.nii.gz", folder / "dangling.nii.gz");
    for (const char* name : {"link.nii.gz", "dangling.nii.gz"}) {
        ASSERT_EQ(saved(folder / name, labels_of(geometry)), "");
        EXPECT_TRUE(std::filesystem::is_symlink(folder / name));
        EXPECT_TRUE(load_labels(folder / name, geometry));
    }
    EXPECT_TRUE(load_labels(folder / "real/old.nii.gz", geometry));
    EXPECT_TRUE(load_labels(folder / "real/new.nii.gz", geometry));
}

TEST(LabelFile, TargetThatIsNoRegularFileIsRefused)
{
    const Folder folder;
    const auto labels = labels_of(turned_geometry(3, 4, 5));
    std::filesystem::create_directory(folder / "folder.nii.gz");
    ASSERT_EQ(mkfifo((folder / "pipe.nrrd").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/null", folder / "device.mha");
    for (const char* name : {"folder.nii.gz", "pipe.nrrd", "device.mha"})
        EXPECT_NE(saved(folder / name, labels).find("cannot be saved"), std::string::npos) << name;
    EXPECT_NE(saved(folder / "nowhere/a.nrrd", labels).find("does not exist"), std::string::npos);
    std::filesystem::create_symlink("loop.nrrd", folder / "loop.nrrd");
    EXPECT_NE(saved(folder / "loop.nrrd", labels).find("leads nowhere"), std::string::npos);
    EXPECT_EQ(folder.names().size(), 4u);
    struct stat status = {};
    ASSERT_EQ(stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST(LabelFile, ReadOnlyFileIsRefusedAndStaysWhole)
{
    const Folder folder;
    write_file(folder / "a.nrrd", "old");
    chmod((folder / "a.nrrd").c_str(), 0444);
    EXPECT_NE(saved(folder / "a.nrrd", labels_of(turned_geometry(3, 4, 5))).find("read-only"), std::string::npos);
    EXPECT_EQ(bytes_of_file(folder / "a.nrrd"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.nrrd"});
}

TEST(LabelFile, FolderThatTakesNoFilesIsTold)
{
    // Not even the administrator may make files here.
    const auto message = saved("/proc/labels.nrrd", labels_of(turned_geometry(3, 4, 5)));
    EXPECT_NE(message.find("\"labels.nrrd\" cannot be saved"), std::string::npos) << message;
}

TEST(LabelFile, FullDiskIsToldAndLeavesTheOldFileWhole)
{
    const Folder folder;
    for (const char* extension : extensions) {
        SCOPED_TRACE(extension);
        const Path disk = folder / "disk";
        std::filesystem::create_directories(disk);
        const auto geometry = turned_geometry(200, 200, 60);
        const auto labels = labels_of(geometry); // noise: it cannot be compressed below 1 MiB
        const auto report = in_child([&] {
            make_room_small(disk);
            const Path path = disk / (std::string("a") + extension);
            write_file(path, "old");
            const auto message = saved(path, labels);
            const bool whole = bytes_of_file(path) == "old";
            const auto files = std::distance(std::filesystem::directory_iterator(disk), {});
            return message + (whole && files == 1 ? " [old file whole]" : " [harm done]");
        });
        EXPECT_NE(report.find("cannot be saved"), std::string::npos) << report;
        EXPECT_NE(report.find("[old file whole]"), std::string::npos) << report;
        std::filesystem::remove_all(disk);
    }
}

TEST(LabelFile, RightsOfTheFileThatWasThereAreKept)
{
    const Folder folder;
    const auto path = folder / "a.nii.gz";
    write_file(path, "old");
    chmod(path.c_str(), 0640);
    ASSERT_EQ(saved(path, labels_of(turned_geometry(3, 4, 5))), "");
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}
