#include "hostkit/basics/matrix_storage.h"

#include <bit>
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

// Looks at 8 columns at a time: every one that holds something has a bit left in its union.
Matrix_Storage::Span Matrix_Storage::tightened(size_t strip) const
{
    constexpr unsigned width = 8;
    const Span span = spans_[strip];
    Span tight{span.end, span.first};
    for (unsigned column = span.first; column < span.end; column += width) {
        std::uint64_t bits[width] = {};
        for (size_t y = first_row(strip); y < end_row(strip); ++y) {
            const double* part = row(y) + column;
            for (unsigned i = 0; i < width; ++i)
                bits[i] |= std::bit_cast<std::uint64_t>(part[i]);
        }
        for (unsigned i = 0; i < std::min(width, span.end - column); ++i) {
            if (bits[i] != 0) {
                tight.first = std::min(tight.first, column + i);
                tight.end = column + i + 1;
            }
        }
    }
    return tight.first < tight.end ? tight : Span{};
}

void Matrix_Storage::tighten()
{
    for (size_t strip = 0; strip < strips(); ++strip)
        spans_[strip] = tightened(strip);
}
