#include "tests/hostkit/basics/matrix_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

using test::element_size;
using test::Matrix_Of;
using test::Numbers_Of;
using test::Table;
using test::Table_Of;
using test::Vector_Of;
using Numbers = std::vector<double>;

namespace {

constexpr unsigned most = std::numeric_limits<unsigned>::max();

// Columns that are zero beside a few rows each, as the slopes of peaks are; some rows and columns are zero altogether.
Table sparse_table(size_t columns, size_t rows, unsigned seed)
{
    Table table = test::Random_Table(columns, rows, seed);
    for (size_t y = 0; y < rows; ++y) {
        for (size_t x = 0; x < columns; ++x) {
            const double distance =
                static_cast<double>(y) - static_cast<double>(x * rows) / static_cast<double>(columns);
            if (std::fabs(distance) > 0.2 * static_cast<double>(rows) || x % 7 == 3 || y % 11 < 2)
                table[y][x] = 0.0;
        }
    }
    return table;
}

Table transposed(const Table& table)
{
    Table result(table[0].size(), Numbers(table.size()));
    for (size_t y = 0; y < table.size(); ++y) {
        for (size_t x = 0; x < table[0].size(); ++x)
            result[x][y] = table[y][x];
    }
    return result;
}

Table product(const Table& left, const Table& right)
{
    Table result(left.size(), Numbers(right[0].size(), 0.0));
    for (size_t y = 0; y < left.size(); ++y) {
        for (size_t x = 0; x < right[0].size(); ++x) {
            for (size_t i = 0; i < right.size(); ++i)
                result[y][x] += left[y][i] * right[i][x];
        }
    }
    return result;
}

Numbers product(const Table& left, const Numbers& right)
{
    Numbers result;
    for (const Numbers& row : left) {
        result.push_back(0.0);
        for (size_t i = 0; i < right.size(); ++i)
            result.back() += row[i] * right[i];
    }
    return result;
}

void expect_near(const Table& table, const Table& expected, double tolerance = 1e-12)
{
    ASSERT_EQ(table.size(), expected.size());
    for (size_t y = 0; y < table.size(); ++y) {
        ASSERT_EQ(table[y].size(), expected[y].size());
        for (size_t x = 0; x < table[y].size(); ++x)
            EXPECT_NEAR(table[y][x], expected[y][x], tolerance) << y << " " << x;
    }
}

// The sums of a transpose and itself are formed in the order of the rows, as here: nothing differs by a bit.
void expect_exact_square(const Table& table)
{
    const size_t columns = table[0].size();
    const Matrix_NxM matrix = Matrix_Of(table);
    const Matrix_NxM transpose = ~matrix;
    EXPECT_EQ(Table_Of(transpose * matrix, columns, columns), product(transposed(table), table));
}

}

TEST(Matrix, StartsWithZeros)
{
    Matrix_NxM matrix(3, 2, 8);
    EXPECT_EQ(matrix.Invalid(), 0);
    EXPECT_EQ(Table_Of(matrix, 3, 2), Table(2, Numbers(3, 0.0)));
}

TEST(Matrix, RowsLieBehindEachOther)
{
    Matrix_NxM matrix(3, 40, 8);
    for (int y = 0; y < 39; ++y)
        EXPECT_EQ(matrix[y] + 3, matrix[y + 1]);
}

TEST(Matrix, CopiesShareNothingThatCanBeSeen)
{
    const Table table = test::Random_Table(5, 33, 1);
    Matrix_NxM original = Matrix_Of(table);
    Matrix_NxM copy = original;
    original[32][4] = 7;
    EXPECT_EQ(Table_Of(copy, 5, 33), table);
    copy[0][0] = 8;
    Table changed = table;
    changed[32][4] = 7;
    EXPECT_EQ(Table_Of(original, 5, 33), changed);
    original = copy;
    changed = table;
    changed[0][0] = 8;
    copy[1][1] = 9;
    EXPECT_EQ(Table_Of(original, 5, 33), changed);
}

