#pragma once

#include "db/browse_measure.h"
#include "db/browse_view.h"
#include "db/db_list.h"
#include "db/drag.h"
#include "db/rows.h"
#include "frame/export.h"
#include "host/gadgets.h"

/// The panel of the host's objects: a tree of rows that are shown and hidden, and selected by clicks, with Shift or
/// Ctrl, by a rubber band or all at once. What the rows stand for is up to a provider that derives from it.
///
/// In edit mode it shows the tree as a diagram to be rearranged, and a warning in place of the buttons.
///
/// Reads the interface's dimensions and font, `"$WINDOW_CUR"`, `"$WINDOW_NB"`; "Select None" empties the frames of
/// `"$FRAME_CUR"`. Copies share the rows, which go with the last panel that has them.
class VETRA_TOOLS_API Tool_DB_List {
public:
    /// Parts of `mode`.
    enum Mode : int {
        dimension_part = 15, ///< the dimension of the objects: 1, 2 or 3
        edit_mode = 16,
    };

    /// Appends an object and what is below it to the rows, the root first; with a null object the whole tree.
    /// @param nb       how many rows there are
    /// @param list_pt  the rows: null, or made by this
    /// @param level    of the object @param parent its parent's row
    /// @return how many rows were appended; 0 also on a failure
    virtual unsigned short List_Create_From_DB(int* nb, DB_List** list_pt, int level, int parent, void* object) = 0;

    /// Reads which leaves the host has selected.
    virtual void List_Select_From_DB(int nb, DB_List* list) = 0;

    /// Selects those leaves in the host, and tells it.
    virtual void List_Select_To_DB(int nb, DB_List* list) = 0;

    Tool_DB_List();
    Tool_DB_List(const Tool_DB_List&);
    Tool_DB_List& operator=(const Tool_DB_List&);
    ~Tool_DB_List(); // not virtual: a panel is destroyed as what it was made

    /// Lays the panel out. @param area the panel's rectangle, window, colours, font and frame width @return 1
    int Resize(Boxs* area);

    /// The height that `nb_line` rows and the buttons take, pixels.
    int Height(unsigned short nb_line);
    void Draw();

    /// A mouse press or release. @return 1 when it changed the selection, moved a slider or pressed a button, else 0;
    /// in edit mode 1 in the whole diagram
    int Click(int up_down);

    /// The pointer moved: a drag goes on, and scrolls near the edges. @return 1 in a drag, over the list, and when a
    /// slider moves, else 0
    int Motion(int up_down);

    /// Delete in edit mode. @return 0
    int Keyboard(int key);

    /// The wheel, in notches away from the user. @return 1 over the panel, else 0
    int Scroll(int amount);

    /// Follows the host. Bit 9 or 10 makes the rows anew; 20 reads the selection and greys the buttons when the current
    /// window locks its selection; 1 and 8 together read the selection. Before the first Resize nothing is drawn.
    void Update(unsigned long long flags);
    void Leave();

    /// Gives up a panel's rows. @param list the panel itself
    void List_Free(Tool_DB_List* list);

    Boxs box; ///< the whole panel
    Boxs spare;
    Boxs list_box; ///< where rows are
    Boxs top_zone; ///< where a drag scrolls
    Boxs bottom_zone;
    Boxs left_zone;
    Boxs right_zone;
    Labels warning_title;
    Labels warning_message;
    Sliders vertical;
    Sliders horizontal;
    Buttons select_all;
    Buttons select_none;
    int nb = 0;                 ///< rows
    DB_List* list_pt = nullptr; ///< in pre-order; null when there are none
    int mode = 0;
    int last_row = 0; ///< the row that was clicked last, from which Shift selects

    /// Where list coordinates begin, in the window.
    db::List_Point Origin() const;

    /// The pointer in list coordinates.
    db::List_Point Pointer() const;

    /// The row that the pointer is on, in the list or with any part in the diagram; -1 for none.
    int Row_Under_Pointer() const;

    /// How wide the list is, measured when its rows are others. Needs Y_DC.
    int List_Width(const db::Row_Fonts& fonts, int space);

    bool Edits() const { return (mode & edit_mode) != 0; }
    int Dimension() const { return mode & dimension_part; }

private:
    void Lay_Out_Buttons(const Boxs& area, int space, int button);
    void Lay_Out_List(const Boxs& area, int space, int button);
    void Lay_Out_Zones(const Boxs& area);

    void Paint(DB_Lines lines = DB_Lines::anew);
    void Draw_Sliders();
    void Show_Next_Warning();
    void Rebuild();
    void Own_Rows() const;
    void Read_Selection();

    bool Click_Diagram(int up_down);
    bool Click_Rows(int up_down);
    bool Take_Slider(Sliders& slider, int up_down);
    bool Click_Buttons(int up_down);
    void Refresh_After_Edit();
    void Leave_Diagram();
    void Drag_On(int up_down);
    bool Scroll_By_Drag();
    void End_Drag(int up_down);

    mutable db::Row_Share rows_; // holds list_pt once copies may share it
    db::Measured_Rows measured_;
};
