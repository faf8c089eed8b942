#pragma once

#include <cstdarg>
#include <string>

namespace hostkit {

/// What printf makes of a format and its arguments, however long, except that wide texts (`%ls`) become UTF-8 in every
/// locale; a precision counts the bytes of whole characters.
/// @throws std::bad_alloc
std::string Formatted(const char* format, va_list arguments);

}
