#pragma once

#include "platform/qt/windows_types.h"

// Pens and touches.

constexpr UINT WM_TOUCH = 0x0240;
constexpr UINT WM_POINTERUPDATE = 0x0245;
constexpr UINT WM_POINTERDOWN = 0x0246;
constexpr UINT WM_POINTERUP = 0x0247;

constexpr DWORD PT_PEN = 3;
constexpr UINT32 POINTER_FLAG_INRANGE = 0x00000002;
constexpr UINT32 POINTER_FLAG_INCONTACT = 0x00000004;
constexpr UINT32 POINTER_FLAG_FIRSTBUTTON = 0x00000010;  ///< the tip alone
constexpr UINT32 POINTER_FLAG_SECONDBUTTON = 0x00000020; ///< the tip, with the barrel button
constexpr UINT32 POINTER_FLAG_THIRDBUTTON = 0x00000040;

struct POINTER_INFO {
    DWORD pointerType;
    UINT32 pointerId;
    UINT32 pointerFlags;
    HWND hwndTarget;
    POINT ptPixelLocation; ///< screen coordinates
};

struct POINTER_PEN_INFO {
    POINTER_INFO pointerInfo;
    UINT32 pressure; ///< 0 to 1024
};

constexpr UINT32 GET_POINTERID_WPARAM(WPARAM wparam)
{
    return LOWORD(wparam);
}

/// What the pen says in the message that is being handled. Its window gets it as mouse messages, unless the procedure
/// answers 0 by itself.
WINAPI_CALL BOOL GetPointerPenInfo(UINT32 pointer, POINTER_PEN_INFO* pen);

constexpr DWORD TOUCHEVENTF_MOVE = 0x0001;
constexpr DWORD TOUCHEVENTF_DOWN = 0x0002;
constexpr DWORD TOUCHEVENTF_UP = 0x0004;

struct TOUCHINPUT {
    LONG x; ///< hundredths of a pixel, screen coordinates
    LONG y;
    DWORD dwID;
    DWORD dwFlags;
};

/// Touches reach every window as mouse messages; a window that is registered gets WM_TOUCH, with all fingers, from when
/// two are down until the last one is lifted.
WINAPI_CALL BOOL RegisterTouchWindow(HWND window, ULONG flags);

/// The fingers of the WM_TOUCH that is being handled: its first `count`.
WINAPI_CALL BOOL GetTouchInputInfo(HTOUCHINPUT touch, UINT count, TOUCHINPUT* inputs, int size);
WINAPI_CALL BOOL CloseTouchInputHandle(HTOUCHINPUT touch);
