#include "tests/tools/own_registry.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <utility>

namespace {

enum class Kind { number, dimension, byte, array, floats };

struct Cell {
    alignas(8) unsigned char bytes[16] = {};
    Kind kind = Kind::number;

    template <class T>
    T as() const
    {
        T value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }
};

std::map<std::string, Cell> cells;
std::vector<unsigned long long> sent;
std::set<std::string> to_create;
bool type_asked = false;
int shown_index = -1;
std::function<void(const own_registry::Changed_Child&)> change_child_listener;

template <class T>
void define(const char* name, Kind kind, T value)
{
    Cell& cell = cells[name];
    cell.kind = kind;
    std::memcpy(cell.bytes, &value, sizeof value);
}

}

namespace own_registry {

void define_number(const char* name, unsigned short number)
{
    define(name, Kind::number, number);
}

void define_dimension(const char* name, short pixels)
{
    define(name, Kind::dimension, pixels);
}

void define_byte(const char* name, unsigned char byte)
{
    define(name, Kind::byte, byte);
}

void define_array(const char* name, void* first)
{
    define(name, Kind::array, first);
}

void define_floats(const char* name, const std::array<float, 4>& values)
{
    define(name, Kind::floats, values);
}

unsigned short number(const char* name)
{
    return cells.at(name).as<unsigned short>();
}

std::vector<unsigned long long> take_sent()
{
    return std::exchange(sent, {});
}

std::vector<std::string> asked_to_create()
{
    return {to_create.begin(), to_create.end()};
}

bool asked_for_type()
{
    return type_asked;
}

}

void* Fct_Variable_Value(const char* name, int*, unsigned short*, int (**)(void))
{
    const auto found = cells.find(name);
    if (found == cells.end())
        return nullptr;
    const Cell& cell = found->second;
    switch (cell.kind) {
    case Kind::number:
        return reinterpret_cast<void*>(intptr_t{cell.as<unsigned short>()});
    case Kind::dimension:
        return reinterpret_cast<void*>(intptr_t{cell.as<short>()});
    case Kind::byte:
        return reinterpret_cast<void*>(intptr_t{cell.as<unsigned char>()});
    default:
        return cell.as<void*>();
    }
}

void* Fct_Variable_Get(const char* name, int* type, unsigned short*, int (**)(void), char flag)
{
    type_asked = type != nullptr;
    if (flag != 0)
        to_create.insert(name);
    const auto found = cells.find(name);
    return found == cells.end() ? nullptr : found->second.bytes;
}

void Fct_Update(unsigned long long flags, void*, void*, Region_2D*)
{
    sent.push_back(flags);
}

void Fct_Redraw(unsigned long long, void*, void*, Region_2D*) {}

void Fct_Change_Child(Strato_Window* window, Strato_2D* shown, Strato_2D* before)
{
    if (change_child_listener)
        change_child_listener({window, shown, before});
}

// ------------------------------------------------------------------------------------------------------ objects

struct Strato::Record {
    unsigned number = 0;
    Strato_2D* parent = nullptr;
    std::vector<Strato_2D*> children;
};

Strato::Strato(Record* record) : record_(record) {}
Strato::~Strato() = default;

unsigned Strato::Class_B_Get() const
{
    return record_->number;
}

int Strato_2D::Child_Get_Nb() const
{
    return static_cast<int>(record()->children.size());
}

Strato_2D* Strato_2D::Child_Get_Pt(int index) const
{
    return index >= 0 && index < Child_Get_Nb() ? record()->children[static_cast<size_t>(index)] : nullptr;
}

Strato_2D* Strato_2D::Parent_Get_Pt() const
{
    return record()->parent;
}

int Strato_2D::Child_Get_Cur(Strato_Window*) const
{
    return shown_index;
}

// What only the database list asks: nothing is there.

unsigned Strato::Class_A_Get() const
{
    return 0;
}

unsigned Strato::Class_Magic_Get() const
{
    return 0;
}

const char* Strato::Icon_Get() const
{
    return nullptr;
}

const char* Strato::Name_Get() const
{
    return "";
}

const char* Strato::Title_Get() const
{
    return "";
}

int Strato::Flag_Get_Bit(unsigned char, void*, unsigned long long) const
{
    return 0;
}

void Strato::Flag_Set_On(unsigned char, void*, unsigned long long) {}
void Strato::Flag_Set_Off(unsigned char, void*, unsigned long long) {}

const Frame_Record* Strato_2D::Frame_Record_Get() const
{
    return nullptr;
}

int Strato_1D::Child_Get_Nb() const
{
    return 0;
}

Strato_1D* Strato_1D::Child_Get_Pt(int) const
{
    return nullptr;
}

int Strato_3D::Child_Get_Nb() const
{
    return 0;
}

Strato_3D* Strato_3D::Child_Get_Pt(int) const
{
    return nullptr;
}

namespace {

struct Made_Object final : Strato_2D {
    explicit Made_Object(Record* record) : Strato_2D(record) {}
    ~Made_Object() = default;
};

struct Made_Window final : Strato_Window {
    explicit Made_Window(Record* record) : Strato_Window(record) {}
    ~Made_Window() = default;
};

// Never given back, as nobody can know who still names an object.
template <class Object>
Object* make(unsigned number)
{
    static auto& kept = *new std::vector<Object*>;
    auto* const record = new Strato::Record;
    record->number = number;
    kept.push_back(new Object(record));
    return kept.back();
}

}

namespace own_registry {

Strato_2D* make_series(int frames)
{
    Strato_2D* const series = make<Made_Object>(0);
    for (int i = 0; i < frames; ++i) {
        series->record()->children.push_back(make<Made_Object>(0));
        series->record()->children.back()->record()->parent = series;
    }
    return series;
}

void cut_series(Strato_2D* series, int frames)
{
    series->record()->children.resize(static_cast<size_t>(frames));
}

Strato_Window* make_window(unsigned number)
{
    return make<Made_Window>(number);
}

void set_shown_index(int index)
{
    shown_index = index;
}

void on_change_child(std::function<void(const Changed_Child&)> listener)
{
    change_child_listener = std::move(listener);
}

}
