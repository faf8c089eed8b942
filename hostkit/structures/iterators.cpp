#include "hostkit/structures/iterators.h"

#include "host/basics.h"
#include "hostkit/structures/children.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/tree.h"

#include <array>
#include <cstdint>

namespace {

constexpr unsigned short most_iterators = 64;
constexpr unsigned char of_itself = 16;
constexpr unsigned long long selected = 512;

struct Iterator {
    std::string owner;     // empty: free
    Strato* top = nullptr; // null: the root
    Strato* at = nullptr;  // null: before the first
    bool ended = false;
};

std::array<Iterator, most_iterators> iterators;

Iterator* find(unsigned short id)
{
    if (id == 0 || id > most_iterators)
        return nullptr;
    Iterator& found = iterators[id - 1u];
    return found.owner.empty() ? nullptr : &found;
}

Strato* root_2D()
{
    return hostkit::Object_Variable<Strato_2D>("$DB_2D_ROOT_PT");
}

// The series that a window shows; null where nothing is restricted: for a scope code, and for a window without a frame.
Strato* series_in(void* scope)
{
    constexpr std::uintptr_t first_window = 4096;
    if (reinterpret_cast<std::uintptr_t>(scope) < first_window)
        return nullptr;
    const Strato_2D* shown = hostkit::Window_Frame(static_cast<Strato_Window*>(scope));
    return shown ? shown->record()->holder : nullptr;
}

// The object after this one, in pre-order, below the top.
Strato* after(Strato* object, const Strato* top)
{
    if (!object->record()->children.empty())
        return object->record()->children.front();
    for (; object && object != top; object = object->record()->holder) {
        const Strato* parent = object->record()->holder;
        if (!parent)
            return nullptr;
        const auto next = static_cast<size_t>(hostkit::Child_Place(parent, object)) + 1;
        if (next < parent->record()->children.size())
            return parent->record()->children[next];
    }
    return nullptr;
}

bool is_wanted(const Strato* object, unsigned class_mask, const Strato* series, bool selected_only)
{
    if (object->Class_A_Get() != class_mask || (series && object->record()->holder != series))
        return false;
    auto* const display_state = reinterpret_cast<void*>(std::uintptr_t{4});
    return !selected_only || object->Flag_Get_Bit(of_itself, display_state, selected);
}

}

unsigned short Iterator_Init(const char* owner, Strato* start)
{
    constexpr int developer_notice = 12;
    const std::string name = owner && *owner ? owner : "?";
    unsigned short free = 0;
    for (unsigned short id = most_iterators; id > 0; --id) {
        Iterator& iterator = iterators[id - 1u];
        if (iterator.owner == name) {
            Error_Fct(hwnd, developer_notice, "the iterator of %s was left open", name.c_str());
            iterator = {};
        }
        if (iterator.owner.empty())
            free = id;
    }
    if (free)
        iterators[free - 1u] = {name, start, nullptr, false};
    return free;
}

Strato_2D* Iterator_Class_2D(unsigned short id, unsigned class_mask, void* scope, unsigned char selected_only)
{
    Iterator* iterator = find(id);
    Strato* const series = series_in(scope);
    while (iterator && !iterator->ended) {
        if (!iterator->top)
            iterator->top = series ? series : root_2D();
        iterator->at = iterator->at ? after(iterator->at, iterator->top) : iterator->top;
        if (!iterator->at)
            iterator->ended = true;
        else if (is_wanted(iterator->at, class_mask, series, selected_only))
            return static_cast<Strato_2D*>(iterator->at);
    }
    return nullptr;
}

void Iterator_End(unsigned short id)
{
    if (Iterator* iterator = find(id))
        *iterator = {};
}

void hostkit::Iterators_End_All()
{
    for (auto& iterator : iterators)
        iterator.ended = true;
}
