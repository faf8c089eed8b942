#include "hostkit/gadgets/paint.h"

void Icon_Lead_Leaf(const Boxs*, int, int, int, int, int) {}
void Icon_Lead_Expand(const Boxs*, int, int, int, int, int) {}
void Icon_Lead_Collapse(const Boxs*, int, int, int, int, int) {}
void Icon_Lead_No_Access(const Boxs*, int, int, int, int, int) {}
