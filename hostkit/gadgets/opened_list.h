#pragma once

#include "hostkit/gadgets/paint.h"

namespace hostkit {

/// The list of a select list's items, open in a window of its own until one of them is chosen.
///
/// A click on an item chooses it, so does releasing the button over it that opened the list, or Enter on the
/// highlighted one. A press elsewhere, Escape, or the loss of the focus dismisses it. It scrolls by wheel, slider and
/// keys.
class Opened_List {
public:
    explicit Opened_List(const Selects& select);
    ~Opened_List();
    Opened_List(const Opened_List&) = delete;
    Opened_List& operator=(const Opened_List&) = delete;

    /// Waits for the user. @return the index of the chosen item, or -1
    int Run();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    bool Handle(UINT message, WPARAM wparam, LPARAM lparam);

    void Open();
    void Place_Slider();
    void Close(int chosen);

    void Paint();
    void Draw();
    void Draw_Row(const hostkit::Paint& paint, int row) const;

    void Press(POINT pointer);
    void Release(POINT pointer);
    void Move(POINT pointer, bool held);
    void Turn_Wheel(int delta, POINT screen);
    void Key(int key);

    int First() const; // the item in the highest row
    void Scroll_To(int first);
    void Show(int item); // scrolls no further than needed
    int Item_At(POINT pointer) const;
    void Highlight_At(POINT pointer);

    const Selects& select_;
    HWND window_ = nullptr;
    HWND focus_before_ = nullptr;
    HWND capture_before_ = nullptr;
    Sliders slider_; // its value is the item in the highest row
    int rows_ = 0;
    int row_height_;
    int highlighted_;
    int wheel_rest_ = 0;    // what is left of the wheel's turn below one notch
    POINT pointer_{-1, -1}; // of the last motion, client coordinates
    bool sliding_ = false;
    int chosen_ = -1;
    bool open_ = false;
};

}
