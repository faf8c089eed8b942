#pragma once

#include "platform/windows_api.h"

#ifdef GADGETS_BUILD
#define GADGETS_API VETRA_EXPORT
#else
#define GADGETS_API VETRA_IMPORT
#endif

// The host's widget library, as far as the panels call it. A host supplies it as the library `Gadgets`.
//
// One axis for everything: x and y are the lower-left corner of a widget, counted from the lower-left corner of the
// client area of its window, y growing upward, in pixels.
//
// Widgets are plain values: all numbers 0 and all pointers null is a valid, empty widget, and a widget without a
// window draws nothing and takes no event. Events carry no position: a widget asks where the host recorded the
// pointer (Y_Cursor).

// ---------------------------------------------------------------------------------------------- drawing context

GADGETS_API extern HDC Y_DC;                    ///< the context being drawn in, null outside Y_setup .. Y_release
GADGETS_API extern HWND Y_Window;               ///< the window that Y_DC belongs to
GADGETS_API extern int YCursor_X;               ///< the recorded pointer, screen coordinates (y downward)
GADGETS_API extern int YCursor_Y;               ///< see YCursor_X
GADGETS_API extern COLORREF Current_Color;      ///< 0x00BBGGRR
GADGETS_API extern CRITICAL_SECTION Critical;   ///< guards Y_DC; initialised by the first Y_setup
GADGETS_API extern unsigned char Critical_Flag; ///< 1 once Critical is initialised
GADGETS_API extern short SPACE;                 ///< the library's spacing between widgets, pixels
GADGETS_API extern short BORDER;                ///< the library's frame width, pixels

/// Opens the drawing context of a window: enters Critical, takes the window's device context into Y_DC and maps it so
/// that y grows upward from the lower-left corner of the client area. On the window that is already set up only a
/// depth is counted (same context, same clip); another window's context is put aside until Y_release.
///
/// A failure to get the context is reported at level 11 ("Y_setup(%s) GetDC failed", the caller or "---"). Y_release
/// must be called all the same, because Critical is held.
///
/// @return 1, or 0 when there is no context
GADGETS_API int Y_setup(HWND window, const char* caller);

/// Closes what the matching Y_setup opened; the outermost one gives the context back, clears Y_DC and Y_Window and
/// leaves Critical. Reports "Y_release() Failed!" at level 11 when the context cannot be given back.
GADGETS_API void Y_release();

/// Records the pointer: the client point (x, y) of the window (y downward), or the screen's cursor when both are 0.
GADGETS_API void Y_Cursor(HWND window, int x, int y);

/// The key that Keyboard is being called with, for widgets that move by keys; 0 when there is none, or it was used.
/// The host records it before the call.
GADGETS_API extern int YKey;

/// Shows the hourglass, until Reset_Curs_Wait has been called as often. @param window who waits, null for the whole
/// program: the cursor is one
GADGETS_API void Set_Curs_Wait(HWND window);
GADGETS_API void Reset_Curs_Wait(HWND window);

/// A font. @param name UTF-8 family, null or empty for the platform's own; @param scale size in points;
/// @param weight "bold", or null or empty. The caller deletes it with DeleteObject.
GADGETS_API HFONT Y_Create_Font(const char* name, short scale, const char* weight);

/// Whether a key or mouse button is down (platform virtual-key code: 1 left, 2 right, 4 middle button, 16 Shift,
/// 17 Control). @return non-zero when it is
GADGETS_API int getkey(int key);
GADGETS_API int getbutton(int button);

