#include "db/edit_tree.h"

#include "db/dimension.h"
#include "db/selection.h"
#include "frame/change_flags.h"

#include <cstdint>

namespace change = frame::change;

namespace db {

namespace {

template <class Object>
struct Told;
template <>
struct Told<Strato_1D> {
    static constexpr frame::Change_Flags update = change::tree | 1;
    static constexpr unsigned long long redraw = 0x0FFFFFFF;
};
template <>
struct Told<Strato_2D> {
    static constexpr frame::Change_Flags update = change::frame_tree;
    static constexpr unsigned long long redraw = 0x0FFFFFFF;
};
template <>
struct Told<Strato_3D> {
    static constexpr frame::Change_Flags update = change::tree | 4;
    static constexpr unsigned long long redraw = 0x33FFFFFF00000000;
};

template <class Object>
void mark_modified(Object& object)
{
    constexpr uintptr_t storage_word = 8;
    constexpr unsigned long long modified = 0x10000000;
    object.Flag_Set_On(with_ancestors, reinterpret_cast<void*>(storage_word), modified);
}

// Last of all: a host may react at once.
template <class Object>
void tell()
{
    Fct_Update(Told<Object>::update, nullptr, nullptr, nullptr);
    Fct_Redraw(Told<Object>::redraw, nullptr, nullptr, nullptr);
}

template <class Object>
bool can_move(const Object& source, const Object& target)
{
    for (const Object* above = &target; above; above = above->Parent_Get_Pt()) {
        if (above == &source)
            return false;
    }
    const bool is_only_child = target.Child_Get_Nb() == 1 && target.Child_Get_Pt(0) == &source;
    return source.Parent_Get_Pt() && !is_only_child;
}

template <class Object>
void move_under(Object& source, Object& target)
{
    if (!can_move(source, target))
        return;
    Object& parent = *source.Parent_Get_Pt();
    const int place = parent.Child_Get_Id(&source);
    if (!target.Child_Add(parent.Child_Remove(&source))) {
        parent.Child_Insert(place, &source);
        return;
    }
    mark_modified(target);
    tell<Object>();
}

template <class Object>
bool take_out(Object& object)
{
    Object* const parent = object.Parent_Get_Pt();
    if (!parent)
        return false;
    object.Parent_Set_Pt(nullptr);
    const int place = parent->Child_Get_Id(&object);
    for (int k = object.Child_Get_Nb() - 1; k >= 0; --k)
        parent->Child_Insert(place + 1, object.Child_Remove(k));
    mark_modified(*parent);
    parent->Child_Remove(place);
    tell<Object>();
    return true;
}

}

bool can_move(int dimension, const void* source, const void* target)
{
    const auto call = [&]<class Object>() {
        return can_move(*static_cast<const Object*>(source), *static_cast<const Object*>(target));
    };
    return source && target && for_dimension(dimension, call, [] { return false; });
}

void move_under(int dimension, void* const* sources, int count, void* target)
{
    const auto call = [&]<class Object>() {
        for (int i = 0; target && i < count; ++i) {
            if (sources[i])
                move_under(*static_cast<Object*>(sources[i]), *static_cast<Object*>(target));
        }
    };
    for_dimension(dimension, call, [] {});
}

bool take_out(int dimension, void* object)
{
    const auto call = [&]<class Object>() { return take_out(*static_cast<Object*>(object)); };
    return object && for_dimension(dimension, call, [] { return false; });
}

void rename(int dimension, void* object, const char* name)
{
    const auto call = [&]<class Object>() {
        auto& renamed = *static_cast<Object*>(object);
        renamed.Name_Set(name);
        mark_modified(renamed);
        tell<Object>();
    };
    if (object)
        for_dimension(dimension, call, [] {});
}

}
