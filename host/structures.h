#pragma once

#include "platform/windows_api.h"

#ifdef STRUCTURES_BUILD
#define STRUCTURES_API VETRA_EXPORT
#else
#define STRUCTURES_API VETRA_IMPORT
#endif

// The host's data-structure library, as far as the panels call it: shared variables, change broadcasting and the object
// tree. A host supplies it as the library `Vetra_Structures`.

class Strato;
class Strato_1D;
class Strato_2D;
class Strato_2D_Frame;
class Strato_3D;
class Strato_Window;
struct Region_2D;
struct Vector_4;

// ------------------------------------------------------------------------------------------- variable registry

/// The value of a variable, widened to pointer size: a scalar's number (signed ones sign-extended), an array's first
/// element, an object's address.
///
/// @param name      UTF-8, with its leading "$"
/// @param type      receives the host's code of the variable's type; may be null
/// @param count     receives the number of elements; may be null
/// @param callback  receives the function that the host calls on a change; may be null
/// @return null when there is no such variable, or its number is 0, or it has no array or object
STRUCTURES_API void* Fct_Variable_Value(const char* name, int* type, unsigned short* count, int (**callback)(void));

/// The address of a variable's storage (for an array: of the array pointer). It never changes for the life of the
/// process. Arguments as for Fct_Variable_Value.
///
/// @param flag  1 creates the variable, zero, when it does not exist; 0 only looks it up
/// @return null when there is no such variable
STRUCTURES_API void* Fct_Variable_Get(
    const char* name, int* type, unsigned short* count, int (**callback)(void), char flag);

// --------------------------------------------------------------------------------------------------- broadcasts

/// Tells every panel and view what changed. The host must deliver it after the panel call that sends it has returned;
/// an identical word that already waits is not queued again, and different words are never merged.
///
/// @param flags  the change-flag word; the other arguments are for the host's own use, panels pass null
STRUCTURES_API void Fct_Update(unsigned long long flags, void*, void*, Region_2D*);

/// Asks for a repaint of the views in the mask, after the panel call that asks has returned.
STRUCTURES_API void Fct_Redraw(unsigned long long mask, void*, void*, Region_2D*);

/// Makes a window show another frame. At once: the window shows `new_frame` and `"$FRAME_CUR"` names it; then bit 21 is
/// broadcast. Does nothing when `window` or `new_frame` is null. `old_frame` is informative.
STRUCTURES_API void Fct_Change_Child(Strato_Window* window, Strato_2D* new_frame, Strato_2D* old_frame);

// -------------------------------------------------------------------------------------------------- object tree

/// An object of the host. Panels keep addresses of objects and never free them.
class STRUCTURES_API Strato {
public:
    Strato(const Strato&) = delete;
    Strato& operator=(const Strato&) = delete;

    /// What kind of object this is: 0xAABA for a 2D frame that can be shown.
    unsigned Class_Magic_Get() const;

    /// Option bits: 0x1FFF, 0x2FFF, 0x3FFF for selectable leaves; for a window, bit 1 locks its selection.
    unsigned Class_A_Get() const;

    /// The object's number; for a window its index in `"$FRAME_CUR"`.
    unsigned Class_B_Get() const;

    /// The file name of the object's icon ("icon series.tga"), static text; null when it has none.
    virtual const char* Icon_Get() const;

    const char* Name_Get() const; ///< UTF-8, never null
    void Name_Set(const char* name);
    const char* Title_Get() const; ///< the class of the object, UTF-8, never null

    /// Whether any bit of `mask` is set in one of the object's flag words.
    /// @param flag  bit 4 (16): of the object itself
    /// @param word  the number of the flag word, as a pointer-sized value: 4 is the display state (bit 9 selected),
    ///              8 the storage state (bit 28 modified)
    int Flag_Get_Bit(unsigned char flag, void* word, unsigned long long mask) const;

    /// Sets or clears bits. @param flag bit 4 (16) the object, bit 5 (32) and all its descendants, bit 6 (64) and all
    /// its ancestors
    void Flag_Set_On(unsigned char flag, void* word, unsigned long long mask);
    void Flag_Set_Off(unsigned char flag, void* word, unsigned long long mask);

    struct Record; ///< what the host keeps of an object
    Record* record() const { return record_; }

protected:
    explicit Strato(Record* record);
    virtual ~Strato();

private:
    Record* record_;
};

