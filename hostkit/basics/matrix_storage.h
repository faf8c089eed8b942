#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>

namespace hostkit {
class Matrix_Inverse;
}

/// The elements that a matrix, its copies and its transposes share: rows of doubles, zero until written.
///
/// The rows are kept in strips of 16. Of each strip it is known outside which columns everything is zero, so that a
/// matrix whose rows have few elements besides zeros, close to each other, is handled in the time that those take.
///
/// The elements of an inverse are computed when a row is first asked for; until then only its factors are there.
class Matrix_Storage {
public:
    static constexpr size_t strip_rows = 16;

    /// How many doubles behind the last row may be read, whatever they are.
    static constexpr size_t padding = 8;

    /// The columns of a strip outside which everything is zero.
    struct Span {
        unsigned first;
        unsigned end;
    };

    struct Release {
        void operator()(Matrix_Storage* storage) const { storage->release(); }
    };

    /// One of the owners.
    using Owner = std::unique_ptr<Matrix_Storage, Release>;

    /// Zeros. Null when there is no memory.
    static Owner make(size_t columns, size_t rows);

    /// The elements of an inverse. Null when there is no memory, or no inverse.
    static Owner make(std::unique_ptr<hostkit::Matrix_Inverse> inverse);

    Owner share();
    bool is_shared() const { return owners_ > 1; }

    size_t columns() const { return columns_; }
    size_t rows() const { return rows_; }

    /// The inverse that this is, as long as its elements have not been computed; else null.
    const hostkit::Matrix_Inverse* inverse() const { return inverse_.get(); }

    /// Computes the elements, if need be. @return whether they are there
    bool settle();

    const double* row(size_t index) const { return elements_ + index * columns_; }

    /// One row, to be written.
    double* written_row(size_t index)
    {
        spans_[index / strip_rows] = {0, static_cast<unsigned>(columns_)};
        return elements_ + index * columns_;
    }

    /// The first row, all of them to be written.
    double* written_rows();

    size_t strips() const { return strips_of(rows_); }
    size_t first_row(size_t strip) const { return strip * strip_rows; }
    size_t end_row(size_t strip) const { return std::min((strip + 1) * strip_rows, rows_); }
    Span span(size_t strip) const { return spans_[strip]; }

    /// Narrows the spans to what is not zero now.
    void tighten();

    Matrix_Storage(const Matrix_Storage&) = delete;
    Matrix_Storage& operator=(const Matrix_Storage&) = delete;

private:
    Matrix_Storage() = default;
    ~Matrix_Storage();

    static size_t strips_of(size_t rows) { return (rows + strip_rows - 1) / strip_rows; }

    static Owner make_fresh(size_t columns, size_t rows);
    bool reset(size_t columns, size_t rows);
    void clear();
    void release();
    void keep();
    Span tightened(size_t strip) const;

    size_t owners_ = 1; // who shares it shares a thread
    size_t columns_ = 0;
    size_t rows_ = 0;
    size_t capacity_ = 0; // in elements
    size_t strip_capacity_ = 0;
    double* elements_ = nullptr;
    Span* spans_ = nullptr;
    std::unique_ptr<hostkit::Matrix_Inverse> inverse_;
};
