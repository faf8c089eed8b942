#pragma once

#include "platform/qt/windows_types.h"

// Device contexts and drawing. Coordinates are mapped inside the calls, so texts and pictures stay upright whichever
// way an axis runs. Drawing is exact: no antialiasing but in text.

struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
};

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight; ///< negative: the top row comes first
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};

struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};

constexpr DWORD BI_RGB = 0;
constexpr UINT DIB_RGB_COLORS = 0;
constexpr DWORD SRCCOPY = 0x00CC0020;

struct BLENDFUNCTION {
    BYTE BlendOp;
    BYTE BlendFlags;
    BYTE SourceConstantAlpha;
    BYTE AlphaFormat;
};

constexpr BYTE AC_SRC_OVER = 0;
constexpr BYTE AC_SRC_ALPHA = 1;
constexpr int HORZRES = 8;
constexpr int DESKTOPHORZRES = 118;

constexpr int MM_TEXT = 1;
constexpr int MM_ANISOTROPIC = 8;
constexpr int R2_NOT = 6;
constexpr int R2_XORPEN = 7;
constexpr int R2_COPYPEN = 13;
constexpr int TRANSPARENT = 1;
constexpr UINT TA_LEFT = 0;
constexpr UINT TA_RIGHT = 2;
constexpr UINT TA_CENTER = 6;
constexpr UINT TA_TOP = 0;
constexpr UINT TA_BOTTOM = 8;
constexpr UINT TA_BASELINE = 24;
constexpr int PS_SOLID = 0;
constexpr int PS_DOT = 2;
constexpr int PS_NULL = 5;
constexpr int NULL_BRUSH = 5;
constexpr int NULL_PEN = 8;
constexpr int DC_BRUSH = 18; ///< has the colour that SetDCBrushColor gives its context
constexpr int FW_NORMAL = 400;
constexpr int FW_BOLD = 700;
constexpr DWORD DEFAULT_CHARSET = 1;
constexpr DWORD OUT_DEFAULT_PRECIS = 0;
constexpr DWORD CLIP_DEFAULT_PRECIS = 0;
constexpr DWORD CLEARTYPE_QUALITY = 5;
constexpr DWORD DEFAULT_PITCH = 0;
constexpr int RGN_ERROR = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

/// A context of a window's picture. At most one painter is open on a picture, so contexts of one window share it.
WINAPI_CALL HDC GetDC(HWND window);
WINAPI_CALL int ReleaseDC(HWND window, HDC context);
WINAPI_CALL int SaveDC(HDC context);
WINAPI_CALL BOOL RestoreDC(HDC context, int saved);

WINAPI_CALL int SetMapMode(HDC context, int mode);
WINAPI_CALL BOOL SetWindowExtEx(HDC context, int x, int y, SIZE* previous);
WINAPI_CALL BOOL SetViewportExtEx(HDC context, int x, int y, SIZE* previous);
WINAPI_CALL BOOL SetViewportOrgEx(HDC context, int x, int y, POINT* previous);
WINAPI_CALL BOOL LPtoDP(HDC context, POINT* points, int count);
WINAPI_CALL BOOL DPtoLP(HDC context, POINT* points, int count);

WINAPI_CALL HPEN CreatePen(int style, int width, COLORREF color);
WINAPI_CALL HBRUSH CreateSolidBrush(COLORREF color);

/// A brush that repeats a packed bitmap: a BITMAPINFOHEADER with its 32-bit pixels (BI_RGB) behind it. Wherever it
/// fills, its tiles start at the origin of the window. Null for any other kind of bitmap.
WINAPI_CALL HBRUSH CreateDIBPatternBrushPt(const void* packed, UINT usage);

/// The escapement turns the text round its place, in tenths of a degree counter-clockwise.
WINAPI_CALL HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
    DWORD underline, DWORD strike_out, DWORD charset, DWORD output, DWORD clip, DWORD quality, DWORD pitch,
    LPCSTR face);
