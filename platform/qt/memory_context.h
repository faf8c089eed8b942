#pragma once

#include "platform/windows_api.h"

/// SelectObject for a context that holds a bitmap. @return the bitmap that it held; null when it is no such context or
/// the object no bitmap
HGDIOBJ select_bitmap(HDC context, HGDIOBJ bitmap);
