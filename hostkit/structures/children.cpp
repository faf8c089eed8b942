#include "hostkit/structures/children.h"

#include "hostkit/structures/strato_record.h"

#include <algorithm>
#include <new>

namespace {

using hostkit::Is_Or_Is_Below;

// In no order: every one knows its place, as children do.
std::vector<Strato*>& taken_out()
{
    static auto& objects = *new std::vector<Strato*>;
    return objects;
}

bool is_taken_out(const Strato* object)
{
    const auto place = static_cast<size_t>(object->record()->index);
    return !object->record()->holder && place < taken_out().size() && taken_out()[place] == object;
}

void number(const std::vector<Strato*>& objects)
{
    for (size_t i = 0; i < objects.size(); ++i)
        objects[i]->record()->index = static_cast<int>(i);
}

// What came and went before a child has moved it. Children that are taken out one after the other are the first.
void find_again(const std::vector<Strato*>& children, const Strato* child)
{
    if (children.front() == child)
        child->record()->index = 0;
    else
        number(children);
}

void release(const Strato* object)
{
    auto& objects = taken_out();
    const auto place = static_cast<size_t>(object->record()->index);
    objects[place] = objects.back();
    objects[place]->record()->index = static_cast<int>(place);
    objects.pop_back();
}

bool says_to_be_below(const Strato* object, const Strato* top)
{
    while (object && object != top)
        object = object->record()->parent;
    return object == top;
}

bool can_be_child(const Strato* parent, const Strato* child)
{
    return child && is_taken_out(child) && !Is_Or_Is_Below(parent, child) && !says_to_be_below(parent, child);
}

template <class Work>
bool has_memory_for(const Work& work)
{
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}

namespace hostkit {

int Child_Place(const Strato* parent, const Strato* child)
{
    if (!child || child->record()->holder != parent)
        return -1;
    const auto& children = parent->record()->children;
    const auto place = static_cast<size_t>(child->record()->index);
    if (place >= children.size() || children[place] != child)
        find_again(children, child);
    return child->record()->index;
}

void Child_Append(Strato* parent, Strato* child)
{
    auto& children = parent->record()->children;
    children.push_back(child);
    child->record()->index = static_cast<int>(children.size()) - 1;
    child->record()->holder = parent;
    child->record()->parent = parent;
}

bool Child_Put(Strato* parent, int position, Strato* child)
{
    if (!can_be_child(parent, child))
        return false;
    auto& children = parent->record()->children;
    const auto place = std::clamp<ptrdiff_t>(position, 0, std::ssize(children));
    if (!has_memory_for([&] { children.insert(children.begin() + place, child); }))
        return false;
    release(child);
    child->record()->index = static_cast<int>(place);
    child->record()->holder = parent;
    child->record()->parent = parent;
    return true;
}

Strato* Child_Take(Strato* parent, int position)
{
    auto& children = parent->record()->children;
    if (position < 0 || position >= std::ssize(children))
        return nullptr;
    Strato* const child = children[static_cast<size_t>(position)];
    if (!has_memory_for([&] { taken_out().push_back(child); }))
        return nullptr;
    children.erase(children.begin() + position);
    child->record()->index = static_cast<int>(taken_out().size()) - 1;
    child->record()->holder = nullptr;
    if (child->record()->parent == parent)
        child->record()->parent = nullptr;
    return child;
}

void Parent_Name(Strato* object, Strato* parent)
{
    if (!parent || !says_to_be_below(parent, object))
        object->record()->parent = parent;
}

bool Is_Or_Is_Below(const Strato* object, const Strato* top)
{
    while (object && object != top)
        object = object->record()->holder;
    return object == top;
}

bool Taken_Out_Release(Strato* object)
{
    if (!object || !is_taken_out(object))
        return false;
    release(object);
    return true;
}

Strato* Taken_Out_Any()
{
    return taken_out().empty() ? nullptr : taken_out().back();
}

}
