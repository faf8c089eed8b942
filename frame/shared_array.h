#pragma once

#include <new>
#include <utility>

namespace frame {

/// A fixed array that copies share; the last owner frees it. Allocation never throws: when memory runs out the array
/// has no elements. For the interface thread only.
template <class T>
class Shared_Array {
public:
    Shared_Array() = default;

    explicit Shared_Array(unsigned size)
    {
        T* items = new (std::nothrow) T[size]();
        if (!items)
            return;
        block_ = new (std::nothrow) Block{items, size, 1};
        if (!block_)
            delete[] items;
    }

    Shared_Array(const Shared_Array& other) : block_(other.block_)
    {
        if (block_)
            ++block_->owners;
    }

    Shared_Array& operator=(const Shared_Array& other)
    {
        Shared_Array copy(other);
        std::swap(block_, copy.block_);
        return *this;
    }

    ~Shared_Array()
    {
        if (block_ && --block_->owners == 0) {
            delete[] block_->items;
            delete block_;
        }
    }

    unsigned size() const { return block_ ? block_->size : 0; }
    T& operator[](unsigned index) { return block_->items[index]; }
    const T& operator[](unsigned index) const { return block_->items[index]; }
    T* begin() { return block_ ? block_->items : nullptr; }
    T* end() { return begin() + size(); }
    const T* begin() const { return block_ ? block_->items : nullptr; }
    const T* end() const { return begin() + size(); }

private:
    struct Block {
        T* items;
        unsigned size;
        unsigned owners;
    };
    Block* block_ = nullptr;
};

}
