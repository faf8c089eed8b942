#pragma once

/// Changes of the host's trees of objects. Objects are of a dimension's class (Strato_1D, Strato_2D or Strato_3D).
/// Whoever changes something marks it as modified, with what it lies in, and tells the host: 0x401, 0x402 or 0x404, and
/// to redraw everything.
namespace db {

/// Whether an object can be put under another one: not under itself or what is below it, and not where it is the only
/// child already.
bool can_move(int dimension, const void* source, const void* target);

/// Puts objects, one after the other, behind the children of another one. Those that cannot be put there stay.
void move_under(int dimension, void* const* sources, int count, void* target);

/// Takes an object out of its tree: its children take its place. It is not destroyed.
/// @return whether it was done: a root stays
bool take_out(int dimension, void* object);

void rename(int dimension, void* object, const char* name);

}
