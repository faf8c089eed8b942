#include "frame/shared_array.h"
#include "tests/frame/failing_memory.h"

#include <gtest/gtest.h>

#include <memory>

using frame::Shared_Array;

namespace {

struct Counted {
    Counted() { ++living; }
    ~Counted() { --living; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    static inline int living = 0;
};

}

TEST(SharedArray, StartsWithZeroedElements)
{
    const Shared_Array<unsigned short> array(8);
    EXPECT_EQ(array.size(), 8u);
    for (const unsigned short element : array)
        EXPECT_EQ(element, 0);
}

TEST(SharedArray, IsEmptyWithoutASize)
{
    Shared_Array<int> array;
    EXPECT_EQ(array.size(), 0u);
    EXPECT_EQ(array.begin(), array.end());
    EXPECT_EQ(std::as_const(array).begin(), std::as_const(array).end());
}

TEST(SharedArray, CopiesShareTheirElements)
{
    Shared_Array<int> array(3);
    Shared_Array<int> copy(array);
    copy[1] = 42;
    EXPECT_EQ(array[1], 42);
    EXPECT_EQ(array.begin(), copy.begin());
    EXPECT_EQ(array.end() - array.begin(), 3);
}

TEST(SharedArray, AssignmentSharesToo)
{
    Shared_Array<int> array(3);
    Shared_Array<int> other(5);
    other = array;
    EXPECT_EQ(other.size(), 3u);
    other[0] = 7;
    EXPECT_EQ(array[0], 7);
}

TEST(SharedArray, TheLastOwnerFreesTheElements)
{
    {
        auto first = std::make_unique<Shared_Array<Counted>>(4u);
        EXPECT_EQ(Counted::living, 4);
        Shared_Array<Counted> second(*first);
        Shared_Array<Counted> third;
        third = second;
        EXPECT_EQ(Counted::living, 4);
        first.reset();
        EXPECT_EQ(Counted::living, 4);
    }
    EXPECT_EQ(Counted::living, 0);
}

TEST(SharedArray, AssignmentReleasesWhatTheTargetHad)
{
    Shared_Array<Counted> array(4);
    Shared_Array<Counted> other(2);
    EXPECT_EQ(Counted::living, 6);
    array = other;
    EXPECT_EQ(Counted::living, 2);
    array = Shared_Array<Counted>();
    other = array;
    EXPECT_EQ(Counted::living, 0);
}

TEST(SharedArray, SelfAssignmentIsHarmless)
{
    Shared_Array<Counted> array(4);
    const Shared_Array<Counted>& same = array;
    array = same;
    EXPECT_EQ(array.size(), 4u);
    EXPECT_EQ(Counted::living, 4);
}

TEST(SharedArray, HasNoElementsWhenMemoryRunsOut)
{
    for (int n = 1; n <= 2; ++n) {
        const test::Failing_New failing(n);
        Shared_Array<Counted> array(4);
        EXPECT_TRUE(failing.has_failed()) << "allocation " << n;
        EXPECT_EQ(array.size(), 0u);
        EXPECT_EQ(array.begin(), array.end());
        EXPECT_EQ(Counted::living, 0) << "nothing is left behind";
        const Shared_Array<Counted> copy(array);
        EXPECT_EQ(copy.size(), 0u);
    }
}
