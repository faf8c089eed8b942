#pragma once

#include "host/gadgets.h"

/// One row of a flattened tree of the host's objects. Rows are in pre-order: the `nb_desc` rows after one are what is
/// below it.
struct DB_List {
    /// Bits of `state`.
    enum State : unsigned short {
        expanded = 1,
        leaf = 2,          ///< the object has no children
        last_sibling = 4,  ///< set by the roll-up
        inaccessible = 16, ///< drawn with the no-access lead, never written to the host
    };

    /// Bits of `select`. Without both of the first two: not selected.
    enum Select : unsigned short {
        partly_selected = 1, ///< some of the leaves below are selected
        selected = 2,
        locked = 16, ///< drawn with the no-access lead, the name in dark red
    };

    static constexpr unsigned short hidden_line = 65535;

    unsigned short state;
    unsigned short select;
    unsigned short line;     ///< where the row is shown, from 0 at the top; hidden_line inside a collapsed row
    unsigned short code;     ///< of a file: its modality
    unsigned short level;    ///< depth; 0 for the root
    unsigned short nb_child; ///< children of the object
    unsigned short index;    ///< of a frame: its index in its file
    unsigned short nb_desc;  ///< rows below this one
    unsigned short parent;   ///< its row; 0 for the root
    void* object;            ///< the host's, not owned: a Strato_1D, Strato_2D, Strato_3D or File_Record; may be null
    COLORREF color;          ///< of the title; 0 for yellow
    char* title;             ///< UTF-8 from strdup, or null
    char* name;              ///< UTF-8 from strdup, or null; drawn in bold behind the title
    const char* icon;        ///< file name, not owned

    // Further texts on the same line, aligned in columns over all rows. Arrays are from calloc and owned.
    unsigned short nb_item;
    unsigned* item_x;     ///< where they begin, pixels from the list's left edge; written by the painter
    COLORREF* item_color; ///< of their titles; 0 for yellow
    char** item_title;    ///< each from strdup, or null
    char** item_name;     ///< each from strdup, or null
};
