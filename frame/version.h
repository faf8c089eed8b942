#pragma once

#include "frame/export.h"

/// Which library this is, and whether a host was made for it.
///
/// @param expected  the version that the host was built for, "6.06", or null to ask without a check
/// @return "Vetra_Tools.dll 6.0 (rev-6)", in a buffer of the library that every call writes again; null when the
///         versions differ
VETRA_TOOLS_API char* Get_Version_Strato_Tools(char* expected);
