#pragma once

#include "host/structures.h"

#include <string>
#include <string_view>
#include <vector>

/// The registry of shared variables, as a host's program sees it.
///
/// A variable is a cell of eight bytes with a type. Cells are made once per name and never move or go away, because
/// panels keep their addresses for the life of the process; only the values in them change.
namespace hostkit {

enum class Variable_Type : int {
    Unsigned_8 = 1,
    Signed_16,
    Unsigned_16,
    Signed_32,
    Float,
    String,      ///< char*, UTF-8
    Array,       ///< a pointer to the first element
    Object,      ///< a pointer to an object of the tree
    Four_Floats, ///< four floats in the cell itself
};

/// Defines a variable, or finds the one of that name.
/// @return the address of its storage
/// @throws std::logic_error when it exists with another type
STRUCTURES_API void* Variable_Define(std::string_view name, Variable_Type type);

/// Says how many elements an array variable has (1 for all others), for whoever asks with `count`.
STRUCTURES_API void Variable_Count_Set(std::string_view name, unsigned short count);

/// The names that are defined, sorted.
STRUCTURES_API std::vector<std::string> Variable_Names();

/// Sets every value to 0 or null and then the standard variables to their usual values. Cells stay where they are.
/// Whoever put arrays into variables keeps them and frees them.
STRUCTURES_API void Registry_Reset();

/// The type of the cell that holds a T.
template <class T>
constexpr Variable_Type Variable_Type_Of();
template <>
constexpr Variable_Type Variable_Type_Of<unsigned char>()
{
    return Variable_Type::Unsigned_8;
}
template <>
constexpr Variable_Type Variable_Type_Of<short>()
{
    return Variable_Type::Signed_16;
}
template <>
constexpr Variable_Type Variable_Type_Of<unsigned short>()
{
    return Variable_Type::Unsigned_16;
}
template <>
constexpr Variable_Type Variable_Type_Of<int>()
{
    return Variable_Type::Signed_32;
}
template <>
constexpr Variable_Type Variable_Type_Of<float>()
{
    return Variable_Type::Float;
}

/// A scalar variable by name, defined when it does not exist: `Variable<unsigned short>("$TAG_NB") = 16`.
/// @throws std::logic_error when it exists with another type
template <class T>
T& Variable(std::string_view name)
{
    return *static_cast<T*>(Variable_Define(name, Variable_Type_Of<T>()));
}

/// An array variable: `Array_Variable<unsigned short>("$TAG_RED") = red`.
template <class T>
T*& Array_Variable(std::string_view name)
{
    return *static_cast<T**>(Variable_Define(name, Variable_Type::Array));
}

/// A string variable; the cell does not own the text.
inline char*& String_Variable(std::string_view name)
{
    return *static_cast<char**>(Variable_Define(name, Variable_Type::String));
}

/// An object variable.
template <class T>
T*& Object_Variable(std::string_view name)
{
    return *static_cast<T**>(Variable_Define(name, Variable_Type::Object));
}

}
