#pragma once

#include "db/db_list.h"
#include "host/structures.h"

#include <cstdint>
#include <cstring>

/// The mark of the host's objects that says that they are selected.
namespace db {

/// Which objects a change is for: bits of the host's call.
enum Extent : unsigned char { object_alone = 16, whole_tree = 48, with_ancestors = 80 };

constexpr unsigned long long selected_bit = 512;

/// Which flag word has the mark. Broadcasts of a changed selection carry it, too.
inline void* selection_word()
{
    return reinterpret_cast<void*>(uintptr_t{4});
}

template <class Object>
bool is_selected(const Object& object)
{
    return object.Flag_Get_Bit(object_alone, selection_word(), selected_bit) != 0;
}

template <class Object>
void select(Object& object, Extent extent)
{
    object.Flag_Set_On(extent, selection_word(), selected_bit);
}

template <class Object>
void deselect(Object& object, Extent extent)
{
    object.Flag_Set_Off(extent, selection_word(), selected_bit);
}

/// Whether a title is that of objects which take part in nothing.
inline bool is_left_out(const char* title)
{
    return title && std::strcmp(title, "Cuda_Volume") == 0;
}

/// Gives a row the selection that the host has: nothing else of it stays when it is selected.
inline void take_selection(DB_List& row, bool selected)
{
    if (selected)
        row.select = DB_List::selected;
    else
        row.select &= static_cast<unsigned short>(~DB_List::selected);
}

}
