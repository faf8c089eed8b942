#include "host/gadgets.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr int picture_count = 4;

size_t total_pixels(int width, int height)
{
    return static_cast<size_t>(picture_count) * static_cast<size_t>(width) * static_cast<size_t>(height);
}

}

Pictures::Pictures(const Pictures& other)
{
    if (other.pixels_ && allocate(other.width_, other.height_))
        std::copy_n(other.pixels_, total_pixels(width_, height_), pixels_);
}

Pictures::Pictures(Pictures&& other) noexcept
{
    *this = std::move(other);
}

Pictures& Pictures::operator=(const Pictures& other)
{
    Pictures copy(other);
    return *this = std::move(copy);
}

Pictures& Pictures::operator=(Pictures&& other) noexcept
{
    std::swap(pixels_, other.pixels_);
    std::swap(width_, other.width_);
    std::swap(height_, other.height_);
    return *this;
}

Pictures::~Pictures()
{
    release();
}

bool Pictures::allocate(int width, int height)
{
    release();
    if (width <= 0 || height <= 0)
        return false;
    pixels_ = new (std::nothrow) unsigned[total_pixels(width, height)]();
    if (!pixels_)
        return false;
    width_ = width;
    height_ = height;
    return true;
}

void Pictures::release()
{
    delete[] std::exchange(pixels_, nullptr);
    width_ = 0;
    height_ = 0;
}

unsigned* Pictures::pixels(int picture)
{
    return const_cast<unsigned*>(std::as_const(*this).pixels(picture));
}

const unsigned* Pictures::pixels(int picture) const
{
    if (!pixels_ || picture < 0 || picture >= picture_count)
        return nullptr;
    return pixels_ + static_cast<size_t>(picture) * static_cast<size_t>(width_) * static_cast<size_t>(height_);
}
