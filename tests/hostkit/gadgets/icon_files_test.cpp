#include "host/basics.h"
#include "hostkit/gadgets/tga.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

// The icons that come with the program.

namespace {

std::string content_of(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void expect_icon(const std::filesystem::path& path, int size)
{
    const auto picture = hostkit::read_tga(content_of(path));
    ASSERT_TRUE(picture) << path;
    EXPECT_EQ(picture->width, size) << path;
    EXPECT_EQ(picture->height, size) << path;
    const auto is = [](unsigned alpha) { return [alpha](unsigned pixel) { return pixel >> 24 == alpha; }; };
    EXPECT_TRUE(std::any_of(picture->pixels.begin(), picture->pixels.end(), is(0))) << path << " covers all";
    EXPECT_TRUE(std::any_of(picture->pixels.begin(), picture->pixels.end(), is(255))) << path << " is faint";
}

void expect_both(const std::string& name)
{
    expect_icon(std::filesystem::path(Prog_Name) / name, 16);
    expect_icon(std::filesystem::path(Prog_Name) / "2x" / name, 32);
}

}

TEST(IconFiles, AreThereForAllThatPanelsName)
{
    for (const char* name : {"icon folder.tga", "icon anchor.tga", "icon check yellow.tga", "icon check green.tga",
             "icon scout.tga", "icon image.tga", "icon cine.tga", "icon volume.tga", "modality ct.tga",
             "modality mr.tga", "modality nm.tga", "modality rx.tga", "modality us.tga", "modality ph.tga",
             "modality xa.tga", "modality ot.tga"})
        expect_both(name);
}

TEST(IconFiles, AreThereForTheClassesOfObjects)
{
    for (const char* name :
        {"icon study.tga", "icon series.tga", "icon frame.tga", "icon signal.tga", "icon surface.tga"})
        expect_both(name);
    for (const char* title : {"Root", "Study", "Series", "Frame", "Signal", "Surface"})
        expect_both(std::string("class ") + title + ".tga");
}

TEST(IconFiles, AnchorLeavesRoomForTheFirstRow)
{
    const auto picture = hostkit::read_tga(content_of(std::filesystem::path(Prog_Name) / "icon anchor.tga"));
    ASSERT_TRUE(picture);
    constexpr int free_rows = 10;
    EXPECT_TRUE(std::all_of(
        picture->pixels.end() - 16 * free_rows, picture->pixels.end(), [](unsigned pixel) { return pixel == 0; }));
}
