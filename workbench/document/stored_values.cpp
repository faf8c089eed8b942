#include "workbench/document/stored_values.h"

#include <cstdint>
#include <type_traits>

namespace document {

namespace {

template <class Function>
decltype(auto) with_element(Element element, Function&& function)
{
    switch (element) {
    case Element::u8:
        return function(std::type_identity<std::uint8_t>());
    case Element::i8:
        return function(std::type_identity<std::int8_t>());
    case Element::u16:
        return function(std::type_identity<std::uint16_t>());
    case Element::i16:
        return function(std::type_identity<std::int16_t>());
    case Element::u32:
        return function(std::type_identity<std::uint32_t>());
    case Element::i32:
        return function(std::type_identity<std::int32_t>());
    case Element::u64:
        return function(std::type_identity<std::uint64_t>());
    case Element::i64:
        return function(std::type_identity<std::int64_t>());
    case Element::f32:
        return function(std::type_identity<float>());
    case Element::f64:
        break;
    }
    return function(std::type_identity<double>());
}

}

void to_grey(std::span<const std::byte> stored, Element type, double slope, double intercept, std::span<float> target)
{
    with_element(type, [&](auto from) {
        using Stored = typename decltype(from)::type;
        const auto* const values = reinterpret_cast<const Stored*>(stored.data());
        for (std::size_t i = 0; i < target.size(); ++i)
            target[i] = float(double(values[i]) * slope + intercept);
    });
}

}
