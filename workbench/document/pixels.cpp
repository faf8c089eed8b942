#include "workbench/document/pixels.h"

#include <fstream>
#include <limits>
#include <new>
#include <string>

namespace document {

std::size_t bytes_of(PixelType type)
{
    switch (type) {
    case PixelType::u8:
    case PixelType::i8:
        return 1;
    case PixelType::u16:
    case PixelType::i16:
        return 2;
    case PixelType::rgb:
        return 3;
    case PixelType::f64:
        return 8;
    default:
        return 4;
    }
}

const char* name_of(PixelType type)
{
    const char* const names[] = {"8-bit unsigned", "8-bit signed", "16-bit unsigned", "16-bit signed",
        "32-bit unsigned", "32-bit signed", "32-bit floating-point", "64-bit floating-point", "colour"};
    return names[std::size_t(type)];
}

PixelMemory PixelMemory::allocate(std::size_t bytes)
{
    PixelMemory memory;
    memory.block_.reset(new (std::nothrow) std::byte[bytes]);
    memory.size_ = memory.block_ ? bytes : 0;
    return memory;
}

std::size_t memory_available()
{
    std::ifstream file("/proc/meminfo");
    std::string key;
    for (std::size_t kilobytes; file >> key >> kilobytes; file.ignore(64, '\n'))
        if (key == "MemAvailable:")
            return kilobytes * 1024;
    return std::numeric_limits<std::size_t>::max();
}

}
