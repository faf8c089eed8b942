#include "tests/db/own_tree.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

struct Strato::Record {
    std::string id;
    std::optional<std::string> title, name;
    unsigned class_a = 0;
    unsigned magic = 0;
    const char* icon = nullptr;
    bool selected = false;
    Strato* parent = nullptr;
    std::vector<Strato*> children;
    const Frame_Record* frame = nullptr;
};

namespace {

template <class Object>
struct Made final : Object {
    explicit Made(Strato::Record* record) : Object(record) {}
    ~Made() override { delete this->record(); }
};

std::map<std::string, void*> variables;
std::vector<std::shared_ptr<Strato>> made;
std::map<const void*, std::string> names;
std::vector<std::string> calls;
std::vector<Strato_2D*> delivered;
bool iterators_fail = false;
std::map<unsigned short, size_t> iterators; // what each delivers next
std::function<void(unsigned long long)> listener;

std::string named(const void* argument)
{
    if (!argument)
        return "null";
    const auto found = names.find(argument);
    return found == names.end() ? std::to_string(reinterpret_cast<uintptr_t>(argument)) : found->second;
}

template <class Object>
Object* make(Object* parent, const own_tree::Description& description, const char* root)
{
    const auto text = [](const char* given) { return given ? std::optional<std::string>(given) : std::nullopt; };
    auto* const record = new Strato::Record{description.id, text(description.title), text(description.name),
        description.class_a, description.magic, description.icon, description.selected, parent, {}, nullptr};
    const auto object = std::make_shared<Made<Object>>(record);
    made.push_back(object);
    Object* const result = object.get();
    names[static_cast<const void*>(result)] = description.id;
    if (parent)
        parent->record()->children.push_back(result);
    else if (root)
        variables[root] = result;
    return result;
}

template <class Object>
Object* child(const Strato& object, int index)
{
    return static_cast<Object*>(object.record()->children[static_cast<size_t>(index)]);
}

constexpr unsigned long long selection = 512;

void set(const Strato* object, unsigned char extent, bool selected)
{
    constexpr unsigned char of_object = 16, of_descendants = 32;
    if (!object)
        return;
    if (extent & of_object)
        object->record()->selected = selected;
    for (const Strato* below : object->record()->children) {
        if (extent & of_descendants)
            set(below, of_object | of_descendants, selected);
    }
}

void note(const char* what, const Strato& object, unsigned char extent, void* word, unsigned long long mask)
{
    std::string call = std::string(what) + ' ' + object.record()->id + ' ' + std::to_string(extent);
    if (named(word) != "4" || mask != selection)
        call += " of " + named(word) + " mask " + std::to_string(mask);
    calls.push_back(std::move(call));
}

int count_of(const Strato& object)
{
    return static_cast<int>(object.record()->children.size());
}

template <class Object>
Object* parent(const Strato& object)
{
    return static_cast<Object*>(object.record()->parent);
}

int place_of(const Strato& object, const Strato* child)
{
    const auto& children = object.record()->children;
    const auto found = std::find(children.begin(), children.end(), child);
    return found == children.end() ? -1 : static_cast<int>(found - children.begin());
}

int insert(Strato& object, int place, Strato* child)
{
    auto& children = object.record()->children;
    children.insert(children.begin() + place, child);
    child->record()->parent = &object;
    return 1;
}

// As the last one it is moved; what is inserted takes the place of another.
int add(Strato& object, Strato* child)
{
    calls.push_back("move " + child->record()->id + ' ' + object.record()->id + " null");
    return insert(object, count_of(object), child);
}

template <class Object>
Object* remove(Strato& object, int place)
{
    auto& children = object.record()->children;
    Strato* const child = children[static_cast<size_t>(place)];
    children.erase(children.begin() + place);
    if (child->record()->parent == &object)
        child->record()->parent = nullptr;
    return static_cast<Object*>(child);
}

}

