#include "workbench/histogram/histogram_file.h"

#include "histo/tool_histo.h"
#include "tests/workbench/document/fixtures.h"
#include "tests/workbench/session_fixture.h"

#include <csignal>
#include <sys/resource.h>

using document_test::bytes_of_file;
using workbench::exportHistogram;

namespace {

class HistogramFile : public test::SessionTest {
protected:
    HistogramFile()
    {
        open(8, 4, 3);
        panel.Update(0x102);
    }

    std::string message(const std::filesystem::path& target)
    {
        const auto failure = exportHistogram(panel, target);
        return failure ? failure->message : "";
    }

    // What the panel itself writes.
    std::string table()
    {
        std::string name = (folder / "direct").string();
        EXPECT_EQ(panel.Write(name.data()), 1);
        const std::string bytes = bytes_of_file(folder / "direct");
        std::filesystem::remove(folder / "direct");
        return bytes;
    }

    document_test::Folder folder;
    Tool_Histo panel;
};

// Writing beyond so many bytes fails, as on a full disk, while this lives.
class LargestFile {
public:
    explicit LargestFile(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit low{bytes, limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &low);
    }
    ~LargestFile()
    {
        setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, before_);
    }
    LargestFile(const LargestFile&) = delete;
    LargestFile& operator=(const LargestFile&) = delete;

private:
    rlimit limit_{};
    void (*before_)(int);
};

}

TEST_F(HistogramFile, IsWhatThePanelWrites)
{
    EXPECT_EQ(message(folder / "a.csv"), "");
    EXPECT_EQ(bytes_of_file(folder / "a.csv"), table());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.csv"});
}

TEST_F(HistogramFile, HasThePeaksToo)
{
    ASSERT_FALSE(session.adoptImage(test::image_of_two_peaks()));
    panel.Update(0x102);
    panel.Fit();
    ASSERT_GT(panel.Peaks()->nb, 0);
    EXPECT_EQ(message(folder / "a.csv"), "");
    EXPECT_NE(bytes_of_file(folder / "a.csv").find("Gausian peaks"), std::string::npos);
    EXPECT_EQ(bytes_of_file(folder / "a.csv"), table());
}

TEST_F(HistogramFile, TakesNamesOfAllLanguagesAndPercentSigns)
{
    for (const char* name : {"Übersicht.csv", "ヒストグラム.csv", "100%s%n.csv", "a b\"c.csv"}) {
        EXPECT_EQ(message(folder / name), "") << name;
        EXPECT_EQ(bytes_of_file(folder / name), table()) << name;
    }
}

TEST_F(HistogramFile, FollowsALink)
{
    document_test::write_file(folder / "target.csv", "old");
    std::filesystem::create_symlink("target.csv", folder / "link.csv");
    EXPECT_EQ(message(folder / "link.csv"), "");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.csv"));
    EXPECT_EQ(bytes_of_file(folder / "target.csv"), table());
}

TEST_F(HistogramFile, WithoutItsFolderIsRefused)
{
    EXPECT_NE(message(folder / "nowhere" / "a.csv").find("nowhere does not exist"), std::string::npos);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(HistogramFile, AFolderOrADeviceIsNotReplaced)
{
    std::filesystem::create_directory(folder / "sub");
    EXPECT_NE(message(folder / "sub").find("there is a folder or device of that name"), std::string::npos);
    EXPECT_NE(message("/dev/full").find("there is a folder or device of that name"), std::string::npos);
}

TEST_F(HistogramFile, WhatIsThereStaysWhenTheDiskIsFull)
{
    document_test::write_file(folder / "a.csv", "old");
    const std::size_t whole = table().size();
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, whole / 2, whole - 1}) {
        const LargestFile full(room);
        EXPECT_EQ(message(folder / "a.csv"),
            "\"a.csv\" cannot be saved: the table could not be written whole. Choose another place.")
            << room << " of " << whole;
    }
    EXPECT_EQ(bytes_of_file(folder / "a.csv"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.csv"});
    const LargestFile enough(whole);
    EXPECT_EQ(message(folder / "a.csv"), "");
}

TEST_F(HistogramFile, AReadOnlyOneStays)
{
    document_test::write_file(folder / "a.csv", "old");
    std::filesystem::permissions(folder / "a.csv", std::filesystem::perms::owner_read);
    EXPECT_NE(message(folder / "a.csv").find("read-only"), std::string::npos);
    EXPECT_EQ(bytes_of_file(folder / "a.csv"), "old");
}
