#include "tests/hostkit/basics/matrix_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using test::element_size;
using test::Matrix_Of;
using test::Numbers_Of;
using test::Table;
using test::Table_Of;
using test::Vector_Of;
using Numbers = std::vector<double>;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

struct Peak {
    double center;
    double amplitude;
    double width;
};

// The slopes of a sum of bell curves in their centres, amplitudes and half widths.
Matrix_NxM slopes(const std::vector<Peak>& peaks, int rows)
{
    Matrix_NxM matrix(static_cast<unsigned>(3 * peaks.size()), static_cast<unsigned>(rows), element_size);
    for (int y = 0; y < rows; ++y) {
        double* column = matrix[y];
        for (const Peak& peak : peaks) {
            const double distance = (y - peak.center) / peak.width;
            const double height = std::exp2(-distance * distance);
            const double slope = 2 * std::log(2.0) * peak.amplitude * height * distance / peak.width;
            *column++ = slope;
            *column++ = height;
            *column++ = slope * distance;
        }
    }
    return matrix;
}

Matrix_NxM square_of_slopes(const std::vector<Peak>& peaks)
{
    const Matrix_NxM matrix = slopes(peaks, 256);
    return ~matrix * matrix;
}

std::vector<Peak> row_of_peaks(int count, double spacing)
{
    std::vector<Peak> peaks;
    for (int i = 0; i < count; ++i)
        peaks.push_back({100 + i * spacing, 1000, 10});
    return peaks;
}

int is_invalid(const Table& table)
{
    return (!Matrix_Of(table)).Invalid();
}

void expect_identity(const Matrix_NxM& matrix, size_t size, double tolerance)
{
    const Table table = Table_Of(matrix, size, size);
    for (size_t y = 0; y < size; ++y) {
        for (size_t x = 0; x < size; ++x)
            EXPECT_NEAR(table[y][x], x == y ? 1.0 : 0.0, tolerance) << y << " " << x;
    }
}

void expect_solves(const Matrix_NxM& matrix, const Numbers& solution)
{
    const Matrix_NxM inverse = !matrix;
    ASSERT_EQ(inverse.Invalid(), 0);
    const Numbers solved = Numbers_Of(inverse * (matrix * Vector_Of(solution)));
    ASSERT_EQ(solved.size(), solution.size());
    for (size_t i = 0; i < solution.size(); ++i)
        EXPECT_NEAR(solved[i], solution[i], 1e-9 * std::fabs(solution[i])) << i;
}

void expect_solves(const Table& table, const Numbers& solution)
{
    expect_solves(Matrix_Of(table), solution);
}

}

TEST(Inverse, TimesTheMatrixIsTheIdentity)
{
    for (const size_t size : {1, 2, 3, 10, 40}) {
        const Matrix_NxM matrix = Matrix_Of(test::Random_Table(size, size, 1));
        const Matrix_NxM inverse = !matrix;
        ASSERT_EQ(inverse.Invalid(), 0);
        expect_identity(inverse * matrix, size, 1e-10);
        expect_identity(matrix * inverse, size, 1e-10);
        expect_identity(~inverse * ~matrix, size, 1e-10);
        expect_identity(~matrix * !~matrix, size, 1e-10);
    }
}

TEST(Inverse, OfSmallMatricesIsAsOnPaper)
{
    EXPECT_EQ(Table_Of(!Matrix_Of({{4}}), 1, 1), (Table{{0.25}}));
    EXPECT_EQ(Table_Of(!Matrix_Of({{-4}}), 1, 1), (Table{{-0.25}}));
    EXPECT_EQ(Table_Of(!Matrix_Of({{0, 1}, {1, 0}}), 2, 2), (Table{{0, 1}, {1, 0}}));
    EXPECT_EQ(Table_Of(!Matrix_Of({{0, 2}, {-4, 0}}), 2, 2), (Table{{0, -0.25}, {0.5, 0}}));
}

TEST(Inverse, SolvesTheSameBeforeAndAfterItsElementsAreRead)
{
    const Matrix_NxM matrix = Matrix_Of(test::Random_Table(12, 12, 2));
    const Vector_N vector = Vector_Of(test::Random_Table(12, 12, 3)[0]);
    Matrix_NxM inverse = !matrix;
    const Matrix_NxM copy = inverse;
    const Numbers solved = Numbers_Of(inverse * vector);
    const Numbers back = Numbers_Of(matrix * Vector_Of(solved));
    inverse[0];
    const Numbers multiplied = Numbers_Of(inverse * vector);
    const Numbers by_copy = Numbers_Of(copy * vector);
    ASSERT_EQ(solved.size(), 12u);
    for (size_t i = 0; i < 12; ++i) {
        EXPECT_NEAR(back[i], vector[static_cast<int>(i)], 1e-12);
        EXPECT_NEAR(multiplied[i], solved[i], 1e-10);
        EXPECT_NEAR(by_copy[i], solved[i], 1e-10);
    }
}