/// What the header of a file says of an image in it.
struct Frame_Record {
    unsigned short modality; ///< two ASCII letters, the first in the high byte: CT is 0x4354; 0 when it says nothing
    unsigned short flags;    ///< bit 4 (16): a scout
    unsigned short width;    ///< pixels
    unsigned short height;
    unsigned short images_z; ///< how many images lie one above the other
    unsigned short images_t; ///< and how many follow one another in time
};

/// A file that is open. `"$DB_2D_FILE_PT"` has `"$DB_2D_FILE_NB"` pointers to them, any of which may be null.
struct File_Record {
    char* path; ///< UTF-8
    unsigned short nb_frames;
    unsigned char* frame_flags; ///< nb_frames; bit 6 (64): the frame is not accessible
    Frame_Record** frames;      ///< nb_frames, any of which may be null; null when there are none
};

class STRUCTURES_API Strato_1D : public Strato {
public:
    using Strato::Strato;
    int Child_Get_Nb() const;
    Strato_1D* Child_Get_Pt(int index) const; ///< null when there is no such child
    Strato_1D* Parent_Get_Pt() const;         ///< null for the root

    // Changing the tree. What would not leave it a tree is refused, and changes nothing.

    /// The position of a child; -1 when it is none.
    int Child_Get_Id(const Strato_1D* child) const;

    /// Only what the object says of its parent: it stays where it is among children. Refused for itself or an object
    /// below it.
    void Parent_Set_Pt(Strato_1D* parent);

    /// Adds an object as the last child, or at a position, which is moved into 0 .. Child_Get_Nb; its parent is this
    /// then. Refused: null, the object itself, one that it is below of, one that is among somebody's children.
    /// @return 1, or 0 when it was refused
    int Child_Add(Strato_1D* child);
    int Child_Insert(int position, Strato_1D* child);

    /// Takes a child out, with all that is below it; its parent is null then, unless it names another object. The
    /// host keeps what was taken out and not put back. @return the child, null when there is no such child
    Strato_1D* Child_Remove(int position);
    Strato_1D* Child_Remove(Strato_1D* child);
};

class STRUCTURES_API Strato_2D : public Strato {
public:
    using Strato::Strato;
    int Child_Get_Nb() const;
    Strato_2D* Child_Get_Pt(int index) const;
    Strato_2D* Parent_Get_Pt() const;

    int Child_Get_Id(const Strato_2D* child) const; ///< this and what follows: see Strato_1D
    void Parent_Set_Pt(Strato_2D* parent);
    int Child_Add(Strato_2D* child);
    int Child_Insert(int position, Strato_2D* child);
    Strato_2D* Child_Remove(int position);
    Strato_2D* Child_Remove(Strato_2D* child);

    /// The record, in a file that is open, of what the object shows; null when it comes from none.
    const Frame_Record* Frame_Record_Get() const;

    /// The index of the child that the window shows; -1 when it shows none of them.
    int Child_Get_Cur(Strato_Window* window) const;
};

class STRUCTURES_API Strato_3D : public Strato {
public:
    using Strato::Strato;
    int Child_Get_Nb() const;
    Strato_3D* Child_Get_Pt(int index) const;
    Strato_3D* Parent_Get_Pt() const;

    int Child_Get_Id(const Strato_3D* child) const; ///< this and what follows: see Strato_1D
    void Parent_Set_Pt(Strato_3D* parent);
    int Child_Add(Strato_3D* child);
    int Child_Insert(int position, Strato_3D* child);
    Strato_3D* Child_Remove(int position);
    Strato_3D* Child_Remove(Strato_3D* child);
};

/// How often each grey value occurs. Bin i covers [min + i width, min + (i + 1) width).
struct Histo_Record {
    unsigned short flags;    ///< bit 0: of a colour image; the four arrays after `count` are there
    unsigned short nb_bins;  ///< at least 1
    float min;               ///< lower edge of bin 0, grey values
    float width;             ///< of a bin, grey values
    unsigned max_count;      ///< the largest count in any of the arrays
    unsigned* count;         ///< nb_bins counts of grey values, or of the plain value of colour pixels
    unsigned* red;           ///< nb_bins counts each, of the components; null unless colour
    unsigned* green;         ///< see red
    unsigned* blue;          ///< see red
    unsigned* max_component; ///< nb_bins counts of the largest of the three components; null unless colour
};

/// One image of a series.
class STRUCTURES_API Strato_2D_Frame : public Strato_2D {
public:
    using Strato_2D::Strato_2D;

    /// What Value_Get returns where there is no value.
    static constexpr int no_value = 0x7FFFFFFF;
    static constexpr int no_value_yet = 0x7FFFFFFE;

