#include "host/gadgets.h"

#include <algorithm>
#include <new>
#include <utility>

Captions::Captions(const Captions& other)
{
    if (resize(other.count_))
        std::copy_n(other.texts_, count_, texts_);
}

Captions::Captions(Captions&& other) noexcept
{
    *this = std::move(other);
}

Captions& Captions::operator=(const Captions& other)
{
    Captions copy(other);
    return *this = std::move(copy);
}

Captions& Captions::operator=(Captions&& other) noexcept
{
    std::swap(texts_, other.texts_);
    std::swap(count_, other.count_);
    return *this;
}

Captions::~Captions()
{
    delete[] texts_;
}

bool Captions::resize(int count)
{
    const int wanted = std::max(count, 0);
    if (wanted == count_)
        return true;
    Caption* texts = wanted == 0 ? nullptr : new (std::nothrow) Caption[static_cast<size_t>(wanted)];
    if (wanted != 0 && !texts)
        return false;
    std::move(texts_, texts_ + std::min(wanted, count_), texts);
    delete[] std::exchange(texts_, texts);
    count_ = wanted;
    return true;
}

void Captions::set(int index, const char* text)
{
    if (index >= 0 && index < count_)
        texts_[index].set(text);
}

const char* Captions::get(int index) const
{
    return index >= 0 && index < count_ ? texts_[index].get() : "";
}
