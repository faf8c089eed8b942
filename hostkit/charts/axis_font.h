#pragma once

#include "host/gadgets.h"

namespace hostkit {

/// The font of tool texts in a size of its own, points. It is kept until the variables change.
HFONT Axis_Font(short scale);

}
