#pragma once

#include "host/structures.h"

#include <array>
#include <string>
#include <vector>

/// A registry that starts without any variable: a small library in place of the host kit's, in which all cells are
/// there from the start and stay.
namespace own_registry {

STRUCTURES_API void define_number(const char* name, unsigned short number);
STRUCTURES_API void define_dimension(const char* name, short pixels);
STRUCTURES_API void define_array(const char* name, void* first);
STRUCTURES_API void define_floats(const char* name, const std::array<float, 4>& values);

/// The value of a number variable.
STRUCTURES_API unsigned short number(const char* name);

/// The words sent with Fct_Update since the last call.
STRUCTURES_API std::vector<unsigned long long> take_sent();

/// The variables that anybody asked to be created, in alphabetical order. None of them was.
STRUCTURES_API std::vector<std::string> asked_to_create();

}
