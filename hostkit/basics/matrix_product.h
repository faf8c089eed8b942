#pragma once

#include "hostkit/basics/matrix_storage.h"

/// What is computed from elements. All of them have been settled; results are null when there is no memory.
namespace hostkit {

Matrix_Storage::Owner Copy_Of(const Matrix_Storage& matrix);
Matrix_Storage::Owner Transpose_Of(const Matrix_Storage& matrix);

/// Null too when the sizes do not fit.
Matrix_Storage::Owner Product(const Matrix_Storage& left, const Matrix_Storage& right);

/// The product of the transpose and the matrix itself. Every element is the sum of its terms in the order of the rows,
/// and zeros cost nothing.
Matrix_Storage::Owner Square_Of(Matrix_Storage& matrix);

/// Writes the product with a vector of `matrix.columns()` elements.
void Multiply(const Matrix_Storage& matrix, const double* vector, double* product);

/// Adds the product of the transpose and a vector of `matrix.rows()` elements.
void Multiply_Transpose(const Matrix_Storage& matrix, const double* vector, double* product);

}