TEST(Inverse, CanBeWrittenLikeAnyMatrix)
{
    Matrix_NxM inverse = !Matrix_Of({{2, 0}, {0, 4}});
    const Matrix_NxM copy = inverse;
    inverse[0][1] = 3;
    EXPECT_EQ(Table_Of(inverse, 2, 2), (Table{{0.5, 3}, {0, 0.25}}));
    EXPECT_EQ(Numbers_Of(inverse * Vector_Of({2, 4})), (Numbers{13, 1}));
    EXPECT_EQ(Numbers_Of(copy * Vector_Of({2, 4})), (Numbers{1, 1}));
    EXPECT_EQ(Table_Of(copy, 2, 2), (Table{{0.5, 0}, {0, 0.25}}));
}

TEST(Inverse, TransposedTimesVector)
{
    const Matrix_NxM inverse = !Matrix_Of({{1, 2}, {0, 1}});
    EXPECT_EQ(Numbers_Of(inverse * Vector_Of({5, 7})), (Numbers{-9, 7}));
    EXPECT_EQ(Numbers_Of(~inverse * Vector_Of({5, 7})), (Numbers{5, -3}));
}

TEST(Inverse, OfWhatIsNotSquareIsInvalid)
{
    EXPECT_EQ(is_invalid({{1, 2, 3}, {4, 5, 6}}), 1);
    EXPECT_EQ((!~Matrix_Of({{1, 2, 3}, {4, 5, 6}})).Invalid(), 1);
    EXPECT_EQ((!Matrix_NxM(0, 3, 8)).Invalid(), 1);
}

TEST(Inverse, OfWhatIsNotFiniteIsInvalid)
{
    for (const double bad : {infinity, -infinity, not_a_number}) {
        EXPECT_EQ(is_invalid({{bad}}), 1);
        EXPECT_EQ(is_invalid({{1, bad}, {bad, 1}}), 1);
        EXPECT_EQ(is_invalid({{1, bad}, {0, 1}}), 1);
        EXPECT_EQ(is_invalid({{1, 0}, {0, bad}}), 1);
        EXPECT_EQ(is_invalid({{1, 0, 0}, {0, 1, 0}, {bad, 0, 1}}), 1);
    }
}

TEST(Inverse, OfASingularMatrixIsInvalid)
{
    EXPECT_EQ(is_invalid({{0}}), 1);
    EXPECT_EQ(is_invalid({{1, 1}, {1, 1}}), 1);
    EXPECT_EQ(is_invalid({{1, 2}, {2, 4}}), 1);
    EXPECT_EQ(is_invalid({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}), 1);
    EXPECT_EQ(is_invalid({{1, 0}, {0, 0}}), 1) << "a row and a column of zeros";
    EXPECT_EQ(is_invalid({{1, 0}, {1, 0}}), 1) << "a column of zeros";
    EXPECT_EQ(is_invalid({{1, 1}, {0, 0}}), 1) << "a row of zeros";
}

TEST(Inverse, BadScaleIsNoSingularity)
{
    expect_solves({{1e20, 1}, {1, 1e-15}}, {1e-10, 1e10});
    expect_solves({{1e-30, 2e-30}, {3e30, 4e30}}, {1, 2});
    expect_solves({{1e300, 0}, {0, 1e-300}}, {1, 2});
}

TEST(Inverse, ThatNoDoubleHoldsIsInvalid)
{
    EXPECT_EQ(is_invalid({{1e-310}}), 1);
    EXPECT_EQ(is_invalid({{1e-310, 0}, {0, 1}}), 1);
    EXPECT_EQ(is_invalid({{1, 0}, {1e-3, -1e-310}}), 1);
    EXPECT_EQ(is_invalid({{1e-300}}), 0);
}

TEST(InverseOfSlopes, OfOnePeakStandsForEveryScale)
{
    for (const double amplitude : {1e-6, 1.0, 1e9}) {
        SCOPED_TRACE(amplitude);
        expect_solves(square_of_slopes({{128, amplitude, 5}}), {0.5, amplitude, -0.25});
    }
}

TEST(InverseOfSlopes, OfPeaksOfFourAndOneBillionIsGood)
{
    expect_solves(square_of_slopes({{80, 4e9, 5}, {160, 1e9, 5}}), {1e-3, 2e6, 3e-3, -2e-3, 5e5, 1e-3});
}

TEST(InverseOfSlopes, OfTwoPeaksAtOnePlaceIsInvalid)
{
    EXPECT_EQ((!square_of_slopes({{100, 1000, 10}, {100, 1000, 10}})).Invalid(), 1);
}

TEST(InverseOfSlopes, OfAPeakWithoutHeightIsInvalid)
{
    EXPECT_EQ((!square_of_slopes({{100, 0, 10}})).Invalid(), 1);
    EXPECT_EQ((!square_of_slopes({{60, 1000, 10}, {160, 0, 10}})).Invalid(), 1);
}

TEST(InverseOfSlopes, OfPeaksSixRowsApartIsGoodUpToFour)
{
    for (int count = 2; count <= 4; ++count)
        EXPECT_EQ((!square_of_slopes(row_of_peaks(count, 6))).Invalid(), 0) << count;
    EXPECT_EQ((!square_of_slopes(row_of_peaks(5, 6))).Invalid(), 1);
}

TEST(InverseOfSlopes, OfFourPeaksEightRowsApartIsGood)
{
    EXPECT_EQ((!square_of_slopes(row_of_peaks(4, 8))).Invalid(), 0);
}
