#pragma once

#include "platform/qt/windows_types.h"

// The system's dialogs.

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
