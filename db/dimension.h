#pragma once

#include "host/structures.h"

namespace db {

/// Calls a template for the class of objects that a dimension has; a function where there is none.
template <class Call, class Otherwise>
auto for_dimension(int dimension, const Call& call, const Otherwise& otherwise)
{
    switch (dimension) {
    case 1:
        return call.template operator()<Strato_1D>();
    case 2:
        return call.template operator()<Strato_2D>();
    case 3:
        return call.template operator()<Strato_3D>();
    default:
        return otherwise();
    }
}

/// What is common to the objects of a row's dimension; null when it has none.
inline Strato* object_of(int dimension, void* object)
{
    const auto call = [&]<class Object>() -> Strato* { return static_cast<Object*>(object); };
    return for_dimension(dimension, call, []() -> Strato* { return nullptr; });
}

}
