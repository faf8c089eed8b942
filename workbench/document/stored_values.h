#pragma once

#include "workbench/document/element.h"

#include <cstddef>
#include <span>

namespace document {

/// The grey values, stored * slope + intercept, as 32-bit floating-point numbers.
void to_grey(std::span<const std::byte> stored, Element type, double slope, double intercept, std::span<float> target);

}
