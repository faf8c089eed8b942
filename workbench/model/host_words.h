#pragma once

/// The change-flag words that the workbench sends and follows.
namespace workbench::word {

constexpr unsigned long long selection_2D = 0x102; // both bits must be set
constexpr unsigned long long current_frame = 1ull << 21;
constexpr unsigned long long current_tag = 1ull << 22;
constexpr unsigned long long brushes = 1ull << 23;
constexpr unsigned long long image_data = 1ull << 24;
constexpr unsigned long long histogram_look = 1ull << 31;
constexpr unsigned long long tag_colours = 1ull << 38;
constexpr unsigned long long colour_component = 1ull << 39;
constexpr unsigned long long tag_locks = 1ull << 44;
constexpr unsigned long long tag_names = 1ull << 47;

}
