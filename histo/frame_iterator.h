#pragma once

#include "host/structures.h"

namespace histo {

/// Goes through the frames of a window; ends the host's iterator when it ends itself.
class Frame_Iterator {
public:
    enum class Which : unsigned char { all, selected };

    Frame_Iterator(const char* owner, void* window, Which which)
        : id_(Iterator_Init(owner, nullptr)), window_(window), which_(which)
    {
    }
    ~Frame_Iterator()
    {
        if (id_)
            Iterator_End(id_);
    }
    Frame_Iterator(const Frame_Iterator&) = delete;
    Frame_Iterator& operator=(const Frame_Iterator&) = delete;

    bool opened() const { return id_ != 0; }

    /// The next frame; null at the end, or when the iterator could not be opened.
    Strato_2D_Frame* next()
    {
        constexpr unsigned frames = 0x2FFF;
        if (!id_)
            return nullptr;
        // The mask lets only frames through.
        return static_cast<Strato_2D_Frame*>(
            Iterator_Class_2D(id_, frames, window_, static_cast<unsigned char>(which_)));
    }

    /// Leaves the host's iterator open.
    void abandon() { id_ = 0; }

private:
    unsigned short id_;
    void* window_;
    Which which_;
};

}
