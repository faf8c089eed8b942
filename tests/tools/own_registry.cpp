#include "tests/tools/own_registry.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <utility>

namespace {

enum class Kind { number, dimension, array, floats };

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
    default:
        return cell.as<void*>();
    }
}

void* Fct_Variable_Get(const char* name, int*, unsigned short*, int (**)(void), char flag)
{
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

// A host without objects.

void Fct_Change_Child(Strato_Window*, Strato_2D*, Strato_2D*) {}

unsigned Strato::Class_B_Get() const
{
    return 0;
}

int Strato_2D::Child_Get_Nb() const
{
    return 0;
}

Strato_2D* Strato_2D::Child_Get_Pt(int) const
{
    return nullptr;
}

Strato_2D* Strato_2D::Parent_Get_Pt() const
{
    return nullptr;
}

int Strato_2D::Child_Get_Cur(Strato_Window*) const
{
    return -1;
}
