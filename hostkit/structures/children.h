#pragma once

#include "host/structures.h"

/// Objects among the children of others. Those of a program's trees are either roots, or among the children of one
/// object, or taken out, by whom the tree keeps them. What an object says of its parent may differ.
namespace hostkit {

int Child_Place(const Strato* parent, const Strato* child); ///< -1 when it is none

/// A new object, as the last child.
void Child_Append(Strato* parent, Strato* child);

/// Puts an object that was taken out at a position, which is moved into the range there is. @return false, with nothing
/// changed, when it was not taken out, or the two would be below each other, or memory runs out
bool Child_Put(Strato* parent, int position, Strato* child);

/// Takes a child out. @return null, with nothing changed, when there is none, or memory runs out
Strato* Child_Take(Strato* parent, int position);

/// What the object says of its parent; nothing changes when that would be itself or below it.
void Parent_Name(Strato* object, Strato* parent);

/// Whether `object` is `top` or among its descendants.
bool Is_Or_Is_Below(const Strato* object, const Strato* top);

/// Lets go of an object that was taken out: the caller has it. @return false when it was not taken out
bool Taken_Out_Release(Strato* object);

/// Some object that was taken out; null when there is none.
Strato* Taken_Out_Any();

}
