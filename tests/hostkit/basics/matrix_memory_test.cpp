#include "tests/frame/failing_memory.h"
#include "tests/hostkit/basics/matrix_support.h"

#include <gtest/gtest.h>

using test::element_size;
using test::Failing_New;
using test::Matrix_Of;
using test::Numbers_Of;
using test::Table;
using test::Table_Of;
using Numbers = std::vector<double>;

namespace {

constexpr int enough = 200;

// Runs something with its first, second, ... allocation failing, until there is none left to fail.
// @return how many there were
template <class Job>
int fail_each_allocation(Job job)
{
    for (int n = 1; n < enough; ++n) {
        Failing_New failing(n);
        job();
        if (!failing.has_failed())
            return n - 1;
    }
    return enough;
}

Matrix_NxM slopes(unsigned rows)
{
    Matrix_NxM matrix(3, rows, element_size);
    for (int y = 0; y < static_cast<int>(rows); ++y) {
        if (double* row = matrix[y]) {
            row[0] = 1;
            row[1] = y;
            row[2] = y * y;
        }
    }
    return matrix;
}

// Whether there is a result, or none for want of memory; a result is right.
void expect_right_or_nothing(const Vector_N& result, const Numbers& expected)
{
    if (result.Size() == 0)
        return;
    ASSERT_EQ(result.Size(), expected.size());
    for (unsigned i = 0; i < result.Size(); ++i)
        EXPECT_NEAR(result[static_cast<int>(i)], expected[i], 1e-6);
}

void solve(unsigned rows)
{
    const Matrix_NxM matrix = slopes(rows);
    Vector_N residual(rows, element_size);
    for (int y = 0; y < static_cast<int>(residual.Size()); ++y)
        residual[y] = 2 + 3.0 * y - 0.5 * y * y;
    const Matrix_NxM transpose = ~matrix;
    const Matrix_NxM inverse = !(transpose * matrix);
    expect_right_or_nothing(inverse * (transpose * residual), {2, 3, -0.5});
}

}

TEST(FailingMemory, EndsAStepWithoutAResult)
{
    const int small = fail_each_allocation([] { solve(40); });
    EXPECT_GT(small, 10);
    EXPECT_LT(small, enough);
    const int large = fail_each_allocation([] { solve(20000); });
    EXPECT_GT(large, 10);
    EXPECT_LT(large, enough);
}

TEST(FailingMemory, MatrixIsInvalid)
{
    for (int n = 1; n <= 3; ++n) {
        Failing_New failing(n);
        const Matrix_NxM matrix(7, 5, element_size);
        EXPECT_TRUE(failing.has_failed());
        EXPECT_EQ(matrix.Invalid(), 1) << n;
    }
}

TEST(FailingMemory, VectorIsEmpty)
{
    const Vector_N vector = test::Vector_Of({1, 2, 3});
    Failing_New failing(1);
    const Vector_N zeros(5, element_size);
    EXPECT_TRUE(failing.has_failed());
    EXPECT_EQ(zeros.Size(), 0u);
    Failing_New again(1);
    const Vector_N copy = vector;
    EXPECT_TRUE(again.has_failed());
    EXPECT_EQ(copy.Size(), 0u);
    EXPECT_EQ(Numbers_Of(vector), (Numbers{1, 2, 3}));
}

TEST(FailingMemory, CopyThatIsToBeWrittenBecomesInvalidAndTheOriginalStays)
{
    const Matrix_NxM original = Matrix_Of({{1, 2}, {3, 4}});
    const int allocations = fail_each_allocation([&] {
        for (Matrix_NxM copy : {original, ~original}) {
            double* const row = copy[0];
            EXPECT_EQ(copy.Invalid(), row ? 0 : 1);
        }
    });
    EXPECT_GE(allocations, 6);
    EXPECT_EQ(Table_Of(original, 2, 2), (Table{{1, 2}, {3, 4}}));
}

TEST(FailingMemory, InverseWhoseElementsAreReadBecomesInvalid)
{
    const Matrix_NxM matrix = Matrix_Of({{1, 2}, {3, 4}});
    int without = 0;
    fail_each_allocation([&] {
        Matrix_NxM inverse = !matrix;
        if (inverse.Invalid())
            return;
        const double* row = inverse[0];
        EXPECT_EQ(inverse.Invalid(), row ? 0 : 1);
        without += row ? 0 : 1;
    });
    EXPECT_GT(without, 0);
    EXPECT_NEAR((!matrix)[0][0], -2, 1e-14);
}

TEST(FailingMemory, ProductIsRightOrInvalid)
{
    const Table table(90, Numbers(90, 1.0));
    const Matrix_NxM matrix = Matrix_Of(table);
    int without = 0;
    const int allocations = fail_each_allocation([&] {
        Matrix_NxM product = matrix * ~matrix;
        if (product.Invalid())
            ++without;
        else
            EXPECT_EQ(product[89][89], 90.0);
    });
    EXPECT_EQ(without, allocations);
}
