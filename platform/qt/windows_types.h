#pragma once

#include "platform/export.h"

#include <cstddef>
#include <cstdint>

// The Windows API's types, as far as they are used. Free of Qt.

#ifdef VETRA_PLATFORM_BUILD
#define WINAPI_CALL VETRA_EXPORT
#else
#define WINAPI_CALL VETRA_IMPORT
#endif

#define CALLBACK
#define WINAPI
#define TRUE 1
#define FALSE 0

using BOOL = int;
using BYTE = unsigned char;
using WORD = unsigned short;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT = int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using UINT32 = std::uint32_t;
using CHAR = char;
using SHORT = short;
using WCHAR = char16_t;
using LPCSTR = const char*;
using LPSTR = char*;
using LPCWSTR = const WCHAR*;
using LPVOID = void*;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using COLORREF = DWORD;
using ATOM = WORD;
using SIZE_T = std::size_t;

// Every kind of handle is a type of its own, so that they cannot be mixed up; nothing is ever seen behind one.
#define VETRA_HANDLE(name)                                                                                             \
    struct name##__;                                                                                                   \
    using name = name##__*
VETRA_HANDLE(HWND);
VETRA_HANDLE(HDC);
VETRA_HANDLE(HINSTANCE);
VETRA_HANDLE(HCURSOR);
VETRA_HANDLE(HMENU);
VETRA_HANDLE(HRGN);
VETRA_HANDLE(HMONITOR);
VETRA_HANDLE(HTOUCHINPUT);
#undef VETRA_HANDLE
using HMODULE = HINSTANCE;
using HICON = HCURSOR;
using HANDLE = void*;
using HGLOBAL = void*;
using HGDIOBJ = void*;
struct HPEN__;
struct HBRUSH__;
struct HFONT__;
struct HBITMAP__;
using HPEN = HPEN__*;
using HBRUSH = HBRUSH__*;
using HFONT = HFONT__*;
using HBITMAP = HBITMAP__*;

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

using LPPOINT = POINT*;
using LPRECT = RECT*;

constexpr WORD LOWORD(std::uintptr_t value)
{
    return static_cast<WORD>(value & 0xffff);
}

constexpr WORD HIWORD(std::uintptr_t value)
{
    return static_cast<WORD>((value >> 16) & 0xffff);
}

constexpr LONG MAKELONG(int low, int high)
{
    return static_cast<LONG>((static_cast<DWORD>(high) & 0xffff) << 16 | (static_cast<DWORD>(low) & 0xffff));
}

constexpr LPARAM MAKELPARAM(int low, int high)
{
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}

constexpr WPARAM MAKEWPARAM(int low, int high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

constexpr COLORREF RGB(int red, int green, int blue)
{
    return static_cast<COLORREF>((red & 0xff) | (green & 0xff) << 8 | (blue & 0xff) << 16);
}

constexpr BYTE GetRValue(COLORREF color)
{
    return static_cast<BYTE>(color);
}

constexpr BYTE GetGValue(COLORREF color)
{
    return static_cast<BYTE>(color >> 8);
}

constexpr BYTE GetBValue(COLORREF color)
{
    return static_cast<BYTE>(color >> 16);
}

extern "C++" {

/// Critical sections: one thread inside, which may enter again.
struct CRITICAL_SECTION {
    void* DebugInfo = nullptr;
};
WINAPI_CALL void InitializeCriticalSection(CRITICAL_SECTION* section);
WINAPI_CALL void EnterCriticalSection(CRITICAL_SECTION* section);
WINAPI_CALL void LeaveCriticalSection(CRITICAL_SECTION* section);
WINAPI_CALL void DeleteCriticalSection(CRITICAL_SECTION* section);

/// Memory that is reached through a handle: its address holds while it is locked.
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
WINAPI_CALL HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes); ///< null when there is no memory
WINAPI_CALL LPVOID GlobalLock(HGLOBAL memory);
WINAPI_CALL BOOL GlobalUnlock(HGLOBAL memory);  ///< @return FALSE when it is not locked any more
WINAPI_CALL HGLOBAL GlobalFree(HGLOBAL memory); ///< @return null

constexpr UINT CP_UTF8 = 65001;
WINAPI_CALL int MultiByteToWideChar(UINT page, DWORD flags, const char* text, int bytes, WCHAR* wide, int units);
WINAPI_CALL int WideCharToMultiByte(UINT page, DWORD flags, const WCHAR* wide, int units, char* text, int bytes,
    const char* substitute, BOOL* substituted);

/// The text of a C library error (a value of errno), kept until the next call.
WINAPI_CALL wchar_t* _wcserror(int error);
}