/// The key of a window message, as panels are given it: for WM_CHAR the character (Unicode), with Backspace, Tab, Enter
/// and Escape as themselves; for WM_KEYDOWN and WM_SYSKEYDOWN (Alt is held) the navigation keys, as 2048 + virtual-key
/// code. @return 0 for other messages, and for a key that comes as a character, or is not for panels
GADGETS_API int Parse_Keyboard(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/// The key of a WM_KEYDOWN alone, for windows that take no WM_CHAR: codes as of Parse_Keyboard, with the character that
/// the key types, which does not come as a WM_CHAR any more. @return 0 for other messages, and for a key without a code
GADGETS_API int Parse_Dialog(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

// ------------------------------------------------------------------------------------------------------ widgets

/// A colour, 8 bits a channel.
struct GADGETS_API Colors {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;

    unsigned get() const; ///< packed as the platform's colour value, 0x00BBGGRR
    bool operator==(const Colors&) const = default;
};

/// A text that a widget owns. Empty (null) is valid; a copy has a text of its own. When memory runs out the text
/// becomes empty.
class GADGETS_API Caption {
public:
    Caption() = default;
    Caption(const Caption&);
    Caption(Caption&&) noexcept;
    Caption& operator=(const Caption&);
    Caption& operator=(Caption&&) noexcept;
    ~Caption();

    void set(const char* text);                            ///< null empties it
    const char* get() const { return text_ ? text_ : ""; } ///< never null

private:
    char* text_ = nullptr;
};

/// The library's pairs of colours for the boxes of a diagram: of the face, and a stronger one of its outline.
enum class Color_Pair : unsigned char { first, second };

/// How a box of a diagram stands out: not at all, the pointer is over it, or it refuses what is dragged over it.
enum class Emphasis : unsigned char { none, hovered, refusing };

/// The base of the widgets: a rectangle in a window, with its colours, font and caption.
///
/// `state` is the widget state word. For all widgets but boxes: bits 0 and 1 inactive (not hit), bit 5 greyed (not
/// hit; shown), so that without bit 5 an inactive slider, editor or button is not shown either. Bit 2 vertical;
/// bit 20 the pressed mark is shown; bit 22 a row button, whose face has the widget's own colour; bit 25 a valuator
/// shows its number; bit 26 a vertical slider has its minimum at the top; bit 27 a scroll bar; bit 31 an editor that
/// lies over another widget. Bits 8 and 13: text at the left, vertically centred.
class GADGETS_API Tools {
public:
    HWND window = nullptr;
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
    short border = 0; ///< width of the frame, pixels
    unsigned state = 0;
    Colors frame;         ///< frame, marks and lines
    Colors back;          ///< background
    Colors text;          ///< caption
    Colors color;         ///< the widget's own colour, e.g. a row button's face
    HFONT font = nullptr; ///< not owned; null for the platform's own
    Caption name;

    void Set_Name(const char* caption);
    void Set_Color(unsigned char red, unsigned char green, unsigned char blue);

    /// Fills the widget's rectangle with a colour.
    void Clear(Colors fill);

    // The parts of a box of a diagram, in the order of drawing. Each takes the drawing context of its own accord.

    /// Fills the rectangle with the pair's face and outlines it inside the frame (Cadre), two pixels wide when it
    /// stands out, else one. `back` and `text` are the colours of the face and of a text on it afterwards, also for the
    /// labels that lie on it.
    void Fill_Select(Color_Pair pair, Emphasis emphasis);

    /// A frame inside the rectangle, `border` wide, in the colour `frame`.
    void Cadre();

    /// A picture file, as Icon_Draw_Image takes it, in the middle of a field in the pair's stronger colour: a square
    /// at the rectangle's left end, inside frame and outline, as high as they leave it.
    /// @param flags  0; 1 leaves the field out
    /// @return 1 when the picture was drawn, else 0
    int Icon(const char* folder, const char* file, Color_Pair pair, unsigned flags);

    /// The caption in the colour `text`, in the uppermost of `rows` equal rows of the rectangle, from `left` pixels
    /// right of its left edge; bit 8 of the state puts it at the left, else it is in the middle. Marks of emphasis in
    /// it (bytes 1 and 2) are not shown.
    void Text(short left = 0, short rows = 1);

    /// Gives back what the widget owns, its caption.
    void Free();

    /// Whether the recorded pointer lies in the rectangle, grown by dx and dy on every side.
    bool Pointer_Inside(short dx = 0, short dy = 0) const;

    bool Active() const { return (state & 35u) == 0; }
    bool Shown() const { return (state & 32u) != 0 || (state & 3u) == 0; }

protected:
    void Set_Window(HWND owner); ///< null keeps the window that the widget has
};

/// A rectangle with a frame and a background; also how a host hands a panel its area. Bits 0, 1 and 5 of its state
/// change neither drawing nor hits. Bit 4 draws the frame sunken, bit 6 fills the background. A caption is drawn along
/// the upper edge.
class GADGETS_API Boxs : public Tools {
public:
    void Init(HWND owner);
    void Draw();

    /// Whether the pointer is inside. @return non-zero when it is; nothing else happens
    int Select(int up_down);
};

/// The four state pictures of a button: width x height pixels each, blue in the low byte, then green, then red.
class GADGETS_API Pictures {
public:
    Pictures() = default;
    Pictures(const Pictures&);
    Pictures(Pictures&&) noexcept;
    Pictures& operator=(const Pictures&);
    Pictures& operator=(Pictures&&) noexcept;
    ~Pictures();

    /// Makes room for four pictures, all pixels 0. @return false when memory runs out; there are none then
    bool allocate(int width, int height);
    void release();

    /// The pixels of picture 0 to 3, row by row; null when there are none.
    unsigned* pixels(int picture);
    const unsigned* pixels(int picture) const;

    int width() const { return width_; }
    int height() const { return height_; }

private:
    unsigned* pixels_ = nullptr;
    int width_ = 0;
    int height_ = 0;
};

/// A text on the area's background: in the label's own colour, or in the area's when it is black, as it is at first.
class GADGETS_API Labels : public Tools {
public:
    void Init(HWND owner);
    void Draw();
};

// Small pictures in a drawing context that is set up (Y_setup). Positions are in the widgets' axes, y upward.

/// Draws a picture file (TGA, with alpha) of 16 x 16 pixels; where the screen has more than one for a pixel of ours,
/// the file of the same name in the folder's "2x" is taken when there is one, which is twice as wide and high. Only the
/// context's clip cuts it. A file that is missing or broken draws nothing; none is read twice.
/// @param box     the widget that it is drawn in; may be null
/// @param x       its left edge @param y its lower edge
/// @param folder  where the file is, UTF-8; null or empty for Prog_Name
/// @param file    its name
/// @return 1 when it was drawn, else 0
GADGETS_API int Icon_Draw_Image(const Boxs* box, int x, int y, const char* folder, const char* file);

/// The lead of a row of a tree, in x0 .. x1, y0 .. y1: the line from the parent's connector (7 pixels right of x0) to
/// the row, for one without children; with a sign on it for one whose children are shown (minus) or hidden (plus); and
/// for one that cannot be used. In Current_Color. Above the row (y0 .. y0 + 18) the line ends where box->back does.
/// @param more  non-zero: siblings follow, the connector goes on
GADGETS_API void Icon_Lead_Leaf(const Boxs* box, int more, int x0, int x1, int y0, int y1);
GADGETS_API void Icon_Lead_Expand(const Boxs* box, int more, int x0, int x1, int y0, int y1);
GADGETS_API void Icon_Lead_Collapse(const Boxs* box, int more, int x0, int x1, int y0, int y1);
GADGETS_API void Icon_Lead_No_Access(const Boxs* box, int more, int x0, int x1, int y0, int y1);

/// A push button, or with state bit 22 a row button of a list.
class GADGETS_API Buttons : public Tools {
public:
    unsigned short cur = 0;     ///< current mark: 1 for the current item
    unsigned short pressed = 0; ///< pressed mark: the item's on-off state
    unsigned short shown = 0;   ///< the picture on the screen + 1; 0 when nothing is shown yet

    /// Takes the window (null keeps the one it has) and makes the pictures stale.
    void Init(HWND owner);
    void Draw();

    /// Draws the button again when it does not show the picture of its present state.
    void Adjust();

    /// A mouse event. @return non-zero when the button is active, the pointer inside, and `up_down` is a press (bit 1)
    /// or the question 4. Other words only move the highlight.
    int Select(int up_down);
    void Deselect();

    /// The pixels of state picture 1 normal, 2 highlighted, 3 pressed, 4 current: width x height, the top row first.
    /// The pictures are built when first asked for after an Init: 2 and 4 differ at every pixel, 3 has no black one.
    /// Null when there is no memory or no area.
    unsigned* Picture(int number);

private:
    unsigned short highlight_ = 0; // 1 the pointer is over, 2 held down
    Pictures pictures_;

    bool Row() const { return (state & 0x400000u) != 0; }
    unsigned short Look() const;
    int Picture_To_Show() const;
    bool Build_Pictures();
    void Draw_Row();
    void Draw_Picture();
};

/// A slider. Horizontal with its minimum at the left, or vertical (state bit 2) with its minimum at the bottom, or with
/// bit 26 at the top.
class GADGETS_API Sliders : public Tools {
public:
    float value = 0;
    float minimum = 0;
    float maximum = 0;
    float step = 0;  ///< of one wheel notch
    float thumb = 0; ///< share of the length that the thumb takes, 0 to 1; set by Larg_Adjust

    Sliders() = default;
    void Init(HWND owner);
    void Draw();

    /// Draws the slider again when the screen shows another one.
    void Adjust();

    /// Sets the thumb's proportion to visible / total of the track.
    void Larg_Adjust(float visible, float total);

    /// A mouse event. A press inside grabs the thumb; while it is grabbed, motions with a held button are taken.
    /// @return non-zero when the slider takes the event (Read then gives the new value)
    int Select(int up_down);

    /// Moves the thumb to the pointer, after a Select that took the event. @return the new value
    float Read();

    /// Moves the thumb `amount` steps down (vertical) or right (horizontal), within the range, and draws it.
    /// @return 1 when the value changed
    int Scroll(int amount);
    void Deselect();

protected:
    /// What the value is: a position, or a level, which is shown as one.
    enum class Meaning : unsigned char { position, level };
    explicit Sliders(Meaning meaning) : meaning_(meaning) {}

private:
    Meaning meaning_ = Meaning::position;
    float grip_ = 0;              // where the pointer holds the thumb, pixels from the thumb's start
    unsigned char grabbed_ = 0;   // 2 after the press, 1 from the first Read to the release
    unsigned char highlight_ = 0; // the pointer is over
    unsigned char drawn_ = 0;     // a visible slider is on the screen: as the four below tell
    unsigned char drawn_lift_ = 0;
    int drawn_start_ = 0;
    int drawn_length_ = 0;
    float drawn_value_ = 0;

    bool Has_Range() const { return maximum > minimum; }
    bool Up_To_Date() const;
    bool By_Decades() const;
    int Thumb_Length() const;
    float Thumb_Start() const;
    int Shown_Start() const;
    unsigned char Thumb_Lift() const;
    float Pointer_Position() const;
    float Share() const;
    float Value_Of(float share) const;
    float Value_At(float thumb_start) const;
    float Stepped(float steps) const;
};

/// A level control: a slider whose track is filled up to the thumb and which, with state bit 25, shows the value as a
/// number where there is room. The travel is by decades when the range spans two of them or more (minimum above 0,
/// maximum at least 100 times as much), otherwise even. A `step` of 0 is a twentieth of the travel.
class GADGETS_API Valuators : public Sliders {
public:
    Valuators() : Sliders(Meaning::level) {}
};

/// Texts by number.
class GADGETS_API Captions {
public:
    Captions() = default;
    Captions(const Captions&);
    Captions(Captions&&) noexcept;
    Captions& operator=(const Captions&);
    Captions& operator=(Captions&&) noexcept;
    ~Captions();

    /// Makes it `count` texts: those that were there stay, new ones are empty. @return false when memory runs out;
    /// nothing has changed then
    bool resize(int count);
    void set(int index, const char* text); ///< does nothing when there is no such text
    const char* get(int index) const;      ///< never null
    int count() const { return count_; }

private:
    Caption* texts_ = nullptr;
    int count_ = 0;
};

/// A one-line select list: its caption, the current item behind it, and an arrow. A press opens the list of all items.
/// Without items it takes no event.
class GADGETS_API Selects : public Tools {
public:
    unsigned short value = 0; ///< the index of the current item
    short arrow = 0;          ///< width of the arrow at the right end, pixels
    short item_height = 0;    ///< of an item in the opened list, pixels; 0 for the widget's own height

    void Init(HWND owner);
    void Draw();

    /// Draws the list again when it does not show its present item and state.
    void Adjust();

    /// Makes it a list of `count` items. Those that were there stay, new ones have no text. When memory runs out the
    /// list stays as it was. @param kind 0
    void Grow(int count, int kind);
    void Set_Item(int index, const char* caption);
    const char* Item(int index) const { return items_.get(index); } ///< never null; empty when there is no such item
    int Count() const { return items_.count(); }

    /// A mouse event. @return non-zero when the list is active, the pointer inside, and `up_down` is a press (bit 1),
    /// which Read then answers, or the question 4. Other words only move the highlight.
    int Select(int up_down);

    /// After a Select that took a press: opens the list and waits until the user has chosen. The current item stays as
    /// it is. @return the chosen index, or -1 when the list was dismissed or nothing was pressed
    int Read();

    /// Moves to the item `amount` further on, or with 0 as the recorded key says, which is used up: Home, End, Page Up
    /// and Page Down (ten items), Left and Delete (back), Right and Insert (on). Draws the list. @return 1 when the
    /// current item changed
    int Scroll(int amount);
    void Deselect();

private:
    unsigned char highlight_ = 0; // the pointer is over
    unsigned char pressed_ = 0;   // Read has to open the list
    unsigned drawn_ = 0;          // Look() + 1 of what is on the screen
    Captions items_;

    unsigned Look() const;
};

/// A one-line text editor. At most one is active in a program.
class GADGETS_API Texts : public Tools {
public:
    Texts() = default;
    Texts(const Texts&);
    Texts& operator=(const Texts&);
    ~Texts();

    void Init(HWND owner);
    void Draw();
    void Write();   ///< draws the text only
    void Cleanup(); ///< gives the buffer back; the editor is empty afterwards

    /// Loads a text: caret at its end, nothing finished.
    void Read(const char* loaded);

    /// Feeds a key: a character (Unicode), 8 Backspace, 13 finish, 27 cancel, or 2048 + virtual-key code.
    void Input(int key);

    /// The finished text, once; empty after a cancel; null while editing. Valid until the next Read or Input.
    char* Update();

    /// A mouse event, or with (1, 0, 0) the question whether the editor is active.
    /// @return non-zero when it is active and the pointer is in its rectangle grown by dx and dy
    int Select(int up_down, short dx, short dy);

    const char* Content() const { return content_.get(); } ///< what is being edited, at any time

private:
    Caption content_;
    Caption loaded_;
    int caret_ = 0;              // byte offset
    int anchor_ = 0;             // other end of the selection, byte offset
    int scroll_ = 0;             // pixels of text hidden at the left
    unsigned char finished_ = 0; // 1 finished, 2 cancelled, until Update has told
    unsigned char dragging_ = 0; // a press inside is held: the pointer selects

    void Edit(int key);
    void Replace(int from, int to, const char* text);
    void Move_Caret(int to);
    void Point_Caret(bool pressed);
    int Offset_At_Pointer() const;
};
