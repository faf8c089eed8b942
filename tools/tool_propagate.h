#pragma once

#include "frame/export.h"
#include "host/gadgets.h"
#include "host/structures.h"

/// The panel that carries the segmentation of the shown frame over to the next or the previous one: a list of the
/// series' frames between a button "Down" and a button "Up".
///
/// Reads `"$WINDOW_CUR"`, `"$FRAME_CUR"`, the tree of 2D objects and the interface's dimensions; sets
/// `"$INTERFACE_LOCK_FOCUS"` while the host's function runs. Makes the current window show frames; sends nothing else.
/// The host calls Set before the first Update and sends bit 60 after it: without a function the panel knows no frames.
class VETRA_TOOLS_API Tool_Propagate {
public:
    Tool_Propagate();
    Tool_Propagate(const Tool_Propagate&);
    Tool_Propagate& operator=(const Tool_Propagate&);
    ~Tool_Propagate();

    /// Lays the panel out. @param area the panel's rectangle, window, colours, font and frame width @return 1
    int Resize(Boxs* area);
    int Height(); ///< pixels
    void Draw();

    /// A mouse press or release: opens the frame list, or propagates. @return 1 when it was used
    int Click(int up_down);
    int Motion(int up_down); ///< moves the highlight. @return 0

    /// Home, End, Page Up, Page Down, Left, Right, Insert and Delete over the list go to another frame.
    /// @return 1 when the key was used
    int Keyboard(int key);

    /// The wheel, in notches away from the user: over the list it goes to earlier frames. @return 1
    int Scroll(int amount);

    /// Follows the host: bits 21 and 60, and bits 1 and 10 together.
    void Update(unsigned long long flags);
    void Leave();

    /// What carries the segmentation over, from a frame to a frame (both Strato_2D*); null takes it away. Its result
    /// is what Propagate returns. @return 1
    int Set(int (*function)(void* from_frame, void* to_frame));

    /// Goes on to the next (1) or the previous frame (-1) and carries the segmentation along.
    /// @return what the host's function returned; 0 when there is no such frame or no function
    int Propagate(int direction);

private:
    bool At_First() const;
    bool At_Last() const;
    bool Can_Move(int direction) const;

    void Find_Frames();
    void Set_Count(int count);
    void Show_Index(Strato_2D* series, Strato_Window* window);
    void Show_States();
    void Show_Button_States();
    void Show_Frame();
    int Call_Function(Strato_2D* from, Strato_2D* to);

    Boxs box_;
    Selects list_; // its value is the index of the shown frame
    Buttons up_;
    Buttons down_;
    int count_ = 0;
    Strato_2D* shown_ = nullptr;
    Strato_2D* series_ = nullptr;
    int (*function_)(void*, void*) = nullptr;
};
