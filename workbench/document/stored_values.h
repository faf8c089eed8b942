#pragma once

#include "workbench/document/element.h"

#include <cstddef>
#include <span>

namespace document {

/// Turns values that were scaled (value = stored * slope + intercept) back into the stored ones. Fails when a value
/// comes from no stored value of that type, which recomputing it tells. `stored` must be of an integer type and hold as
/// many elements as `scaled`.
bool recover_stored(std::span<const std::byte> scaled, Element scaled_type, std::span<std::byte> stored,
    Element stored_type, double slope, double intercept);

/// Replaces each stored value x by mirror - x, which must stay in the range of its type.
void mirror_stored(std::span<std::byte> stored, Element stored_type, double mirror);

/// The scaled values as 32-bit floating-point numbers.
void to_float(std::span<const std::byte> scaled, Element scaled_type, std::span<float> target);

}
