#include "hostkit/structures/tree.h"

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/iterators.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/windows.h"

#include <algorithm>
#include <memory>

namespace {

// The panels' classes cannot be made by just anyone; the tree is who makes them.
template <class Class>
struct Made final : Class {
    explicit Made(Strato::Record* record) : Class(record) {}
};

template <class Class>
Class* make(const hostkit::Object_Description& description)
{
    auto record = std::make_unique<Strato::Record>();
    record->name = description.name;
    record->title = description.title;
    record->class_a = description.class_a;
    record->class_b = description.class_b;
    record->magic = description.magic;
    record->destroy = [](Strato* object) { delete static_cast<Made<Class>*>(object); };
    auto* object = new Made<Class>(record.get());
    record.release();
    return object;
}

void append(Strato* parent, Strato* child)
{
    auto& children = parent->record()->children;
    child->record()->parent = parent;
    child->record()->index = static_cast<int>(children.size());
    children.push_back(child);
}

void detach(Strato* child)
{
    auto& siblings = child->record()->parent->record()->children;
    siblings.erase(siblings.begin() + child->record()->index);
    for (size_t i = static_cast<size_t>(child->record()->index); i < siblings.size(); ++i)
        siblings[i]->record()->index = static_cast<int>(i);
    child->record()->parent = nullptr;
}

void destroy(Strato* top)
{
    std::vector<Strato*> waiting{top};
    while (!waiting.empty()) {
        Strato* next = waiting.back();
        waiting.pop_back();
        waiting.insert(waiting.end(), next->record()->children.begin(), next->record()->children.end());
        next->record()->destroy(next);
    }
}

}

namespace hostkit {

Strato_2D* Root_2D()
{
    auto*& root = Object_Variable<Strato_2D>("$DB_2D_ROOT_PT");
    if (!root)
        root = make<Strato_2D>({.name = "Images", .title = "Root", .class_a = 0x2001});
    return root;
}

Strato_2D* Object_2D_Add(Strato_2D* parent, const Object_Description& description)
{
    auto* object = make<Strato_2D>(description);
    append(parent, object);
    return object;
}

Strato_2D_Frame* Frame_Add(Strato_2D* series, const Object_Description& description)
{
    auto* frame = make<Strato_2D_Frame>(description);
    append(series, frame);
    return frame;
}

void Object_2D_Remove(Strato_2D* object)
{
    if (!object || !object->Parent_Get_Pt())
        return;
    Windows_Forget(object);
    Iterators_End_All();
    detach(object);
    const Panel_Call until_told;
    Fct_Update(series_tree_changed, nullptr, nullptr, nullptr);
    After_Delivery([object] { destroy(object); });
}

int Child_Index(const Strato* object)
{
    return object->record()->index;
}

void Tree_Reset()
{
    Windows_Reset();
    Iterators_End_All();
    auto*& root = Object_Variable<Strato_2D>("$DB_2D_ROOT_PT");
    if (root)
        destroy(root);
    root = nullptr;
}

}
