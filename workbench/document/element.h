#pragma once

#include <cstddef>

namespace document {

/// What files store, before it becomes a PixelType.
enum class Element { u8, i8, u16, i16, u32, i32, u64, i64, f32, f64 };

constexpr std::size_t bytes_of(Element element)
{
    switch (element) {
    case Element::u8:
    case Element::i8:
        return 1;
    case Element::u16:
    case Element::i16:
        return 2;
    case Element::u32:
    case Element::i32:
    case Element::f32:
        return 4;
    default:
        return 8;
    }
}

}
