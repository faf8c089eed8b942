#include "hostkit/basics/matrix_storage.h"

#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

// Memory comes from calloc: pages of rows that are never written are never touched.
Matrix_Storage::Owner Matrix_Storage::make(size_t columns, size_t rows)
{
    if (columns != 0 && rows > (SIZE_MAX - padding) / columns)
        return nullptr;
    Owner storage(new (std::nothrow) Matrix_Storage);
    if (!storage)
        return nullptr;
    storage->columns_ = columns;
    storage->rows_ = rows;
    storage->elements_ = static_cast<double*>(std::calloc(columns * rows + padding, sizeof(double)));
    storage->spans_ = static_cast<Span*>(std::calloc(storage->strips() + 1, sizeof(Span)));
    return storage->elements_ && storage->spans_ ? std::move(storage) : nullptr;
}

Matrix_Storage::Owner Matrix_Storage::make(std::unique_ptr<hostkit::Matrix_Inverse> inverse)
{
    Owner storage = inverse ? make(inverse->size(), inverse->size()) : nullptr;
    if (storage)
        storage->inverse_ = std::move(inverse);
    return storage;
}

Matrix_Storage::~Matrix_Storage()
{
    std::free(elements_);
    std::free(spans_);
}

Matrix_Storage::Owner Matrix_Storage::share()
{
    ++owners_;
    return Owner(this);
}

void Matrix_Storage::release()
{
    if (--owners_ == 0)
        delete this;
}

bool Matrix_Storage::settle()
{
    if (inverse_ && !inverse_->write(*this))
        return false;
    inverse_.reset();
    return true;
}

bool Matrix_Storage::column_is_zero(size_t strip, unsigned column) const
{
    for (size_t x = first_row(strip); x < end_row(strip); ++x) {
        if (row(x)[column] != 0.0)
            return false;
    }
    return true;
}

void Matrix_Storage::tighten()
{
    for (size_t strip = 0; strip < strips(); ++strip) {
        Span& span = spans_[strip];
        while (span.first < span.end && column_is_zero(strip, span.first))
            ++span.first;
        while (span.first < span.end && column_is_zero(strip, span.end - 1))
            --span.end;
    }
}
