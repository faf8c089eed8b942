#pragma once

// The one seam to the platform: the Windows API itself, or the same calls on Qt, only those that are used.
#include "platform/export.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <commdlg.h>
#else
#include "platform/qt/windows_dialogs.h"
#include "platform/qt/windows_drawing.h"
#include "platform/qt/windows_pointers.h"
#include "platform/qt/windows_types.h"
#include "platform/qt/windows_windows.h"
#endif
