#include "hostkit/basics/matrix_inverse.h"

#include <atomic>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

// The large storage that was given back last. Whoever solves by steps makes matrices of one size again and again;
// clearing the few elements that were written costs far less than fresh pages.
std::atomic<Matrix_Storage*> spare;

bool is_worth_keeping(size_t elements)
{
    constexpr size_t least = 128 * 1024 / sizeof(double);
    constexpr size_t most = 32 * 1024 * 1024 / sizeof(double);
    return elements >= least && elements <= most;
}

}

Matrix_Storage::Owner Matrix_Storage::make(size_t columns, size_t rows)
{
    if (columns != 0 && rows > (SIZE_MAX - padding) / columns)
        return nullptr;
    if (is_worth_keeping(columns * rows)) {
        Owner storage(spare.exchange(nullptr));
        if (storage && storage->reset(columns, rows))
            return storage;
    }
    return make_fresh(columns, rows);
}

// Memory comes from calloc: pages of rows that are never written are never touched.
Matrix_Storage::Owner Matrix_Storage::make_fresh(size_t columns, size_t rows)
{
    Owner storage(new (std::nothrow) Matrix_Storage);
    if (!storage)
        return nullptr;
    storage->columns_ = columns;
    storage->rows_ = rows;
    storage->capacity_ = columns * rows;
    storage->strip_capacity_ = storage->strips();
    storage->elements_ = static_cast<double*>(std::calloc(storage->capacity_ + padding, sizeof(double)));
    storage->spans_ = static_cast<Span*>(std::calloc(storage->strip_capacity_ + 1, sizeof(Span)));
    return storage->elements_ && storage->spans_ ? std::move(storage) : nullptr;
}

bool Matrix_Storage::reset(size_t columns, size_t rows)
{
    if (columns * rows > capacity_ || strips_of(rows) > strip_capacity_)
        return false;
    clear();
    columns_ = columns;
    rows_ = rows;
    return true;
}

void Matrix_Storage::clear()
{
    for (size_t strip = 0; strip < strips(); ++strip) {
        const Span span = std::exchange(spans_[strip], {});
        for (size_t y = first_row(strip); y < end_row(strip); ++y)
            std::fill_n(elements_ + y * columns_ + span.first, span.end - span.first, 0.0);
    }
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
    if (--owners_ > 0)
        return;
    inverse_.reset();
    if (elements_ && spans_ && is_worth_keeping(capacity_))
        keep();
    else
        delete this;
}

// Of two that are given back the larger one is kept.
void Matrix_Storage::keep()
{
    owners_ = 1;
    Matrix_Storage* larger = this;
    Matrix_Storage* smaller = spare.exchange(nullptr);
    if (smaller && smaller->capacity_ > larger->capacity_)
        std::swap(larger, smaller);
    delete smaller;
    delete spare.exchange(larger);
}

bool Matrix_Storage::settle()
{
    if (inverse_ && !inverse_->write(*this))
        return false;
    inverse_.reset();
    return true;
}

double* Matrix_Storage::written_rows()
{
    std::fill_n(spans_, strips(), Span{0, static_cast<unsigned>(columns_)});
    return elements_;
}

// Looks at 8 columns at a time: every one that holds something has a bit left in its union.
Matrix_Storage::Span Matrix_Storage::tightened(size_t strip) const
{
    constexpr unsigned width = 8;
    const Span span = spans_[strip];
    Span tight{span.end, span.first};
    for (unsigned column = span.first, count = 0; column < span.end; column += count) {
        std::uint64_t bits[width] = {};
        for (size_t y = first_row(strip); y < end_row(strip); ++y) {
            const double* part = row(y) + column;
            for (unsigned i = 0; i < width; ++i)
                bits[i] |= std::bit_cast<std::uint64_t>(part[i]);
        }
        count = std::min(width, span.end - column);
        for (unsigned i = 0; i < count; ++i) {
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
