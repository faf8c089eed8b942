#pragma once

#include "frame/shared_array.h"
#include "host/gadgets.h"

/// The grid of named, coloured row buttons that the tag and the marker panel are made of: four buttons to a row, a
/// scroll slider when the rows do not fit, and an editor for the name of a button.
///
/// The panel says how many items there are at every call, because the host may change that at any time; items that have
/// no button are left out. Rectangles in pixels, y growing upward. Before the first Resize nothing is drawn or hit.
namespace tools {

/// What must be done to the buttons on the screen after an update.
namespace redo {
constexpr unsigned adjust = 1;
constexpr unsigned draw = 2;
constexpr unsigned clear = 4;
constexpr unsigned init = 8;
constexpr unsigned slider = 16;
}

/// Where a label is kept, and how a failure to keep it is reported.
struct Label_Store {
    char** labels;        ///< per item, from the C allocator; null for an unnamed one; null when there are none to keep
    int line;             ///< what the report names
    const char* source;   ///< see line
    const char* variable; ///< see line
};

class Button_Grid {
public:
    /// @param capacity the most items that can have buttons; @param source the panel's source name, for reports
    Button_Grid(unsigned capacity, const char* source);

    /// Lays the grid out in the host's rectangle. Captions and colours are the panel's to set, then Init_Buttons on the
    /// area's window.
    void Resize(const Boxs& area, unsigned count);
    void Init_Buttons(HWND window, unsigned count);

    /// The height at which `rows` rows need no slider, pixels.
    static int Height(unsigned short rows);

    void Draw(unsigned count);

    struct Clicked {
        int item;      ///< the one that was chosen, or -1
        bool scrolled; ///< the rows have moved: the panel draws itself
    };

    /// A press or release. A right press on an item but the first opens the editor over it; every other word ends an
    /// edit and goes to the slider and the items.
    /// @param editor_window  what the editor is initialised on; null keeps the window that it has
    Clicked Click(int up_down, unsigned count, HWND editor_window);

    /// Moves the highlights and a slider that is held. @return whether the rows have moved: the panel draws itself
    bool Motion(int up_down, unsigned count);

    /// A key for the open editor. A finished name is stored and shown, and bit 47 is sent. @return 1 when it was used
    int Keyboard(int key, unsigned count, const Label_Store& store);

    /// Scrolls by wheel steps, ending an edit; the panel draws itself afterwards.
    void Scroll(int amount, unsigned count);
    void Leave(unsigned count);

    /// Shows the labels, or the number of an item without one. @return what must be redone
    unsigned Set_Captions(unsigned count, char* const* labels);
    unsigned Set_Current(unsigned count, unsigned current);
    unsigned Set_Pressed(unsigned item, unsigned short pressed);
    unsigned Set_Greyed(unsigned item, bool greyed);
    unsigned Set_Color(unsigned item, Colors color);

    /// Lays slider and rows out again for a changed count; names, colours and states stay. @return what must be redone
    unsigned Lay_Out_Again(unsigned count);

    /// Does to the slider and the visible buttons what an update collected.
    void Apply(unsigned redo, unsigned count);

    /// How many of `count` items have a button.
    unsigned Items(unsigned count) const;
    Buttons& Button(unsigned item) { return buttons_[item]; }

    HWND Window() const { return box_.window; } ///< of the last layout
    bool Laid_Out() const { return box_.window != nullptr; }
    bool Shows_Marks() const; ///< whether the area asks for the pressed marks

private:
    struct Measures;

    void Place_Slider(const Measures& measures);
    void Place_List(const Measures& measures);
    int Row_Y(const Measures& measures, int item) const;
    bool Place_Buttons(const Measures& measures);
    void Place_Editor(const Measures& measures);
    void Follow_Slider(unsigned count);

    void Apply_To(Buttons& button, unsigned redo);
    bool Visible(unsigned item) const;
    int First_Taking(int up_down, unsigned first, unsigned count);
    bool Slide(int up_down, unsigned count);

    bool Editing() const;
    bool Start_Edit(int up_down, unsigned count, HWND editor_window);
    void Cancel_Edit(unsigned count);
    bool Uncover_Edited(unsigned count);
    bool Keep_Label(const char* text, const Label_Store& store);

    Boxs box_;
    Boxs list_;
    frame::Shared_Array<Buttons> buttons_;
    Sliders slider_;
    int first_ = 0; // the band of y in which a button is drawn and hit
    int last_ = 0;
    Texts editor_;
    unsigned short edited_ = 0;
};

}
