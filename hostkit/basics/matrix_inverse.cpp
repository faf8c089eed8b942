#include "hostkit/basics/matrix_inverse.h"

#include <limits>
#include <new>

namespace hostkit {

using Eigen::VectorXd;

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

bool Matrix_Inverse::factorize(const Matrix_Storage& matrix)
{
    if (matrix.rows() == 0)
        return true;
    const Eigen_Matrix even = scaled(matrix);
    if (!even.allFinite())
        return false;
    factors_.compute(even);
    return factors_.rcond() >= std::numeric_limits<double>::epsilon() && is_finite();
}

// A badly scaled matrix need not be singular: columns of slopes differ by as much as amplitudes and widths do. So rows
// and columns are brought to one scale before the condition is judged. What is not finite stays so, and a row or column
// of zeros becomes so.
Eigen_Matrix Matrix_Inverse::scaled(const Matrix_Storage& matrix)
{
    const Matrix_View view = View_Of(matrix);
    if ((view.diagonal().array() > 0.0).all() && view == view.transpose()) {
        row_scale_ = view.diagonal().cwiseSqrt().cwiseInverse();
        column_scale_ = row_scale_;
    } else {
        row_scale_ = view.cwiseAbs().rowwise().maxCoeff().cwiseInverse();
        column_scale_ = (row_scale_.asDiagonal() * view).cwiseAbs().colwise().maxCoeff().transpose().cwiseInverse();
    }
    return row_scale_.asDiagonal() * view * column_scale_.asDiagonal();
}

bool Matrix_Inverse::is_finite() const
{
    // The scaled inverse is at most some 2^52: only a scale near the end of the numbers needs a closer look.
    constexpr double surely = 1e250;
    return row_scale_.maxCoeff() < surely / column_scale_.maxCoeff() || elements().allFinite();
}

Eigen_Matrix Matrix_Inverse::elements() const
{
    return column_scale_.asDiagonal() * factors_.inverse() * row_scale_.asDiagonal();
}

bool Matrix_Inverse::multiply(const double* vector, double* product) const
{
    if (size() == 0)
        return true;
    try {
        const Eigen::Index rows = row_scale_.size();
        const VectorXd even = row_scale_.cwiseProduct(Eigen::Map<const VectorXd>(vector, rows));
        Eigen::Map<VectorXd>(product, rows) = column_scale_.cwiseProduct(factors_.solve(even));
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
        Written_View_Of(matrix) = elements();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}
