#include "host/basics.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace {

// At least one element, so that null only ever means that there is no memory.
double* zeros(unsigned count)
{
    return static_cast<double*>(std::calloc(std::max(count, 1u), sizeof(double)));
}

}

Vector_N::Vector_N(unsigned count, unsigned char) : elements_(zeros(count)), size_(elements_ ? count : 0) {}

Vector_N::Vector_N(const Vector_N& other) : Vector_N(other.size_, sizeof(double))
{
    std::copy_n(other.elements_, size_, elements_);
}

Vector_N::Vector_N(Vector_N&& other) noexcept
    : elements_(std::exchange(other.elements_, nullptr)), size_(std::exchange(other.size_, 0))
{
}

Vector_N& Vector_N::operator=(const Vector_N& other)
{
    return *this = Vector_N(other);
}

Vector_N& Vector_N::operator=(Vector_N&& other) noexcept
{
    std::swap(elements_, other.elements_);
    std::swap(size_, other.size_);
    return *this;
}

Vector_N::~Vector_N()
{
    std::free(elements_);
}

Vector_N& Vector_N::operator+=(const Vector_N& other)
{
    assert(size_ == other.size_);
    const unsigned common = std::min(size_, other.size_);
    for (unsigned i = 0; i < common; ++i)
        elements_[i] += other.elements_[i];
    return *this;
}
