#include "hostkit/structures/children.h"
#include "hostkit/structures/strato_record.h"

namespace {

Strato* child_at(const Strato* object, int index)
{
    const auto& children = object->record()->children;
    return index >= 0 && index < static_cast<int>(children.size()) ? children[static_cast<size_t>(index)] : nullptr;
}

int child_count(const Strato* object)
{
    return static_cast<int>(object->record()->children.size());
}

}

// The same for the three trees, whose objects never meet.
#define VETRA_CHILDREN(Class)                                                                                          \
    int Class::Child_Get_Nb() const                                                                                    \
    {                                                                                                                  \
        return child_count(this);                                                                                      \
    }                                                                                                                  \
    Class* Class::Child_Get_Pt(int index) const                                                                        \
    {                                                                                                                  \
        return static_cast<Class*>(child_at(this, index));                                                             \
    }                                                                                                                  \
    Class* Class::Parent_Get_Pt() const                                                                                \
    {                                                                                                                  \
        return static_cast<Class*>(record()->parent);                                                                  \
    }                                                                                                                  \
    int Class::Child_Get_Id(const Class* child) const                                                                  \
    {                                                                                                                  \
        return hostkit::Child_Place(this, child);                                                                      \
    }                                                                                                                  \
    void Class::Parent_Set_Pt(Class* parent)                                                                           \
    {                                                                                                                  \
        hostkit::Parent_Name(this, parent);                                                                            \
    }                                                                                                                  \
    int Class::Child_Add(Class* child)                                                                                 \
    {                                                                                                                  \
        return hostkit::Child_Put(this, child_count(this), child);                                                     \
    }                                                                                                                  \
    int Class::Child_Insert(int position, Class* child)                                                                \
    {                                                                                                                  \
        return hostkit::Child_Put(this, position, child);                                                              \
    }                                                                                                                  \
    Class* Class::Child_Remove(int position)                                                                           \
    {                                                                                                                  \
        return static_cast<Class*>(hostkit::Child_Take(this, position));                                               \
    }                                                                                                                  \
    Class* Class::Child_Remove(Class* child)                                                                           \
    {                                                                                                                  \
        return Child_Remove(Child_Get_Id(child));                                                                      \
    }

VETRA_CHILDREN(Strato_1D)
VETRA_CHILDREN(Strato_2D)
VETRA_CHILDREN(Strato_3D)
#undef VETRA_CHILDREN
