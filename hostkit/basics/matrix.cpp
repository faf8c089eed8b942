#include "hostkit/basics/matrix_inverse.h"
#include "hostkit/basics/matrix_product.h"

#include "host/basics.h"

#include <utility>

namespace {

constexpr unsigned char element_size = sizeof(double);

// The settled elements as a matrix shows them. Null when there are none, or no memory for them.
Matrix_Storage::Owner elements_of(Matrix_Storage* storage, bool transposed)
{
    if (!storage || !storage->settle())
        return nullptr;
    return transposed ? hostkit::Transpose_Of(*storage) : storage->share();
}

// The same, but nobody else's.
Matrix_Storage::Owner own_elements_of(Matrix_Storage* storage, bool transposed)
{
    const bool shared = storage->is_shared();
    auto elements = elements_of(storage, transposed);
    return elements && shared && !transposed ? hostkit::Copy_Of(*elements) : std::move(elements);
}

bool multiply(Matrix_Storage& matrix, bool transposed, const double* vector, double* product)
{
    if (const auto* inverse = matrix.inverse(); inverse && !transposed)
        return inverse->multiply(vector, product);
    if (!matrix.settle())
        return false;
    (transposed ? hostkit::Multiply_Transpose : hostkit::Multiply)(matrix, vector, product);
    return true;
}

}

Matrix_NxM::Matrix_NxM(unsigned columns, unsigned rows, unsigned char)
    : Matrix_NxM(Matrix_Storage::make(columns, rows).release())
{
}

Matrix_NxM::Matrix_NxM(Matrix_Storage* storage) : storage_(storage) {}

Matrix_NxM::Matrix_NxM(const Matrix_NxM& other)
    : storage_(other.storage_ ? other.storage_->share().release() : nullptr), transposed_(other.transposed_)
{
}

Matrix_NxM::Matrix_NxM(Matrix_NxM&& other) noexcept
    : storage_(std::exchange(other.storage_, nullptr)), transposed_(other.transposed_)
{
}

Matrix_NxM& Matrix_NxM::operator=(const Matrix_NxM& other)
{
    return *this = Matrix_NxM(other);
}

Matrix_NxM& Matrix_NxM::operator=(Matrix_NxM&& other) noexcept
{
    std::swap(storage_, other.storage_);
    std::swap(transposed_, other.transposed_);
    return *this;
}

Matrix_NxM::~Matrix_NxM()
{
    Matrix_Storage::Owner owner(storage_);
}

int Matrix_NxM::Invalid() const
{
    return storage_ ? 0 : 1;
}

double* Matrix_NxM::operator[](int row)
{
    if (storage_ && (transposed_ || storage_->is_shared() || storage_->inverse()))
        *this = Matrix_NxM(own_elements_of(storage_, transposed_).release());
    return storage_ ? storage_->written_row(static_cast<size_t>(row)) : nullptr;
}

Matrix_NxM Matrix_NxM::operator~() const
{
    Matrix_NxM transpose(*this);
    transpose.transposed_ = !transposed_;
    return transpose;
}

Matrix_NxM Matrix_NxM::operator!() const
{
    const auto elements = elements_of(storage_, transposed_);
    return Matrix_NxM(elements ? Matrix_Storage::make(hostkit::Matrix_Inverse::of(*elements)).release() : nullptr);
}

Matrix_NxM operator*(const Matrix_NxM& a, const Matrix_NxM& b)
{
    if (a.storage_ && a.storage_ == b.storage_ && a.transposed_ && !b.transposed_)
        return Matrix_NxM(a.storage_->settle() ? hostkit::Square_Of(*a.storage_).release() : nullptr);
    const auto left = elements_of(a.storage_, a.transposed_);
    const auto right = elements_of(b.storage_, b.transposed_);
    return Matrix_NxM(left && right ? hostkit::Product(*left, *right).release() : nullptr);
}

Vector_N operator*(const Matrix_NxM& a, const Vector_N& b)
{
    const Vector_N nothing(0, element_size);
    if (!a.storage_)
        return nothing;
    const size_t columns = a.transposed_ ? a.storage_->rows() : a.storage_->columns();
    const size_t rows = a.transposed_ ? a.storage_->columns() : a.storage_->rows();
    Vector_N product(static_cast<unsigned>(rows), element_size);
    if (b.Size() != columns || product.Size() != rows)
        return nothing;
    return rows == 0 || multiply(*a.storage_, a.transposed_, &b[0], &product[0]) ? product : nothing;
}
