#pragma once

#include "platform/qt/windows_types.h"

// Dialogs: those from a template, and the system's.

using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

/// Without controls: behind it are three texts of 16-bit characters, each with a zero: the menu and the class, both
/// empty, and the caption. Places and sizes are in dialog units: a quarter of the horizontal base unit, an eighth of
/// the vertical one.
#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit; ///< how many controls: 0
    short x;   ///< from the left edge of the owner's client area
    short y;
    short cx; ///< of the client area
    short cy;
};
#pragma pack(pop)
using LPCDLGTEMPLATEA = const DLGTEMPLATE*;

constexpr DWORD DS_MODALFRAME = 0x80;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

constexpr int DWLP_MSGRESULT = 0;
constexpr LRESULT DLGC_WANTARROWS = 0x0001;
constexpr LRESULT DLGC_WANTTAB = 0x0002;
constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;

/// The base units, horizontal in the low word, vertical in the high one: 8 and 16.
WINAPI_CALL LONG GetDialogBaseUnits();

/// Makes a dialog and runs it until EndDialog; the owner's top-level window is disabled meanwhile, and active again
/// afterwards. A dialog without an owner has the active window of the program, when that is a widget of Qt's. The end
/// of the dialog's window or of the program ends it, too.
///
/// The procedure answers TRUE to a message that is done with, to others the usual is done; what a sent message is
/// answered with, when it matters, it leaves in DWLP_MSGRESULT. Its first message is WM_INITDIALOG (with `parameter`);
/// the dialog is shown when that has been answered. Keys are the dialog's first: Enter and Escape come as WM_COMMAND of
/// IDOK and IDCANCEL, the arrows and Tab not at all, unless the answer to WM_GETDLGCODE asks for them.
///
/// @return what EndDialog was told; 0 when something else ended it, or the owner is no window; -1 when there is no
///         procedure, or no template that can be read
WINAPI_CALL INT_PTR DialogBoxIndirectParamA(
    HINSTANCE instance, LPCDLGTEMPLATEA description, HWND owner, DLGPROC procedure, LPARAM parameter);

/// Hides the dialog and gives the input back to its owner; the window goes once the procedure has returned. FALSE for
/// a window that is no dialog.
WINAPI_CALL BOOL EndDialog(HWND dialog, INT_PTR result);

struct OPENFILENAMEA {
    DWORD lStructSize;
    HWND hwndOwner;
    LPCSTR lpstrFilter; ///< texts and patterns in turn, each with a zero behind it, and one more
    LPSTR lpstrFile;    ///< the path that is offered, and then the one that was chosen
    DWORD nMaxFile;     ///< bytes of lpstrFile
    LPCSTR lpstrTitle;
    DWORD Flags;
    LPCSTR lpstrDefExt; ///< for a name without extension, without its point
};

constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;

/// Asks for the name of a file to write. @return FALSE when the user dismissed the dialog, or the name was too long
WINAPI_CALL BOOL GetSaveFileNameA(OPENFILENAMEA* dialog);
