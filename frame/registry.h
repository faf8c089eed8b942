#pragma once

#include "host/structures.h"

#include <cstdint>

/// A typed view of the host's variables. A number that is missing counts as 0: the registry does not tell 0 from
/// "no such variable".
namespace frame {

inline void* value_of(const char* name)
{
    return Fct_Variable_Value(name, nullptr, nullptr, nullptr);
}

/// A count or index.
inline unsigned short number(const char* name)
{
    return static_cast<unsigned short>(reinterpret_cast<uintptr_t>(value_of(name)));
}

/// An interface dimension, pixels.
inline short dimension(const char* name)
{
    return static_cast<short>(reinterpret_cast<intptr_t>(value_of(name)));
}

/// An array; null when it is missing.
template <class T>
T* array(const char* name)
{
    return static_cast<T*>(value_of(name));
}

/// The address of a variable's storage, looked up until it is there and then kept for good. Meant for function-local
/// statics; for an array, T is the type of the array pointer.
template <class T>
class Kept_Address {
public:
    enum class Missing : char { stays_missing, is_made };

    constexpr explicit Kept_Address(const char* name, Missing missing = Missing::stays_missing)
        : name_(name), missing_(missing)
    {
    }

    T* get()
    {
        if (!address_)
            address_ = static_cast<T*>(Fct_Variable_Get(name_, nullptr, nullptr, nullptr, static_cast<char>(missing_)));
        return address_;
    }

    /// The variable's value, or T() when there is no such variable.
    T value() { return get() ? *address_ : T(); }

private:
    const char* name_;
    Missing missing_;
    T* address_ = nullptr;
};

}
