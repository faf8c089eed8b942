#pragma once

#include "platform/windows_api.h"

namespace bench {

/// A window of its own on the screen, which does nothing. @param width of it with its frame, pixels @param height
/// likewise
HWND shown_window(int width, int height);

}
