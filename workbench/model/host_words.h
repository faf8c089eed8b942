#pragma once

#include "host/structures.h"

/// The change-flag words that the workbench sends and follows. Those of the current tag, of colours, enables and names
/// speak of tags and of markers alike.
namespace workbench::word {

constexpr unsigned long long selection_1D = 0x101; // both bits must be set, of all six
constexpr unsigned long long selection_2D = 0x102;
constexpr unsigned long long selection_3D = 0x104;
constexpr unsigned long long tree_1D = 0x401;
constexpr unsigned long long tree_2D = 0x402;
constexpr unsigned long long tree_3D = 0x404;
constexpr unsigned long long current_window = 1ull << 20;
constexpr unsigned long long current_frame = 1ull << 21;
constexpr unsigned long long current_tag = 1ull << 22;
constexpr unsigned long long brushes = 1ull << 23;
constexpr unsigned long long image_data = 1ull << 24;
constexpr unsigned long long histogram_look = 1ull << 31;
constexpr unsigned long long tag_colours = 1ull << 38;
constexpr unsigned long long colour_component = 1ull << 39;
constexpr unsigned long long tag_locks = 1ull << 44;
constexpr unsigned long long tag_enables = 1ull << 45;
constexpr unsigned long long tag_names = 1ull << 47;

/// Whether a word says so.
constexpr bool says(unsigned long long flags, unsigned long long what)
{
    return (flags & what) == what;
}

/// Sends one to all panels and views.
inline void tell(unsigned long long flags)
{
    Fct_Update(flags, nullptr, nullptr, nullptr);
}

}
