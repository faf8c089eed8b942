#pragma once

#include "hostkit/basics/matrix_storage.h"

#include <Eigen/Core>

namespace hostkit {

using Eigen_Matrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
using Matrix_View = Eigen::Map<const Eigen_Matrix>;
using Written_Matrix_View = Eigen::Map<Eigen_Matrix>;

/// The elements as Eigen sees them.
inline Matrix_View View_Of(const Matrix_Storage& matrix)
{
    return {matrix.row(0), static_cast<Eigen::Index>(matrix.rows()), static_cast<Eigen::Index>(matrix.columns())};
}

/// The same, all of them to be written.
inline Written_Matrix_View Written_View_Of(Matrix_Storage& matrix)
{
    return {
        matrix.written_rows(), static_cast<Eigen::Index>(matrix.rows()), static_cast<Eigen::Index>(matrix.columns())};
}

}
