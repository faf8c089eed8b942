#include "frame/version.h"

#include <cstdio>
#include <cstring>

char* Get_Version_Strato_Tools(char* expected)
{
    static char text[64];
    if (expected && std::strcmp(expected, "6.06") != 0)
        return nullptr;
    std::snprintf(text, sizeof text, "Vetra_Tools.dll %s (rev-%s)", "6.0", "6");
    return text;
}
