#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace document {

/// What a pixel is: a whole number, a floating-point number or a colour.
enum class PixelType { u8, i8, u16, i16, u32, i32, f32, f64, rgb };

struct Rgb {
    std::uint8_t red, green, blue;
    bool operator==(const Rgb&) const = default;
};
static_assert(sizeof(Rgb) == 3);

std::size_t bytes_of(PixelType type); ///< of one pixel
const char* name_of(PixelType type);  ///< for messages: "16-bit unsigned"

/// A block of memory for pixels, aligned for each of the types. It is moved, never copied.
class PixelMemory {
public:
    PixelMemory() = default;

    /// Memory for `bytes` bytes, not initialised. Test the result: it is empty when there is not enough.
    static PixelMemory allocate(std::size_t bytes);

    explicit operator bool() const { return block_ != nullptr; }
    std::size_t size() const { return size_; } ///< in bytes
    std::byte* data() { return block_.get(); }
    const std::byte* data() const { return block_.get(); }
    std::span<std::byte> bytes() { return {data(), size_}; }
    std::span<const std::byte> bytes() const { return {data(), size_}; }

private:
    std::unique_ptr<std::byte[]> block_;
    std::size_t size_ = 0;
};

/// The memory that could still be taken without swapping, in bytes; a very large number where that is not known.
std::size_t memory_available();

}
