#pragma once

/// Values of the widget state word that panels write and hosts compare: whole words, not sums of bits to be varied.
namespace frame::state {

constexpr unsigned active = 0;
constexpr unsigned greyed = 35; ///< shown greyed, takes no event
constexpr unsigned panel_box = 66;
constexpr unsigned graph_selection_box = 80;
constexpr unsigned graph_plot_box = 83;
constexpr unsigned being_edited = 3; ///< set on a row button while an editor lies over it
constexpr unsigned row_button = 0x400000;
constexpr unsigned row_button_marked = 0x500000; ///< a row button that shows its pressed mark
constexpr unsigned shows_marks = 0x100000;       ///< of an area: its row buttons show their pressed marks
constexpr unsigned slider = 0x8000004;
constexpr unsigned hidden_slider = 7;
constexpr unsigned vertical_scroll = 0x0C000004; ///< a scroll bar with its minimum at the top
constexpr unsigned idle_vertical_scroll = 0x0C000027;
constexpr unsigned horizontal_scroll = 0x08000000;
constexpr unsigned idle_horizontal_scroll = 0x08000023;
constexpr unsigned label = 8448; ///< its text at the left, vertically centred
constexpr unsigned vertical_button = 4;
constexpr unsigned zoom_valuator = 0x0A000004; ///< vertical, with its number
constexpr unsigned select_list = 8448;         ///< its text at the left, vertically centred
constexpr unsigned greyed_select_list = 8483;  ///< the same, greyed
constexpr unsigned editor = 0x80000000;
constexpr unsigned closed_editor = 0x80000003;

}
