#pragma once

#include "host/structures.h"

#include <string>

/// Building and changing the tree of objects: what the program does and panels only see.
namespace hostkit {

struct Object_Description {
    std::string name;
    std::string title;          ///< the class of the object, e.g. "Series"
    unsigned class_a = 0;       ///< Strato::Class_A_Get
    unsigned class_b = 0;       ///< Strato::Class_B_Get
    unsigned magic = 0;         ///< Strato::Class_Magic_Get
    const char* icon = nullptr; ///< Strato::Icon_Get; static text
};

constexpr unsigned frame_magic = 0xAABA;  ///< of a 2D frame that can be shown
constexpr unsigned signal_class = 0x1FFF; ///< a selectable leaf of the 1D tree
constexpr unsigned frame_class = 0x2FFF;  ///< of the 2D tree
constexpr unsigned object_class = 0x3FFF; ///< of the 3D tree

constexpr unsigned long long series_tree_changed = 0x402;
constexpr unsigned long long current_window_changed = 0x100000;

/// The root of the 2D objects, `"$DB_2D_ROOT_PT"`; made when it is first asked for.
STRUCTURES_API Strato_2D* Root_2D();

/// An object of the 2D tree as the last child of `parent`. The tree owns it. The caller sends the change (0x402) once
/// everything is in place.
STRUCTURES_API Strato_2D* Object_2D_Add(Strato_2D* parent, const Object_Description& description);
STRUCTURES_API Strato_2D_Frame* Frame_Add(Strato_2D* series, const Object_Description& description);

/// The roots of the 1D and 3D objects, `"$DB_1D_ROOT_PT"` and `"$DB_3D_ROOT_PT"`, and objects in them; as for 2D.
STRUCTURES_API Strato_1D* Root_1D();
STRUCTURES_API Strato_3D* Root_3D();
STRUCTURES_API Strato_1D* Object_1D_Add(Strato_1D* parent, const Object_Description& description);
STRUCTURES_API Strato_3D* Object_3D_Add(Strato_3D* parent, const Object_Description& description);

/// Takes an object with all its descendants out of the tree, lets no variable name any of them, tells the panels, and
/// deletes them once nobody can be using them.
STRUCTURES_API void Object_2D_Remove(Strato_2D* object);

/// Deletes an object that panels took out of its tree (Child_Remove) and nobody put back, with all that is below it:
/// once nobody can be using them, and no variable names any of them. Until then it can be put back (Child_Insert); what
/// is never deleted goes with Tree_Reset. @return false when the object is in a tree
STRUCTURES_API bool Object_Delete(Strato* object);

/// The position of an object among the children that it is one of; 0 for the root.
STRUCTURES_API int Child_Index(const Strato* object);

/// An image window, numbered in the order of making; counted in `"$WINDOW_NB"`. The first becomes `"$WINDOW_CUR"`.
/// @throws std::length_error when there are 16 already
STRUCTURES_API Strato_Window* Window_Add(const std::string& name);

/// Makes a window `"$WINDOW_CUR"` and tells the panels (bit 20). While `"$INTERFACE_LOCK_FOCUS"` is not 0 the current
/// window stays. @return whether `window` is current now
STRUCTURES_API bool Window_Make_Current(Strato_Window* window);

/// The frame that a window shows, or null.
STRUCTURES_API Strato_2D* Window_Frame(const Strato_Window* window);

/// Removes all objects and windows and tells nobody: a fresh host.
STRUCTURES_API void Tree_Reset();

}