TEST(Matrix, CopyOutlivesWhatItWasCopiedFrom)
{
    const Table table = test::Random_Table(4, 4, 2);
    Matrix_NxM copy(0, 0, 8);
    {
        const Matrix_NxM original = Matrix_Of(table);
        copy = original;
    }
    EXPECT_EQ(Table_Of(copy, 4, 4), table);
}

TEST(Matrix, AssigningItselfChangesNothing)
{
    const Table table = test::Random_Table(4, 3, 3);
    Matrix_NxM matrix = Matrix_Of(table);
    const Matrix_NxM& same = matrix;
    matrix = same;
    EXPECT_EQ(Table_Of(matrix, 4, 3), table);
}

TEST(Matrix, MovingHandsTheElementsOver)
{
    const Table table = test::Random_Table(4, 3, 4);
    Matrix_NxM matrix = Matrix_Of(table);
    const double* row = matrix[0];
    Matrix_NxM moved = std::move(matrix);
    EXPECT_EQ(moved[0], row);
    EXPECT_EQ(Table_Of(moved, 4, 3), table);
}

TEST(Matrix, TransposeShowsColumnsAsRows)
{
    const Table table = test::Random_Table(5, 40, 5);
    const Matrix_NxM matrix = Matrix_Of(table);
    EXPECT_EQ(Table_Of(~matrix, 40, 5), transposed(table));
    EXPECT_EQ(Table_Of(~~matrix, 5, 40), table);
}

TEST(Matrix, WritingATransposeLeavesTheOriginalAlone)
{
    const Table table = test::Random_Table(5, 40, 6);
    Matrix_NxM matrix = Matrix_Of(table);
    Matrix_NxM transpose = ~matrix;
    matrix[1][2] = 100;
    EXPECT_EQ(Table_Of(transpose, 40, 5), transposed(table));
    transpose[2][1] = 200;
    EXPECT_EQ(matrix[1][2], 100);
    EXPECT_EQ(transpose[2][1], 200);
}

TEST(Matrix, ProductIsThatOfPlainLoops)
{
    for (const auto& [rows, inner, columns] : {std::tuple<size_t, size_t, size_t>{1, 1, 1}, {3, 5, 2}, {40, 17, 33}}) {
        const Table left = test::Random_Table(inner, rows, 7);
        const Table right = test::Random_Table(columns, inner, 8);
        expect_near(Table_Of(Matrix_Of(left) * Matrix_Of(right), columns, rows), product(left, right));
    }
}

TEST(Matrix, ProductsOfTransposesAreThoseOfPlainLoops)
{
    const Table left = test::Random_Table(6, 20, 9);
    const Table right = test::Random_Table(20, 7, 10);
    expect_near(Table_Of(~Matrix_Of(left) * ~Matrix_Of(right), 7, 6), product(transposed(left), transposed(right)));
    const Table other = test::Random_Table(9, 20, 11);
    expect_near(Table_Of(~Matrix_Of(left) * Matrix_Of(other), 9, 6), product(transposed(left), other));
    const Matrix_NxM matrix = Matrix_Of(left);
    expect_near(Table_Of(matrix * ~matrix, 20, 20), product(left, transposed(left)));
    const Matrix_NxM square = Matrix_Of(test::Random_Table(8, 8, 12));
    const Table table = Table_Of(square, 8, 8);
    expect_near(Table_Of(square * square, 8, 8), product(table, table));
    expect_near(Table_Of(~square * ~square, 8, 8), product(transposed(table), transposed(table)));
}

TEST(Matrix, ProductOfATransposeAndItselfIsExact)
{
    for (const size_t columns : {1, 2, 3, 4, 5, 8, 9, 31, 60}) {
        for (const size_t rows : {1, 15, 16, 17, 100}) {
            SCOPED_TRACE(std::to_string(columns) + " x " + std::to_string(rows));
            expect_exact_square(test::Random_Table(columns, rows, 13));
            expect_exact_square(sparse_table(columns, rows, 14));
        }
    }
}

