#include "hostkit/basics/matrix_product.h"

#include "hostkit/basics/matrix_view.h"

#include <new>

namespace hostkit {

namespace {

// A row of sums, one a column, to which the rows of a strip are added, each times a factor of its own.
struct Weighted_Rows {
    const double* rows;
    size_t columns;
    size_t count;
    const double* factors;
    size_t factor_step;

    // Every sum is formed in the order of the rows; those of neighbouring columns run side by side.
    template <size_t width>
    void add(size_t column, double* sums) const
    {
        double sum[width];
        std::copy_n(sums + column, width, sum);
        for (size_t y = 0; y < count; ++y) {
            for (size_t i = 0; i < width; ++i)
                sum[i] += factors[y * factor_step] * rows[y * columns + column + i];
        }
        std::copy_n(sum, width, sums + column);
    }

    void add(size_t column, size_t end, double* sums) const
    {
        for (; column + 4 <= end; column += 4)
            add<4>(column, sums);
        for (; column < end; ++column)
            add<1>(column, sums);
    }
};

Weighted_Rows weighted_rows(const Matrix_Storage& matrix, size_t strip, const double* factors, size_t factor_step)
{
    const size_t first = matrix.first_row(strip);
    return {matrix.row(first), matrix.columns(), matrix.end_row(strip) - first, factors, factor_step};
}

void mirror_upper_triangle(Matrix_Storage& matrix)
{
    auto view = Written_View_Of(matrix);
    for (Eigen::Index y = 1; y < view.rows(); ++y)
        view.row(y).head(y) = view.col(y).head(y).transpose();
}

}

Matrix_Storage::Owner Copy_Of(const Matrix_Storage& matrix)
{
    auto copy = Matrix_Storage::make(matrix.columns(), matrix.rows());
    if (!copy)
        return nullptr;
    for (size_t strip = 0; strip < matrix.strips(); ++strip) {
        const auto [first, end] = matrix.span(strip);
        for (size_t y = matrix.first_row(strip); first < end && y < matrix.end_row(strip); ++y)
            std::copy(matrix.row(y) + first, matrix.row(y) + end, copy->written_row(y) + first);
    }
    return copy;
}

Matrix_Storage::Owner Transpose_Of(const Matrix_Storage& matrix)
{
    auto transpose = Matrix_Storage::make(matrix.rows(), matrix.columns());
    if (transpose)
        Written_View_Of(*transpose) = View_Of(matrix).transpose();
    return transpose;
}

Matrix_Storage::Owner Product(const Matrix_Storage& left, const Matrix_Storage& right)
{
    if (left.columns() != right.rows())
        return nullptr;
    auto product = Matrix_Storage::make(right.columns(), left.rows());
    try {
        if (product)
            Written_View_Of(*product).noalias() = View_Of(left) * View_Of(right);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return product;
}

Matrix_Storage::Owner Square_Of(Matrix_Storage& matrix)
{
    auto square = Matrix_Storage::make(matrix.columns(), matrix.columns());
    if (!square)
        return nullptr;
    matrix.tighten();
    for (size_t strip = 0; strip < matrix.strips(); ++strip) {
        const auto span = matrix.span(strip);
        for (size_t y = span.first; y < span.end; ++y)
            weighted_rows(matrix, strip, matrix.row(matrix.first_row(strip)) + y, matrix.columns())
                .add(y, span.end, square->written_row(y));
    }
    mirror_upper_triangle(*square);
    return square;
}

void Multiply(const Matrix_Storage& matrix, const double* vector, double* product)
{
    Eigen::Map<Eigen::VectorXd> result(product, static_cast<Eigen::Index>(matrix.rows()));
    result.noalias() =
        View_Of(matrix) * Eigen::Map<const Eigen::VectorXd>(vector, static_cast<Eigen::Index>(matrix.columns()));
}

void Multiply_Transpose(const Matrix_Storage& matrix, const double* vector, double* product)
{
    for (size_t strip = 0; strip < matrix.strips(); ++strip) {
        const auto span = matrix.span(strip);
        weighted_rows(matrix, strip, vector + matrix.first_row(strip), 1).add(span.first, span.end, product);
    }
}

}
