#pragma once

#include "host/gadgets.h"

namespace hostkit {

/// Whether the last press that a row button took was on the mark at its right end: where a panel's host switches an
/// item on or off instead of, or besides, choosing it. No when the button shows no mark.
GADGETS_API bool Pressed_On_Mark();

}
