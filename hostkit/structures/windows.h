#pragma once

#include "host/structures.h"

namespace hostkit {

/// The frame that a window shows, or null.
STRUCTURES_API Strato_2D* Window_Frame(const Strato_Window* window);

/// Lets no window show and no variable name `object` or anything below it.
void Windows_Forget(const Strato_2D* object);

void Windows_Reset();

}
