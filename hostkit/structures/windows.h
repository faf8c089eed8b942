#pragma once

#include "host/structures.h"

namespace hostkit {

/// Lets no window show and no variable name `object` or anything below it.
void Windows_Forget(const Strato* object);

void Windows_Reset();

/// Whether `"$INTERFACE_LOCK_FOCUS"` is set: somebody works on what is shown, and the user must not go elsewhere.
bool Focus_Is_Locked();

}