namespace own_tree {

void reset()
{
    for (auto& [name, value] : variables)
        value = nullptr;
    names.clear();
    made.clear();
    calls.clear();
    delivered.clear();
    listener = nullptr;
    iterators_fail = false;
    iterators.clear();
}

void define(const char* name, const void* value)
{
    variables[name] = const_cast<void*>(value);
}

void define(const char* name, unsigned number)
{
    variables[name] = reinterpret_cast<void*>(uintptr_t{number});
}

Strato_1D* add_1d(Strato_1D* parent, const Description& description)
{
    return make(parent, description, "$DB_1D_ROOT_PT");
}

Strato_2D* add_2d(Strato_2D* parent, const Description& description)
{
    return make(parent, description, "$DB_2D_ROOT_PT");
}

Strato_3D* add_3d(Strato_3D* parent, const Description& description)
{
    return make(parent, description, "$DB_3D_ROOT_PT");
}

void add_null(Strato* parent)
{
    parent->record()->children.push_back(nullptr);
}

bool is_selected(const Strato* object)
{
    return object->record()->selected;
}

void set_selected(Strato* object, bool selected)
{
    object->record()->selected = selected;
}

void set_frame(Strato_2D* object, const Frame_Record* frame)
{
    object->record()->frame = frame;
}

Strato_Window* show_window(unsigned class_a)
{
    auto* const window = make<Strato_Window>(nullptr, {.id = "window", .class_a = class_a}, nullptr);
    define("$WINDOW_CUR", window);
    return window;
}

void set_delivered(std::vector<Strato_2D*> objects)
{
    delivered = std::move(objects);
}

void fail_iterators(bool fail)
{
    iterators_fail = fail;
}

int open_iterators()
{
    return static_cast<int>(iterators.size());
}

std::vector<std::string> take_calls()
{
    return std::exchange(calls, {});
}

void on_update(std::function<void(unsigned long long)> to)
{
    listener = std::move(to);
}

}

// --------------------------------------------------------------------------------------------------- variables

void* Fct_Variable_Value(const char* name, int*, unsigned short*, int (**)(void))
{
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second;
}

void* Fct_Variable_Get(const char* name, int*, unsigned short*, int (**)(void), char)
{
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : &found->second;
}

void Fct_Update(unsigned long long flags, void* one, void* other, Region_2D*)
{
    calls.push_back("update " + std::to_string(flags) + ' ' + named(one) + ' ' + named(other));
    if (listener)
        listener(flags);
}

void Fct_Redraw(unsigned long long mask, void* one, void* other, Region_2D*)
{
    calls.push_back("redraw " + std::to_string(mask) + ' ' + named(one) + ' ' + named(other));
}

void Fct_Change_Child(Strato_Window* window, Strato_2D* shown, Strato_2D* before)
{
    calls.push_back("change_child " + named(window) + ' ' + named(shown) + ' ' + named(before));
}

// ------------------------------------------------------------------------------------------------------ objects

Strato::Strato(Record* record) : record_(record) {}
Strato::~Strato() = default;

unsigned Strato::Class_Magic_Get() const
{
    return record_->magic;
}

unsigned Strato::Class_A_Get() const
{
    return record_->class_a;
}

unsigned Strato::Class_B_Get() const
{
    return 0;
}

const char* Strato::Icon_Get() const
{
    return record_->icon;
}

const char* Strato::Name_Get() const
{
    return record_->name ? record_->name->c_str() : nullptr;
}

const char* Strato::Title_Get() const
{
    return record_->title ? record_->title->c_str() : nullptr;
}

int Strato::Flag_Get_Bit(unsigned char flag, void* word, unsigned long long mask) const
{
    if (flag != 16 || named(word) != "4" || mask != 512)
        note("flag_get", *this, flag, word, mask);
    return record_->selected;
}

void Strato::Flag_Set_On(unsigned char flag, void* word, unsigned long long mask)
{
    note("flag_on", *this, flag, word, mask);
    if (mask == selection)
        set(this, flag, true);
}

void Strato::Flag_Set_Off(unsigned char flag, void* word, unsigned long long mask)
{
    note("flag_off", *this, flag, word, mask);
    if (mask == selection)
        set(this, flag, false);
}

// ---------------------------------------------------------------------------------------------------- 1D

int Strato_1D::Child_Get_Nb() const
{
    return count_of(*this);
}

Strato_1D* Strato_1D::Child_Get_Pt(int index) const
{
    return child<Strato_1D>(*this, index);
}

Strato_1D* Strato_1D::Parent_Get_Pt() const
{
    return parent<Strato_1D>(*this);
}