    /// The frame's histogram, which the host owns and only the host changes; null when there is none. Asking twice
    /// costs nothing: it is kept until the pixels change.
    const Histo_Record* Histogram_Get();

    /// The raw value of the pixel at a position (x, y, index_z, index_t), or one of the two codes above. Of a colour
    /// frame red is in bits 0 to 7, green in 8 to 15, blue in 16 to 23. Fct_GLI_2_Float makes others a grey value.
    virtual int Value_Get(const Vector_4& position);

    char* unit = nullptr;       ///< of grey values, UTF-8; null when unknown. The host's
    unsigned short index_z = 0; ///< the frame's place in its volume
    unsigned short index_t = 0; ///< and in time
    unsigned char color = 0;    ///< 1: a colour image
};

/// The grey value of a raw value of a grey frame.
STRUCTURES_API float Fct_GLI_2_Float(Strato_2D_Frame* frame, int raw);

// ------------------------------------------------------------------------------------------------ pen and touch

/// What a pen says.
struct Pen_Record {
    int buttons; ///< which are held: 16 the tip, 32 the middle, 64 the barrel button; and 1 when one is while it moves
    int x;       ///< screen coordinates
    int y;
};

/// What two fingers did since the last call; all 0 and the factors 1 when they have just come down.
struct Gesture_Record {
    float move_x; ///< pixels to the right, of the point between them
    float move_y; ///< pixels downward
    float zoom_x; ///< by how much the distance between them grew, across; 1 when it is too short to tell
    float zoom_y; ///< and up
};

/// The pen behind WM_POINTERDOWN, WM_POINTERUP or WM_POINTERUPDATE; the arguments are the message's.
/// @return non-zero when `pen` is filled; 0 when it is no pen, so that the message is for the default procedure
STRUCTURES_API int Fct_Pointer_Pen(HWND window, UINT message, WPARAM wparam, LPARAM lparam, Pen_Record* pen);

/// The gesture behind WM_TOUCH; the arguments are the message's.
/// @return non-zero when `gesture` is filled; then the message must not go to the default procedure, too
STRUCTURES_API int Fct_Pointer_Touch(HWND window, UINT message, WPARAM wparam, LPARAM lparam, Gesture_Record* gesture);

// --------------------------------------------------------------------------------------------------- file dialogs

/// Asks the user for the name of a file to write, and whether one of that name may go. Returns when the user has
/// answered; meanwhile messages and broadcasts arrive.
///
/// @param title      of the dialog, UTF-8
/// @param filter     which files are shown, as Fct_Create_szFilter makes it; null for all
/// @param offered    the path that is offered; null for none
/// @param extension  without its point; a name without one gets it
/// @param chosen     receives the path: 1024 bytes, which may be those of `offered`; unchanged unless 1 is returned
/// @param flags      0
/// @return 1 when the user confirmed, else 0
STRUCTURES_API int Fct_Save_FileName(
    const char* title, const char* filter, const char* offered, const char* extension, char* chosen, int flags);

/// A filter for file dialogs.
/// @param count  how many pairs follow: a text, and the name of the variable that holds the patterns
///               (`"$FILE_EXTENSION_EXCEL"`; without a value "*.csv", other variables "*")
/// @return texts and patterns in turn, each with a zero behind it and one more at the end; overwritten by the next call
STRUCTURES_API char* Fct_Create_szFilter(int count, ...);

// ---------------------------------------------------------------------------------------------------- iterators

/// Begins to go through the tree. Whoever begins ends it; one that the same owner left open is ended first.
/// @param owner  who asks, for the host's reports
/// @param start  go through what is below this object; null for the whole tree
/// @return the iterator, or 0 when there is none left
STRUCTURES_API unsigned short Iterator_Init(const char* owner, Strato* start);

/// The next 2D object in the order of the tree.
/// @param class_mask     the option bits (Class_A_Get) that the object must have, all and no others: 0x2FFF for frames
/// @param scope          a window: only frames of the series that it shows; null or, below 4096, a scope code: all
/// @param selected_only  1: only objects that are selected
/// @return null at the end
STRUCTURES_API Strato_2D* Iterator_Class_2D(
    unsigned short iterator, unsigned class_mask, void* scope, unsigned char selected_only);

STRUCTURES_API void Iterator_End(unsigned short iterator);

/// An image window of the host.
class STRUCTURES_API Strato_Window : public Strato {
public:
    using Strato::Strato;
};
