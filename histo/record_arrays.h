#pragma once

#include "host/structures.h"

namespace histo {

/// The five arrays of a record, in their order.
constexpr unsigned* Histo_Record::*arrays[] = {
    &Histo_Record::count, &Histo_Record::red, &Histo_Record::green, &Histo_Record::blue, &Histo_Record::max_component};
constexpr int array_count = 5;

/// Frees a record's arrays, which `new` made; the record has no histogram then.
inline void free_arrays(Histo_Record& record)
{
    record.flags = 0;
    for (const auto array : arrays) {
        delete[](record.*array);
        record.*array = nullptr;
    }
}

}
