#include "hostkit/structures/registry.h"

#include "hostkit/structures/standard_variables.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <unordered_map>

namespace {

using hostkit::Variable_Type;

struct Cell {
    alignas(8) unsigned char storage[16] = {};
    Variable_Type type = Variable_Type::Unsigned_16;
    unsigned short count = 1;

    template <class T>
    T as() const
    {
        T value;
        std::memcpy(&value, storage, sizeof value);
        return value;
    }
};

struct Text_Hash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// Reached for the first time from a panel's static cache as well as from the host, and used until the process ends:
// never destroyed.
class Registry {
public:
    static Registry& get()
    {
        static Registry& registry = *new Registry;
        return registry;
    }

    Cell* find(std::string_view name)
    {
        const auto found = cells_.find(name);
        return found == cells_.end() ? nullptr : found->second.get();
    }

    Cell& define(std::string_view name, Variable_Type type)
    {
        Cell* cell = find(name);
        if (!cell) {
            cell = cells_.emplace(std::string(name), std::make_unique<Cell>()).first->second.get();
            cell->type = type;
        }
        return *cell;
    }

    void clear_values()
    {
        for (auto& [name, cell] : cells_)
            std::memset(cell->storage, 0, sizeof cell->storage);
    }

    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        result.reserve(cells_.size());
        for (const auto& [name, cell] : cells_)
            result.push_back(name);
        std::sort(result.begin(), result.end());
        return result;
    }

private:
    Registry()
    {
        for (const auto& variable : hostkit::Standard_Variables())
            define(variable.name, variable.type);
    }

    std::unordered_map<std::string, std::unique_ptr<Cell>, Text_Hash, std::equal_to<>> cells_;
};

void* widened(intptr_t number)
{
    return reinterpret_cast<void*>(number);
}

void* value_of(Cell& cell)
{
    switch (cell.type) {
    case Variable_Type::Unsigned_8:
        return widened(cell.as<unsigned char>());
    case Variable_Type::Signed_16:
        return widened(cell.as<short>());
    case Variable_Type::Unsigned_16:
        return widened(cell.as<unsigned short>());
    case Variable_Type::Signed_32:
        return widened(cell.as<int>());
    case Variable_Type::Float:
        return widened(cell.as<int>()); // the number's bits
    case Variable_Type::Four_Floats:
        return cell.storage;
    case Variable_Type::String:
    case Variable_Type::Array:
    case Variable_Type::Object:
        return cell.as<void*>();
    }
    return nullptr;
}

void describe(const Cell& cell, int* type, unsigned short* count, int (**callback)(void))
{
    if (type)
        *type = static_cast<int>(cell.type);
    if (count)
        *count = cell.count;
    if (callback)
        *callback = nullptr;
}

}

void* Fct_Variable_Value(const char* name, int* type, unsigned short* count, int (**callback)(void))
{
    Cell* cell = name ? Registry::get().find(name) : nullptr;
    if (!cell)
        return nullptr;
    describe(*cell, type, count, callback);
    return value_of(*cell);
}

void* Fct_Variable_Get(const char* name, int* type, unsigned short* count, int (**callback)(void), char flag)
{
    if (!name)
        return nullptr;
    Cell* cell = Registry::get().find(name);
    if (!cell && flag == 1)
        cell = &Registry::get().define(name, Variable_Type::Signed_32);
    if (!cell)
        return nullptr;
    describe(*cell, type, count, callback);
    return cell->storage;
}

namespace hostkit {

void* Variable_Define(std::string_view name, Variable_Type type)
{
    Cell& cell = Registry::get().define(name, type);
    if (cell.type != type)
        throw std::logic_error("the variable " + std::string(name) + " exists with another type");
    return cell.storage;
}

void Variable_Count_Set(std::string_view name, unsigned short count)
{
    if (Cell* cell = Registry::get().find(name))
        cell->count = count;
}

std::vector<std::string> Variable_Names()
{
    return Registry::get().names();
}

void Registry_Reset()
{
    Registry::get().clear_values();
    Standard_Values_Set();
}

}
