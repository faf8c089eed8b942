#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace {

struct Picture {
    int width = 0;
    int height = 0;
    std::string pixels;
};

Picture read_picture(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    Picture picture;
    std::string magic;
    int deepest = 0;
    file >> magic >> picture.width >> picture.height >> deepest;
    file.get();
    picture.pixels.assign(std::istreambuf_iterator<char>(file), {});
    return picture;
}

int run(const std::string& arguments)
{
    return std::system((std::string("\"") + MINIMAL_HOST + "\" " + arguments).c_str());
}

}

TEST(MinimalHost, WritesAPictureOfItsPanel)
{
    const std::string path = VETRA_OUT "/minimal_host.ppm";
    std::remove(path.c_str());
    ASSERT_EQ(run("--picture \"" + path + "\""), 0);
    const Picture picture = read_picture(path);
    EXPECT_EQ(picture.width, 420);
    EXPECT_EQ(picture.pixels.size(), static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height) * 3);
    const std::set<char> shades(picture.pixels.begin(), picture.pixels.end());
    EXPECT_GT(shades.size(), 20u) << "an empty panel";
}

TEST(MinimalHost, SaysThatAFileCannotBeWritten)
{
    EXPECT_NE(run("--picture /nowhere/at/all.ppm 2>/dev/null"), 0);
}
