#pragma once

#include "host/gadgets.h"

namespace hostkit {

/// Records the pointer for the widgets. Unlike Y_Cursor it takes the client point (0, 0) for what it is.
GADGETS_API void Record_Pointer(HWND window, POINT client);

}