TEST(Matrix, ProductSeesWhatWasWrittenAfterAnEarlierOne)
{
    Table table = sparse_table(20, 100, 15);
    Matrix_NxM matrix = Matrix_Of(table);
    EXPECT_EQ((~matrix * matrix).Invalid(), 0);
    table[50][0] = 3;
    table[50][19] = 4;
    table[99][7] = 5;
    matrix[50][0] = 3;
    matrix[50][19] = 4;
    matrix[99][7] = 5;
    EXPECT_EQ(Table_Of(~matrix * matrix, 20, 20), product(transposed(table), table));
    const Numbers ones(100, 1.0);
    EXPECT_EQ(Numbers_Of(~matrix * Vector_Of(ones)), product(transposed(table), ones));
}

TEST(Matrix, TimesVectorIsThatOfPlainLoops)
{
    const Table table = test::Random_Table(7, 50, 16);
    const Numbers numbers = test::Random_Table(7, 1, 17)[0];
    const Numbers result = Numbers_Of(Matrix_Of(table) * Vector_Of(numbers));
    const Numbers expected = product(table, numbers);
    ASSERT_EQ(result.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(result[i], expected[i], 1e-14) << i;
}

TEST(Matrix, TransposeTimesVectorIsExact)
{
    for (const size_t columns : {1, 3, 4, 10}) {
        const Table table = sparse_table(columns, 50, 18);
        const Numbers numbers = test::Random_Table(50, 1, 19)[0];
        EXPECT_EQ(Numbers_Of(~Matrix_Of(table) * Vector_Of(numbers)), product(transposed(table), numbers));
    }
}

// Large matrices live in memory that is used again.
TEST(Matrix, NothingOfAnEarlierMatrixComesThrough)
{
    for (const unsigned columns : {60u, 57u, 90u, 3u, 60u}) {
        const unsigned rows = 5000;
        Matrix_NxM matrix(columns, rows, 8);
        for (int y = 0; y < static_cast<int>(rows); y += 3) {
            for (unsigned x = 0; x < columns; ++x)
                ASSERT_EQ(matrix[y][x], 0.0) << columns << ": " << x << " " << y;
        }
        const Vector_N ones = Vector_Of(Numbers(rows, 1.0));
        EXPECT_EQ(Numbers_Of(~matrix * ones), Numbers(columns, 0.0));
        for (int y = 0; y < static_cast<int>(rows); y += 7)
            std::fill_n(matrix[y], columns, 5.0);
        EXPECT_EQ(Numbers_Of(~matrix * ones), Numbers(columns, 5.0 * 715));
        EXPECT_EQ((~matrix * matrix)[0][columns - 1], 25.0 * 715);
    }
}

TEST(Matrix, SeveralLargeOnesAtATimeAreIndependent)
{
    std::vector<Matrix_NxM> matrices;
    for (int i = 0; i < 4; ++i) {
        matrices.emplace_back(30u, 3000u, element_size);
        for (int y = 0; y < 3000; ++y)
            matrices.back()[y][i] = i + 1.0;
    }
    for (int i = 0; i < 4; ++i) {
        const Table square = Table_Of(~matrices[static_cast<size_t>(i)] * matrices[static_cast<size_t>(i)], 30, 30);
        Table expected(30, Numbers(30, 0.0));
        expected[static_cast<size_t>(i)][static_cast<size_t>(i)] = 3000.0 * (i + 1) * (i + 1);
        EXPECT_EQ(square, expected);
    }
}

TEST(Matrix, OfMismatchedSizesTheProductIsInvalid)
{
    const Matrix_NxM matrix = Matrix_Of(test::Random_Table(3, 5, 20));
    EXPECT_EQ((matrix * matrix).Invalid(), 1);
    EXPECT_EQ((~matrix * ~matrix).Invalid(), 1);
    EXPECT_EQ((matrix * Vector_Of({1, 2})).Size(), 0u);
    EXPECT_EQ((matrix * Vector_Of({1, 2, 3, 4})).Size(), 0u);
    EXPECT_EQ((~matrix * Vector_Of({1, 2, 3})).Size(), 0u);
}

TEST(Matrix, OfAnInvalidMatrixEverythingIsInvalid)
{
    Matrix_NxM invalid = !Matrix_NxM(3, 2, 8);
    ASSERT_EQ(invalid.Invalid(), 1);
    const Matrix_NxM valid = Matrix_Of({{1}});
    const Matrix_NxM copy = invalid;
    EXPECT_EQ(copy.Invalid(), 1);
    EXPECT_EQ((~invalid).Invalid(), 1);
    EXPECT_EQ((!invalid).Invalid(), 1);
    EXPECT_EQ((invalid * valid).Invalid(), 1);
    EXPECT_EQ((valid * invalid).Invalid(), 1);
    EXPECT_EQ((~invalid * invalid).Invalid(), 1);
    EXPECT_EQ((invalid * Vector_Of({1})).Size(), 0u);
    EXPECT_EQ(invalid[0], nullptr);
    invalid = valid;
    EXPECT_EQ(invalid.Invalid(), 0);
    EXPECT_EQ(invalid[0][0], 1);
}

TEST(Matrix, WithoutElementsIsValid)
{
    const Matrix_NxM no_columns(0, 10, 8);
    EXPECT_EQ(no_columns.Invalid(), 0);
    const Matrix_NxM square = ~no_columns * no_columns;
    EXPECT_EQ(square.Invalid(), 0);
    const Matrix_NxM inverse = !square;
    EXPECT_EQ(inverse.Invalid(), 0);
    const Vector_N residual(10, 8);
    EXPECT_EQ((~no_columns * residual).Size(), 0u);
    EXPECT_EQ((inverse * (~no_columns * residual)).Size(), 0u);
    EXPECT_EQ((inverse * inverse).Invalid(), 0);
    EXPECT_EQ((~inverse * Vector_N(0, 8)).Size(), 0u);
}

TEST(Matrix, SumsWithoutTermsAreZero)
{
    const Matrix_NxM no_columns(0, 3, 8);
    const Matrix_NxM no_rows(2, 0, 8);
    EXPECT_EQ(Table_Of(no_columns * no_rows, 2, 3), Table(3, Numbers(2, 0.0)));
    EXPECT_EQ(Table_Of(~no_rows * no_rows, 2, 2), Table(2, Numbers(2, 0.0)));
    EXPECT_EQ(Numbers_Of(no_columns * Vector_N(0, 8)), Numbers(3, 0.0));
    EXPECT_EQ(Numbers_Of(~no_rows * Vector_N(0, 8)), Numbers(2, 0.0));
}

TEST(Matrix, ThatNoMemoryCanHoldIsInvalid)
{
    const Matrix_NxM huge(most, most, 8);
    EXPECT_EQ(huge.Invalid(), 1);
    EXPECT_EQ((~huge * huge).Invalid(), 1);
    EXPECT_EQ((huge * Vector_Of({1})).Size(), 0u);
}

TEST(Matrix, WideProductThatNoMemoryCanHoldIsInvalid)
{
    // 4,294,967,295 columns of no rows are nothing; their square is everything.
    const Matrix_NxM wide(most, 0, 8);
    ASSERT_EQ(wide.Invalid(), 0);
    EXPECT_EQ((~wide * wide).Invalid(), 1);
}

// The address checker answers a request that is too large with null, as the others do.
extern "C" VETRA_EXPORT const char* __asan_default_options();
const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