int Strato_1D::Child_Get_Id(const Strato_1D* child) const
{
    return place_of(*this, child);
}

void Strato_1D::Parent_Set_Pt(Strato_1D* parent)
{
    record()->parent = parent;
}

int Strato_1D::Child_Add(Strato_1D* child)
{
    return add(*this, child);
}

int Strato_1D::Child_Insert(int position, Strato_1D* child)
{
    return insert(*this, position, child);
}

Strato_1D* Strato_1D::Child_Remove(int position)
{
    return remove<Strato_1D>(*this, position);
}

Strato_1D* Strato_1D::Child_Remove(Strato_1D* child)
{
    return remove<Strato_1D>(*this, place_of(*this, child));
}

// ---------------------------------------------------------------------------------------------------- 2D

int Strato_2D::Child_Get_Nb() const
{
    return count_of(*this);
}

Strato_2D* Strato_2D::Child_Get_Pt(int index) const
{
    return child<Strato_2D>(*this, index);
}

Strato_2D* Strato_2D::Parent_Get_Pt() const
{
    return parent<Strato_2D>(*this);
}

int Strato_2D::Child_Get_Id(const Strato_2D* child) const
{
    return place_of(*this, child);
}

void Strato_2D::Parent_Set_Pt(Strato_2D* parent)
{
    record()->parent = parent;
}

int Strato_2D::Child_Add(Strato_2D* child)
{
    return add(*this, child);
}

int Strato_2D::Child_Insert(int position, Strato_2D* child)
{
    return insert(*this, position, child);
}

Strato_2D* Strato_2D::Child_Remove(int position)
{
    return remove<Strato_2D>(*this, position);
}

Strato_2D* Strato_2D::Child_Remove(Strato_2D* child)
{
    return remove<Strato_2D>(*this, place_of(*this, child));
}

// ---------------------------------------------------------------------------------------------------- 3D

int Strato_3D::Child_Get_Nb() const
{
    return count_of(*this);
}

Strato_3D* Strato_3D::Child_Get_Pt(int index) const
{
    return child<Strato_3D>(*this, index);
}

Strato_3D* Strato_3D::Parent_Get_Pt() const
{
    return parent<Strato_3D>(*this);
}

int Strato_3D::Child_Get_Id(const Strato_3D* child) const
{
    return place_of(*this, child);
}

void Strato_3D::Parent_Set_Pt(Strato_3D* parent)
{
    record()->parent = parent;
}

int Strato_3D::Child_Add(Strato_3D* child)
{
    return add(*this, child);
}

int Strato_3D::Child_Insert(int position, Strato_3D* child)
{
    return insert(*this, position, child);
}

Strato_3D* Strato_3D::Child_Remove(int position)
{
    return remove<Strato_3D>(*this, position);
}

Strato_3D* Strato_3D::Child_Remove(Strato_3D* child)
{
    return remove<Strato_3D>(*this, place_of(*this, child));
}

const Frame_Record* Strato_2D::Frame_Record_Get() const
{
    return record()->frame;
}

int Strato_2D::Child_Get_Cur(Strato_Window*) const
{
    return -1;
}

// ---------------------------------------------------------------------------------------------------- iterators

unsigned short Iterator_Init(const char* owner, Strato*)
{
    if (iterators_fail)
        return 0;
    calls.push_back(std::string("begin ") + owner);
    unsigned short id = 1;
    while (iterators.contains(id))
        ++id;
    iterators[id] = 0;
    return id;
}

Strato_2D* Iterator_Class_2D(unsigned short id, unsigned class_mask, void* scope, unsigned char selected_only)
{
    if (class_mask != 0x2FFF || named(scope) != "4" || selected_only)
        calls.push_back("delivers something else");
    size_t& next = iterators.at(id);
    return next < delivered.size() ? delivered[next++] : nullptr;
}

void Iterator_End(unsigned short id)
{
    calls.push_back("end");
    iterators.erase(id);
}

// A host without histograms, pens, touches and files to choose.

const Histo_Record* Strato_2D_Frame::Histogram_Get()
{
    return nullptr;
}

int Strato_2D_Frame::Value_Get(const Vector_4&)
{
    return no_value;
}

float Fct_GLI_2_Float(Strato_2D_Frame*, int)
{
    return 0;
}
