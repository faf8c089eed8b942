#include "hostkit/structures/strato_record.h"

#include <vector>

// Flag words of the objects. A word that was never set is 0.

namespace {

constexpr unsigned char of_object = 16;
constexpr unsigned char of_descendants = 32;
constexpr unsigned char of_ancestors = 64;

void set(const Strato* object, const void* word, unsigned long long mask)
{
    object->record()->flags[word] |= mask;
}

void clear(const Strato* object, const void* word, unsigned long long mask)
{
    auto& flags = object->record()->flags;
    if (const auto found = flags.find(word); found != flags.end())
        found->second &= ~mask;
}

// A loop, not a recursion: trees may be deep.
template <class Change>
void for_descendants(const Strato* object, const Change& change)
{
    std::vector<const Strato*> waiting(object->record()->children.begin(), object->record()->children.end());
    while (!waiting.empty()) {
        const Strato* next = waiting.back();
        waiting.pop_back();
        change(next);
        waiting.insert(waiting.end(), next->record()->children.begin(), next->record()->children.end());
    }
}

template <class Change>
void apply(const Strato* object, unsigned char flag, const Change& change)
{
    if (flag & of_object)
        change(object);
    if (flag & of_descendants)
        for_descendants(object, change);
    if (flag & of_ancestors) {
        for (const Strato* up = object->record()->parent; up; up = up->record()->parent)
            change(up);
    }
}

}

int Strato::Flag_Get_Bit(unsigned char flag, void* word, unsigned long long mask) const
{
    if (!(flag & of_object))
        return 0;
    const auto found = record_->flags.find(word);
    return found != record_->flags.end() && (found->second & mask) != 0;
}

void Strato::Flag_Set_On(unsigned char flag, void* word, unsigned long long mask)
{
    apply(this, flag, [&](const Strato* object) { set(object, word, mask); });
}

void Strato::Flag_Set_Off(unsigned char flag, void* word, unsigned long long mask)
{
    apply(this, flag, [&](const Strato* object) { clear(object, word, mask); });
}
