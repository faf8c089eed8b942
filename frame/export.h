#pragma once

#include "platform/windows_api.h"

#ifdef VETRA_TOOLS_BUILD
#define VETRA_TOOLS_API VETRA_EXPORT
#else
#define VETRA_TOOLS_API VETRA_IMPORT
#endif
