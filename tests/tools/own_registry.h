#pragma once

#include "host/structures.h"

#include <vector>

/// A registry that starts without any variable: a small library in place of the host kit's, in which all cells are
/// there from the start and stay.
namespace own_registry {

STRUCTURES_API void define_number(const char* name, unsigned short number);
STRUCTURES_API void define_dimension(const char* name, short pixels);
STRUCTURES_API void define_array(const char* name, void* first);

/// The words sent with Fct_Update since the last call.
STRUCTURES_API std::vector<unsigned long long> take_sent();

/// Whether anybody asked for a variable to be created.
STRUCTURES_API bool asked_to_create();

}