WINAPI_CALL HGDIOBJ GetStockObject(int index);
WINAPI_CALL COLORREF SetDCBrushColor(HDC context, COLORREF color);
WINAPI_CALL HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
WINAPI_CALL BOOL DeleteObject(HGDIOBJ object);

/// Regions; the clip is in device coordinates, which the mapping does not change. A null region removes it.
WINAPI_CALL HRGN CreateRectRgn(int left, int top, int right, int bottom);
WINAPI_CALL int SelectClipRgn(HDC context, HRGN region);
WINAPI_CALL int IntersectClipRect(HDC context, int left, int top, int right, int bottom);

/// How pens and brushes meet what is there. Filled rectangles, pictures and texts always cover it.
WINAPI_CALL int SetROP2(HDC context, int operation);
WINAPI_CALL BOOL MoveToEx(HDC context, int x, int y, POINT* previous);

/// Draw up to, and not including, the end.
WINAPI_CALL BOOL LineTo(HDC context, int x, int y);
WINAPI_CALL BOOL Polyline(HDC context, const POINT* points, int count);

WINAPI_CALL BOOL Polygon(HDC context, const POINT* points, int count);

/// Leave out the right and the bottom edge; without a pen one pixel more. A wide pen is centred on the edge. A
/// rectangle whose bottom is above its top is turned round: of the two y, the device row of the larger device
/// coordinate is left out.
WINAPI_CALL BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
WINAPI_CALL BOOL Ellipse(HDC context, int left, int top, int right, int bottom);
WINAPI_CALL int FillRect(HDC context, const RECT* rectangle, HBRUSH brush);
WINAPI_CALL int FrameRect(HDC context, const RECT* rectangle, HBRUSH brush);
WINAPI_CALL COLORREF SetPixel(HDC context, int x, int y, COLORREF color);
WINAPI_CALL COLORREF GetPixel(HDC context, int x, int y);

/// Copies 32-bit pixels (BI_RGB) into the rectangle.
WINAPI_CALL int StretchDIBits(HDC context, int x, int y, int width, int height, int source_x, int source_y,
    int source_width, int source_height, const void* pixels, const BITMAPINFO* description, UINT usage,
    DWORD operation);

/// How wide the screen is: in pixels of the program (HORZRES), or in its own (DESKTOPHORZRES). @return 0 for any other
/// question
WINAPI_CALL int GetDeviceCaps(HDC context, int index);

/// A context that holds a bitmap, as a source for AlphaBlend. Nothing is drawn in it.
WINAPI_CALL HDC CreateCompatibleDC(HDC like);
WINAPI_CALL BOOL DeleteDC(HDC context);

/// A bitmap of 32-bit pixels, the top row first, all 0; null for any other kind. @param bits  receives its pixels,
/// which the program may write until it deletes the bitmap
WINAPI_CALL HBITMAP CreateDIBSection(
    HDC like, const BITMAPINFO* description, UINT usage, void** bits, HANDLE section, DWORD offset);

/// Draws a part of the bitmap in `source` over what is there; colours are multiplied by their alpha already. Of another
/// size it is smoothed. @param how AC_SRC_OVER, 0, 255, AC_SRC_ALPHA
WINAPI_CALL BOOL AlphaBlend(HDC context, int x, int y, int width, int height, HDC source, int source_x, int source_y,
    int source_width, int source_height, BLENDFUNCTION how);

WINAPI_CALL COLORREF SetTextColor(HDC context, COLORREF color);
WINAPI_CALL int SetBkMode(HDC context, int mode);
WINAPI_CALL UINT SetTextAlign(HDC context, UINT align);
WINAPI_CALL BOOL TextOutW(HDC context, int x, int y, LPCWSTR text, int length);
WINAPI_CALL BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, SIZE* size);
WINAPI_CALL BOOL GetTextMetricsA(HDC context, TEXTMETRICA* metrics);
