#pragma once

#include "host/structures.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

/// A registry that starts without any variable, and a tree of objects that remembers what is asked of it: a small
/// library in place of the host kit's.
namespace own_registry {

STRUCTURES_API void define_number(const char* name, unsigned short number);
STRUCTURES_API void define_dimension(const char* name, short pixels);
STRUCTURES_API void define_byte(const char* name, unsigned char byte);
STRUCTURES_API void define_array(const char* name, void* first);
STRUCTURES_API void define_floats(const char* name, const std::array<float, 4>& values);

/// The value of a number variable.
STRUCTURES_API unsigned short number(const char* name);

/// The words sent with Fct_Update since the last call.
STRUCTURES_API std::vector<unsigned long long> take_sent();

/// The variables that anybody asked to be created, in alphabetical order. None of them was.
STRUCTURES_API std::vector<std::string> asked_to_create();

/// Whether the last look-up of an address asked for the variable's type.
STRUCTURES_API bool asked_for_type();

/// A series with its frames, and an image window. They live as long as the process.
STRUCTURES_API Strato_2D* make_series(int frames);
STRUCTURES_API void cut_series(Strato_2D* series, int frames); ///< to so many frames
STRUCTURES_API Strato_Window* make_window(unsigned number);

/// What every series answers when it is asked which frame a window shows.
STRUCTURES_API void set_shown_index(int index);

/// Arguments of Fct_Change_Child, which does nothing here but call `listener`.
struct Changed_Child {
    Strato_Window* window;
    Strato_2D* shown;
    Strato_2D* before;
    bool operator==(const Changed_Child&) const = default;
};
STRUCTURES_API void on_change_child(std::function<void(const Changed_Child&)> listener);

}
