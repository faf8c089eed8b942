#include "tests/hostkit/basics/matrix_support.h"

#include <gtest/gtest.h>

#include <utility>

using test::Numbers_Of;
using test::Vector_Of;
using Numbers = std::vector<double>;

TEST(Vector, StartsWithZeros)
{
    const Vector_N vector(5, 8);
    EXPECT_EQ(vector.Size(), 5u);
    EXPECT_EQ(Numbers_Of(vector), Numbers(5, 0.0));
}

TEST(Vector, HoldsDoublesWhateverTheElementSizeSays)
{
    Vector_N vector(3, 1);
    vector[2] = 1e300;
    EXPECT_EQ(Numbers_Of(vector), (Numbers{0, 0, 1e300}));
}

TEST(Vector, MayBeEmpty)
{
    const Vector_N vector(0, 8);
    EXPECT_EQ(vector.Size(), 0u);
    EXPECT_EQ(Vector_N(vector).Size(), 0u);
}

TEST(Vector, CopiesAreCopies)
{
    Vector_N original = Vector_Of({1, 2, 3});
    Vector_N copy = original;
    original[0] = 7;
    EXPECT_EQ(Numbers_Of(copy), (Numbers{1, 2, 3}));
    copy[1] = 8;
    EXPECT_EQ(Numbers_Of(original), (Numbers{7, 2, 3}));
}

TEST(Vector, AssignmentTakesTheSizeToo)
{
    Vector_N vector = Vector_Of({1, 2, 3});
    const Vector_N longer = Vector_Of({4, 5, 6, 7});
    vector = longer;
    EXPECT_EQ(Numbers_Of(vector), (Numbers{4, 5, 6, 7}));
    vector = Vector_Of({9});
    EXPECT_EQ(Numbers_Of(vector), (Numbers{9}));
}

TEST(Vector, AssigningItselfChangesNothing)
{
    Vector_N vector = Vector_Of({1, 2});
    const Vector_N& same = vector;
    vector = same;
    EXPECT_EQ(Numbers_Of(vector), (Numbers{1, 2}));
}

TEST(Vector, MovingHandsTheElementsOver)
{
    Vector_N vector = Vector_Of({1, 2});
    const double* element = &vector[0];
    Vector_N moved = std::move(vector);
    EXPECT_EQ(&moved[0], element);
    EXPECT_EQ(Numbers_Of(moved), (Numbers{1, 2}));
}

TEST(Vector, AddsElementByElement)
{
    Vector_N vector = Vector_Of({1, 2, 3});
    Vector_N& result = vector += Vector_Of({10, 20, 30});
    EXPECT_EQ(&result, &vector);
    EXPECT_EQ(Numbers_Of(vector), (Numbers{11, 22, 33}));
    vector += vector;
    EXPECT_EQ(Numbers_Of(vector), (Numbers{22, 44, 66}));
}

TEST(Vector, OfDifferentSizesTheCommonPartIsAdded)
{
#ifdef NDEBUG
    Vector_N vector = Vector_Of({1, 2, 3});
    vector += Vector_Of({10, 20});
    EXPECT_EQ(Numbers_Of(vector), (Numbers{11, 22, 3}));
    Vector_N shorter = Vector_Of({1});
    shorter += vector;
    EXPECT_EQ(Numbers_Of(shorter), (Numbers{12}));
#else
    Vector_N vector = Vector_Of({1, 2, 3});
    EXPECT_DEATH(vector += Vector_Of({10, 20}), "");
#endif
}

TEST(Position, HoldsItsFourNumbersInOrder)
{
    const Vector_4 position{1, 2, 3, 4};
    EXPECT_EQ(sizeof position, 4 * sizeof(float));
    EXPECT_EQ(position.x, 1);
    EXPECT_EQ(position.y, 2);
    EXPECT_EQ(position.z, 3);
    EXPECT_EQ(position.t, 4);
}
