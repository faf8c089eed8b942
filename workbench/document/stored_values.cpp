#include "workbench/document/stored_values.h"

#include <cmath>
#include <cstdint>
#include <limits>
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

template <class Stored>
bool recover(double value, double slope, double intercept, Stored& stored)
{
    const double exact = std::round((value - intercept) / slope);
    if (!(exact >= double(std::numeric_limits<Stored>::lowest()) &&
            exact <= double(std::numeric_limits<Stored>::max())))
        return false;
    stored = Stored(exact);
    // Rounding in the scaling is far below this part of a step.
    return std::abs(exact * slope + intercept - value) <= 0.01 * std::abs(slope);
}

template <class Scaled, class Stored>
bool recover_all(const Scaled* scaled, Stored* stored, std::size_t count, double slope, double intercept)
{
    for (std::size_t i = 0; i < count; ++i)
        if (!recover(double(scaled[i]), slope, intercept, stored[i]))
            return false;
    return true;
}

}

bool recover_stored(std::span<const std::byte> scaled, Element scaled_type, std::span<std::byte> stored,
    Element stored_type, double slope, double intercept)
{
    return with_element(scaled_type, [&](auto from) {
        using Scaled = typename decltype(from)::type;
        return with_element(stored_type, [&](auto to) {
            using Stored = typename decltype(to)::type;
            if constexpr (std::is_integral_v<Stored> && sizeof(Stored) <= 4)
                return recover_all(reinterpret_cast<const Scaled*>(scaled.data()),
                    reinterpret_cast<Stored*>(stored.data()), scaled.size() / sizeof(Scaled), slope, intercept);
            else
                return false;
        });
    });
}

void mirror_stored(std::span<std::byte> stored, Element stored_type, double mirror)
{
    with_element(stored_type, [&](auto type) {
        using Stored = typename decltype(type)::type;
        auto* const values = reinterpret_cast<Stored*>(stored.data());
        for (std::size_t i = 0; i < stored.size() / sizeof(Stored); ++i)
            values[i] = Stored(mirror - double(values[i]));
    });
}

void to_float(std::span<const std::byte> scaled, Element scaled_type, std::span<float> target)
{
    with_element(scaled_type, [&](auto from) {
        using Scaled = typename decltype(from)::type;
        const auto* const values = reinterpret_cast<const Scaled*>(scaled.data());
        for (std::size_t i = 0; i < target.size(); ++i)
            target[i] = float(values[i]);
    });
}

}
