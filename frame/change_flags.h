#pragma once

/// The change-flag word that hosts give to `Update` and panels send with Fct_Update: each bit says that one kind of
/// shared state changed.
namespace frame {

using Change_Flags = unsigned long long;

namespace change {
constexpr Change_Flags frame_selection = 1ull << 1 | 1ull << 8; ///< both bits: the selection of 2D objects
constexpr Change_Flags frame_tree = 1ull << 1 | 1ull << 10;     ///< both bits: the tree of 2D objects
constexpr Change_Flags selection = 1ull << 8;                   ///< with one of bits 0 to 2: of 1D, 2D or 3D objects
constexpr Change_Flags any_tree = 1ull << 9 | 1ull << 10;       ///< either bit: a tree of objects
constexpr Change_Flags tree = 1ull << 10;                       ///< with one of bits 0 to 2, as for the selection
constexpr Change_Flags pointer = 1ull << 18;                    ///< `"$FRAME_OVR"`, `"$MOUSE_FRM"`
constexpr Change_Flags current_window = 1ull << 20;             ///< `"$WINDOW_CUR"`
constexpr Change_Flags current_frame = 1ull << 21;              ///< the frame that a window shows, `"$FRAME_CUR"`
constexpr Change_Flags current_tag = 1ull << 22;                ///< `"$TAG_CUR"`; for markers `"$MARKER_CUR"`
constexpr Change_Flags brushes = 1ull << 23;                    ///< `"$BRUSH_CUR"`, `"$BRUSH_NB"`, `"$BRUSH_SIZE"`
constexpr Change_Flags image_data = 1ull << 24;                 ///< pixels
constexpr Change_Flags histogram_look = 1ull << 31;             ///< what the histogram shows besides its counts
constexpr Change_Flags tag_colors = 1ull << 38;                 ///< tag or marker colours, and the tag count
constexpr Change_Flags color_component = 1ull << 39;            ///< `"$GLI_COLOR_COMPONENT"`
constexpr Change_Flags tag_locks = 1ull << 44;                  ///< `"$TAG_LOCK"`
constexpr Change_Flags tag_enables = 1ull << 45;                ///< `"$TAG_ENABLE"`, `"$MARKER_ENABLE"`
constexpr Change_Flags tag_selections = 1ull << 46;             ///< `"$TAG_SELECT"`
constexpr Change_Flags labels = 1ull << 47;                     ///< `"$TAG_LABEL"`, `"$MARKER_LABEL"`
constexpr Change_Flags everything = 1ull << 60;                 ///< a full refresh
}

/// Whether any of the bits is set.
constexpr bool has_any(Change_Flags flags, Change_Flags bits)
{
    return (flags & bits) != 0;
}

/// Whether all of the bits are set.
constexpr bool has_all(Change_Flags flags, Change_Flags bits)
{
    return (flags & bits) == bits;
}

}
