#pragma once

#include "host/basics.h"
#include "host/structures.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Objects, windows and variables that are what a test says, and remember what is asked of them: a small library in
/// place of the host kit's.
namespace own_tree {

struct Description {
    std::string id; ///< how calls name the object
    const char* title = nullptr;
    const char* name = nullptr;
    unsigned class_a = 0;
    unsigned magic = 0;
    const char* icon = nullptr;
    bool selected = false;
};

/// Forgets objects, variables' values and calls.
STRUCTURES_API void reset();

/// Gives a variable a value: a number or an address.
STRUCTURES_API void define(const char* name, const void* value);
STRUCTURES_API void define(const char* name, unsigned number);

/// An object as the last child of `parent`, or without one as the root of its tree. Texts are copied.
STRUCTURES_API Strato_1D* add_1d(Strato_1D* parent, const Description& description);
STRUCTURES_API Strato_2D* add_2d(Strato_2D* parent, const Description& description);
STRUCTURES_API Strato_3D* add_3d(Strato_3D* parent, const Description& description);

/// A null pointer as the last child.
STRUCTURES_API void add_null(Strato* parent);

STRUCTURES_API bool is_selected(const Strato* object);
STRUCTURES_API void set_selected(Strato* object, bool selected);
STRUCTURES_API void set_frame(Strato_2D* object, const Frame_Record* frame);

/// A window that calls name "window", as `"$WINDOW_CUR"`.
STRUCTURES_API Strato_Window* show_window(unsigned class_a = 0);

/// What iterators deliver.
STRUCTURES_API void set_delivered(std::vector<Strato_2D*> objects);
STRUCTURES_API void fail_iterators(bool fail);
STRUCTURES_API int open_iterators();

/// The calls since the last time: "flag_on ID EXTENT", "flag_off ID EXTENT", "change_child WINDOW OBJECT OBJECT",
/// "update WORD ARGUMENT ARGUMENT", "redraw MASK ARGUMENT ARGUMENT", "move ID PARENT null", "begin OWNER", "end".
/// Addresses are the objects' names, null or small numbers.
STRUCTURES_API std::vector<std::string> take_calls();

/// Called at once with each word that is sent.
STRUCTURES_API void on_update(std::function<void(unsigned long long)> listener);

}
