#include "host/gadgets.h"

#include <cstring>
#include <new>
#include <utility>

Caption::Caption(const Caption& other)
{
    set(other.text_);
}

Caption::Caption(Caption&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}

Caption& Caption::operator=(const Caption& other)
{
    if (this != &other)
        set(other.text_);
    return *this;
}

Caption& Caption::operator=(Caption&& other) noexcept
{
    std::swap(text_, other.text_);
    return *this;
}

Caption::~Caption()
{
    delete[] text_;
}

// The new text may be a part of the old one.
void Caption::set(const char* text)
{
    char* copy = nullptr;
    if (text && *text) {
        const size_t size = std::strlen(text) + 1;
        copy = new (std::nothrow) char[size];
        if (copy)
            std::memcpy(copy, text, size);
    }
    delete[] std::exchange(text_, copy);
}
