#include "hostkit/basics/matrix_inverse.h"

#include "hostkit/basics/matrix_storage.h"

#include <limits>
#include <new>

namespace hostkit {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;
using Row_Major = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

auto mapped(const Matrix_Storage& matrix)
{
    return Eigen::Map<const Row_Major>(
        matrix.row(0), static_cast<Eigen::Index>(matrix.rows()), static_cast<Eigen::Index>(matrix.columns()));
}

bool is_scaled_by_its_diagonal(const MatrixXd& matrix)
{
    return (matrix.diagonal().array() > 0.0).all() && matrix == matrix.transpose();
}

}

std::unique_ptr<Matrix_Inverse> Matrix_Inverse::of(const Matrix_Storage& matrix)
{
    if (matrix.columns() != matrix.rows())
        return nullptr;
    try {
        std::unique_ptr<Matrix_Inverse> inverse(new (std::nothrow) Matrix_Inverse);
        if (inverse && !inverse->factorize(matrix))
            inverse.reset();
        return inverse;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

// A badly scaled matrix is no singular one: the columns of a Jacobian differ by the ratio of amplitudes and widths. So
// rows and columns are brought to one scale before the condition is judged.
bool Matrix_Inverse::factorize(const Matrix_Storage& matrix)
{
    MatrixXd scaled = mapped(matrix);
    if (scaled.size() == 0)
        return true;
    if (!scaled.allFinite())
        return false;
    if (is_scaled_by_its_diagonal(scaled)) {
        row_scale_ = scaled.diagonal().cwiseSqrt().cwiseInverse();
        column_scale_ = row_scale_;
        scaled = row_scale_.asDiagonal() * scaled * column_scale_.asDiagonal();
    } else {
        row_scale_ = scaled.cwiseAbs().rowwise().maxCoeff().cwiseInverse();
        scaled = row_scale_.asDiagonal() * scaled;
        column_scale_ = scaled.cwiseAbs().colwise().maxCoeff().cwiseInverse().transpose();
        scaled = scaled * column_scale_.asDiagonal();
    }
    if (!scaled.allFinite())
        return false;
    factors_.compute(scaled);
    return factors_.rcond() >= std::numeric_limits<double>::epsilon() && is_finite();
}

bool Matrix_Inverse::is_finite() const
{
    // The scaled inverse is at most some 2^52: only a scale near the end of the numbers needs a closer look.
    constexpr double surely = 1e250;
    return row_scale_.maxCoeff() < surely / column_scale_.maxCoeff() || elements().allFinite();
}

MatrixXd Matrix_Inverse::elements() const
{
    return column_scale_.asDiagonal() * factors_.inverse() * row_scale_.asDiagonal();
}

bool Matrix_Inverse::multiply(const double* vector, double* product) const
{
    if (size() == 0)
        return true;
    try {
        const auto rows = row_scale_.size();
        const VectorXd scaled = row_scale_.cwiseProduct(Eigen::Map<const VectorXd>(vector, rows));
        Eigen::Map<VectorXd>(product, rows) = column_scale_.cwiseProduct(factors_.solve(scaled));
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool Matrix_Inverse::write(Matrix_Storage& matrix) const
{
    if (size() == 0)
        return true;
    try {
        const MatrixXd inverse = elements();
        for (size_t y = 0; y < matrix.rows(); ++y)
            Eigen::Map<VectorXd>(matrix.row(y), inverse.cols()) = inverse.row(static_cast<Eigen::Index>(y)).transpose();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}
