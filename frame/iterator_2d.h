#pragma once

#include "host/structures.h"

namespace frame {

/// Goes through the host's 2D objects that can be shown; ends the host's iterator when it ends itself.
class Iterator_2D {
public:
    enum class Which : unsigned char { all, selected };

    /// @param scope the window that asks, or a scope code
    Iterator_2D(const char* owner, void* scope, Which which)
        : id_(Iterator_Init(owner, nullptr)), scope_(scope), which_(which)
    {
    }
    ~Iterator_2D()
    {
        if (id_)
            Iterator_End(id_);
    }
    Iterator_2D(const Iterator_2D&) = delete;
    Iterator_2D& operator=(const Iterator_2D&) = delete;

    bool opened() const { return id_ != 0; }

    /// The next object; null at the end, or when the iterator could not be opened.
    Strato_2D* next()
    {
        constexpr unsigned frames = 0x2FFF;
        return id_ ? Iterator_Class_2D(id_, frames, scope_, static_cast<unsigned char>(which_)) : nullptr;
    }

    /// Leaves the host's iterator open.
    void abandon() { id_ = 0; }

private:
    unsigned short id_;
    void* scope_;
    Which which_;
};

}
