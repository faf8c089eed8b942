#include "hostkit/gadgets/tga.h"
#include "tests/hostkit/gadgets/tga_file.h"

#include <gtest/gtest.h>

using hostkit::read_tga;
using test::tga_head;

namespace {

using Pixels = std::vector<unsigned>;

std::string with_byte(std::string file, size_t place, int byte)
{
    file[place] = static_cast<char>(byte);
    return file;
}

}

TEST(Tga, PlainPixelsAreRowsFromTheTop)
{
    const auto picture = read_tga(tga_head(2, 2, 24) + "\1\2\3\4\5\6\7\10\11\12\13\14");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->pixels, (Pixels{0xff030201, 0xff060504, 0xff090807, 0xff0c0b0a}));
}

TEST(Tga, MayHaveTheBottomRowFirst)
{
    const auto picture = read_tga(tga_head(1, 3, 24, 2, 0) + "\1\1\1\2\2\2\3\3\3");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels, (Pixels{0xff030303, 0xff020202, 0xff010101}));
}

TEST(Tga, ColorsAreMultipliedByTheirAlpha)
{
    const auto picture =
        read_tga(tga_head(3, 1, 32) + std::string("\xff\xff\xff\x80\xff\x80\x02\xff\xff\xff\xff\x00", 12));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels, (Pixels{0x80808080, 0xff0280ff, 0x00000000}));
}

TEST(Tga, RunsMayReachOverTheEndsOfRows)
{
    const std::string three_of_one = "\x82\1\2\3";
    const std::string one_by_itself = std::string(1, '\0') + "\4\5\6";
    const auto picture = read_tga(tga_head(2, 2, 24, 10) + three_of_one + one_by_itself);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels, (Pixels{0xff030201, 0xff030201, 0xff030201, 0xff060504}));
}

TEST(Tga, ARunPastTheLastPixelEndsThere)
{
    const auto picture = read_tga(tga_head(2, 1, 24, 10) + "\xff\1\2\3");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels, (Pixels{0xff030201, 0xff030201}));
}

TEST(Tga, ItsTextIsPassedOver)
{
    const auto picture = read_tga(with_byte(tga_head(1, 1, 24), 0, 5) + "hello\1\2\3");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels, Pixels{0xff030201});
}

TEST(Tga, IsNothingWhenItIsNotWhole)
{
    const std::string plain = tga_head(2, 2, 32) + "aaaabbbbccccdddd";
    ASSERT_TRUE(read_tga(plain));
    for (size_t length = 0; length < plain.size(); ++length)
        EXPECT_FALSE(read_tga(std::string_view(plain).substr(0, length))) << length;
}

TEST(Tga, OtherKindsAreNone)
{
    const std::string pixel = "\1\2\3\4";
    ASSERT_TRUE(read_tga(tga_head(1, 1, 32) + pixel));
    EXPECT_FALSE(read_tga(tga_head(0, 1, 32) + pixel));
    EXPECT_FALSE(read_tga(tga_head(1, 0, 32) + pixel));
    EXPECT_FALSE(read_tga(with_byte(tga_head(1, 1, 32), 1, 1) + pixel)) << "with a palette";
    EXPECT_FALSE(read_tga(tga_head(257, 1, 32) + std::string(257 * 4, 'a'))) << "too wide";
    EXPECT_FALSE(read_tga("\x89PNG\r\n\x1a\n and what follows"));
}
