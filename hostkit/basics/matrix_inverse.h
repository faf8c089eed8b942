#pragma once

#include "hostkit/basics/matrix_view.h"

#include <Eigen/LU>

#include <memory>

namespace hostkit {

/// The inverse of a matrix, as its factors: multiplying a vector by it solves an equation, which is cheaper and more
/// exact than computing the elements first.
class Matrix_Inverse {
public:
    /// Null when the matrix has no inverse, or there is no memory.
    static std::unique_ptr<Matrix_Inverse> of(const Matrix_Storage& matrix);

    size_t size() const { return static_cast<size_t>(row_scale_.size()); }

    /// Multiplies a vector. @return whether there was memory for it
    bool multiply(const double* vector, double* product) const;

    /// Writes the elements. @return whether there was memory for it
    bool write(Matrix_Storage& matrix) const;

private:
    bool factorize(const Matrix_Storage& matrix);
    Eigen_Matrix scaled(const Matrix_Storage& matrix);
    bool is_finite() const;
    Eigen_Matrix elements() const;

    Eigen::VectorXd row_scale_;
    Eigen::VectorXd column_scale_;
    Eigen::PartialPivLU<Eigen_Matrix> factors_; // of the matrix times both scales
};

}
