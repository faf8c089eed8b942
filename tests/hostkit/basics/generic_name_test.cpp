#include "host/basics.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

namespace {

using Parts = std::tuple<std::string, std::string, std::string>;

Parts split(const std::string& path)
{
    std::string directory(path.size() + 1, 'x'), name = directory, extension = directory;
    Get_Generic_Name(path.c_str(), directory.data(), name.data(), extension.data());
    return {directory.c_str(), name.c_str(), extension.c_str()};
}

}

TEST(GenericName, IsDirectoryNameAndExtension)
{
    EXPECT_EQ(split("/data/heads/t1.dcm"), Parts("/data/heads/", "t1", ".dcm"));
    EXPECT_EQ(split("heads/t1.nii.gz"), Parts("heads/", "t1.nii", ".gz"));
    EXPECT_EQ(split("t1.dcm"), Parts("", "t1", ".dcm"));
    EXPECT_EQ(split("/t1."), Parts("/", "t1", "."));
    EXPECT_EQ(split("/data.v2/IM0001"), Parts("/data.v2/", "IM0001", ""));
    EXPECT_EQ(split("/data/heads/"), Parts("/data/heads/", "", ""));
    EXPECT_EQ(split(""), Parts("", "", ""));
}

TEST(GenericName, HasNoExtensionOfTheDotsThatItBeginsWith)
{
    EXPECT_EQ(split("/home/.profile"), Parts("/home/", ".profile", ""));
    EXPECT_EQ(split(".profile.old"), Parts("", ".profile", ".old"));
    EXPECT_EQ(split("heads/.."), Parts("heads/", "..", ""));
    EXPECT_EQ(split("..."), Parts("", "...", ""));
}

TEST(GenericName, PartsAreThePathAgain)
{
    for (const std::string path : {"a/b/c.d", "./.x.y", "//", ".", "a.", "K\u00f6pfe/t1.dcm", "a b/c d.e f"}) {
        const auto [directory, name, extension] = split(path);
        EXPECT_EQ(directory + name + extension, path);
    }
}

TEST(GenericName, OfNoPathIsEmpty)
{
    char directory[] = "x", name[] = "x", extension[] = "x";
    Get_Generic_Name(nullptr, directory, name, extension);
    EXPECT_STREQ(directory, "");
    EXPECT_STREQ(name, "");
    EXPECT_STREQ(extension, "");
}

TEST(ProgramFolder, EndsInASeparator)
{
    ASSERT_NE(Prog_Name, nullptr);
    ASSERT_GT(std::strlen(Prog_Name), 1u);
    EXPECT_EQ(Prog_Name[std::strlen(Prog_Name) - 1], '/');
}
