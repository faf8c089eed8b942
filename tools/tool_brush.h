#pragma once

#include "frame/change_flags.h"
#include "frame/export.h"
#include "frame/shared_array.h"
#include "host/gadgets.h"

/// The panel of the paint brushes: a row of buttons, each with a picture of its disc in the current tag's colour. It
/// also fills the host's shape grids, which the host stamps when it paints.
///
/// Reads `"$BRUSH_NB"` (at most 8 are used), `"$BRUSH_CUR"`, `"$BRUSH_SIZE"`, `"$BRUSH_RADIUS"`, `"$TAG_CUR"`,
/// `"$TAG_RED"`, `"$TAG_GRN"`, `"$TAG_BLU"` and the interface's dimensions; writes into the grids of `"$BRUSH_PT"`.
/// Sends nothing. Copies share their buttons.
class VETRA_TOOLS_API Tool_Brush {
public:
    Tool_Brush();
    Tool_Brush(const Tool_Brush&);
    Tool_Brush& operator=(const Tool_Brush&);
    ~Tool_Brush();

    /// Lays the panel out. @param area the panel's rectangle, window, colours and frame width @return 1
    int Resize(Boxs* area);
    int Height(); ///< pixels
    void Draw();

    /// A mouse press or release. @return 1 when a brush was chosen: Read tells which, the host makes it current
    int Click(int up_down);
    int Motion(int up_down); ///< moves the highlight. @return 0
    int Keyboard(int key);   ///< @return 0: the panel has no keys
    int Scroll(int amount);  ///< @return 1, and does nothing

    /// Follows the host: bits 22, 23, 38 and 60. A changed brush set rebuilds the shapes, laid out or not.
    void Update(unsigned long long flags);
    void Leave();

    /// The current brush, as the last Click or Update made it.
    int Read();

private:
    static constexpr unsigned short capacity = 8;

    void Init();
    void Set_Color(int tag);
    void Set_Border();

    unsigned Count() const;
    bool Laid_Out() const { return box_.window != nullptr; }
    int Picture_Margin() const;
    float Scale() const;
    void Show_Pictures();
    void Make_Current(int brush);
    void Mark(int brush, unsigned short mark);
    void Update_Brushes();
    bool Set_Changed() const;

    int current_ = 0;
    int tag_ = 0; // whose colour the pictures show
    unsigned short seen_count_ = 0;
    frame::Shared_Array<unsigned short> seen_sizes_;
    Boxs box_;
    frame::Shared_Array<Buttons> buttons_;
};
