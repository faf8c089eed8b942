#include "hostkit/gadgets/paint.h"

int Icon_Draw_Image(const Boxs*, int, int, const char*, const char*)
{
    return 0;
}
