#include "host/gadgets.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

TEST(Colors, ArePackedWithRedInTheLowByte)
{
    EXPECT_EQ((Colors{0x12, 0x34, 0x56}.get()), 0x563412u);
}

TEST(Colors, OfAWidgetAreSetByChannel)
{
    Buttons button;
    button.Set_Color(0x12, 0x34, 0x56);
    EXPECT_EQ(button.color, (Colors{0x12, 0x34, 0x56}));
}

TEST(Caption, IsEmptyFromTheStartAndAgainWithNull)
{
    Caption caption;
    EXPECT_STREQ(caption.get(), "");
    caption.set("text");
    EXPECT_STREQ(caption.get(), "text");
    caption.set(nullptr);
    EXPECT_STREQ(caption.get(), "");
}

TEST(Caption, TakesAPartOfItself)
{
    Caption caption;
    caption.set("left ventricle");
    caption.set(caption.get() + 5);
    EXPECT_STREQ(caption.get(), "ventricle");
}

TEST(Caption, CopiesHaveTextsOfTheirOwn)
{
    Caption one;
    one.set("one");
    Caption other(one);
    EXPECT_NE(one.get(), other.get());
    one.set("changed");
    EXPECT_STREQ(other.get(), "one");
    other = one;
    EXPECT_STREQ(other.get(), "changed");
    other = *&other;
    EXPECT_STREQ(other.get(), "changed");
    const Caption moved(std::move(other));
    EXPECT_STREQ(moved.get(), "changed");
}

TEST(Captions, KeepTheirTextsWhenTheirNumberChanges)
{
    Captions captions;
    EXPECT_EQ(captions.count(), 0);
    ASSERT_TRUE(captions.resize(2));
    captions.set(0, "one");
    captions.set(1, "two");
    ASSERT_TRUE(captions.resize(3));
    EXPECT_STREQ(captions.get(1), "two");
    EXPECT_STREQ(captions.get(2), "");
    ASSERT_TRUE(captions.resize(1));
    EXPECT_STREQ(captions.get(0), "one");
    EXPECT_STREQ(captions.get(1), "");
    ASSERT_TRUE(captions.resize(-3));
    EXPECT_EQ(captions.count(), 0);
}

TEST(Captions, CopiesHaveTextsOfTheirOwn)
{
    Captions one;
    one.resize(1);
    one.set(0, "one");
    Captions other(one);
    one.set(0, "changed");
    EXPECT_STREQ(other.get(0), "one");
    other = one;
    EXPECT_STREQ(other.get(0), "changed");
    other = *&other;
    EXPECT_STREQ(other.get(0), "changed");
    const Captions moved(std::move(other));
    EXPECT_STREQ(moved.get(0), "changed");
}

TEST(Pictures, AreFourZeroedGrids)
{
    Pictures pictures;
    EXPECT_EQ(pictures.pixels(0), nullptr);
    ASSERT_TRUE(pictures.allocate(3, 2));
    for (int picture = 0; picture < 4; ++picture) {
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(pictures.pixels(picture)[i], 0u);
    }
    EXPECT_EQ(pictures.pixels(4), nullptr);
    EXPECT_EQ(pictures.pixels(-1), nullptr);
    EXPECT_FALSE(pictures.allocate(0, 5));
    EXPECT_EQ(pictures.pixels(0), nullptr);
}

TEST(Pictures, CopiesHavePixelsOfTheirOwn)
{
    Pictures one;
    one.allocate(2, 2);
    one.pixels(3)[3] = 7;
    Pictures other(one);
    one.pixels(3)[3] = 8;
    EXPECT_EQ(other.pixels(3)[3], 7u);
    other = one;
    EXPECT_EQ(other.pixels(3)[3], 8u);
    other = *&other;
    EXPECT_EQ(other.pixels(3)[3], 8u);
    one = Pictures();
    EXPECT_EQ(one.pixels(0), nullptr);
}

TEST(Widgets, ActiveAndShownFollowTheStateBits)
{
    struct Case {
        unsigned state;
        bool active;
        bool shown;
    };
    for (const Case& expected : {Case{0, true, true}, {1, false, false}, {2, false, false}, {3, false, false},
             {32, false, true}, {35, false, true}, {7, false, false}, {0x8000004, true, true}, {0x400000, true, true},
             {0x500000, true, true}, {0x80000000, true, true}, {0x80000003, false, false}, {0x400023, false, true}}) {
        Buttons button;
        button.state = expected.state;
        EXPECT_EQ(button.Active(), expected.active) << expected.state;
        EXPECT_EQ(button.Shown(), expected.shown) << expected.state;
    }
}
