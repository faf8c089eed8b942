#include "hostkit/structures/tree.h"

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/children.h"
#include "hostkit/structures/iterators.h"
#include "hostkit/structures/open_file.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/windows.h"

#include <algorithm>
#include <memory>
#include <utility>

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
    record->icon = description.icon;
    record->destroy = [](Strato* object) { delete static_cast<Made<Class>*>(object); };
    auto* object = new Made<Class>(record.get());
    record.release();
    return object;
}

template <class Class>
Class* add(Strato* parent, const hostkit::Object_Description& description)
{
    auto* object = make<Class>(description);
    hostkit::Child_Append(parent, object);
    return object;
}

template <class Class>
Class* root(const char* variable, const hostkit::Object_Description& description)
{
    auto*& root = hostkit::Object_Variable<Class>(variable);
    if (!root)
        root = make<Class>(description);
    return root;
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

template <class Class>
void remove_all(const char* variable)
{
    if (Class* root = std::exchange(hostkit::Object_Variable<Class>(variable), nullptr))
        destroy(root);
}

}

namespace hostkit {

Strato_1D* Root_1D()
{
    return root<Strato_1D>("$DB_1D_ROOT_PT", {.name = "Signals", .title = "Root", .class_a = 0x1001});
}

Strato_2D* Root_2D()
{
    return root<Strato_2D>("$DB_2D_ROOT_PT", {.name = "Images", .title = "Root", .class_a = 0x2001});
}

Strato_3D* Root_3D()
{
    return root<Strato_3D>("$DB_3D_ROOT_PT", {.name = "Objects", .title = "Root", .class_a = 0x3001});
}

Strato_1D* Object_1D_Add(Strato_1D* parent, const Object_Description& description)
{
    return add<Strato_1D>(parent, description);
}

Strato_2D* Object_2D_Add(Strato_2D* parent, const Object_Description& description)
{
    return add<Strato_2D>(parent, description);
}

Strato_3D* Object_3D_Add(Strato_3D* parent, const Object_Description& description)
{
    return add<Strato_3D>(parent, description);
}

Strato_2D_Frame* Frame_Add(Strato_2D* series, const Object_Description& description)
{
    return add<Strato_2D_Frame>(series, description);
}

void Object_2D_Remove(Strato_2D* object)
{
    Strato* const holder = object ? object->record()->holder : nullptr;
    if (!holder || !Child_Take(holder, Child_Place(holder, object)))
        return;
    const Panel_Call until_told;
    Fct_Update(series_tree_changed, nullptr, nullptr, nullptr);
    Object_Delete(object);
}

bool Object_Delete(Strato* object)
{
    if (!Taken_Out_Release(object))
        return false;
    Windows_Forget(object);
    Iterators_End_All();
    After_Delivery([object] { destroy(object); });
    return true;
}

int Child_Index(const Strato* object)
{
    const Strato* const holder = object->record()->holder;
    return holder ? Child_Place(holder, object) : 0;
}

void Tree_Reset()
{
    Windows_Reset();
    Iterators_End_All();
    Files_Reset();
    remove_all<Strato_1D>("$DB_1D_ROOT_PT");
    remove_all<Strato_2D>("$DB_2D_ROOT_PT");
    remove_all<Strato_3D>("$DB_3D_ROOT_PT");
    while (Strato* object = Taken_Out_Any()) {
        Taken_Out_Release(object);
        destroy(object);
    }
}

}
