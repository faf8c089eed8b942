#pragma once

#include "platform/windows_api.h"

#include <string>
#include <vector>

/// What is drawn and posted, instead of drawing and posting it: linked into a program, this takes the place of the
/// platform's calls.
namespace test {

struct Seen_Fill {
    RECT rectangle;
    std::vector<DWORD> pattern; ///< the brush's bitmap; empty for a plain brush
};

struct Seen_Points {
    std::vector<POINT> points;
    COLORREF pen;
};

struct Seen_Drawing {
    std::vector<Seen_Fill> fills;
    std::vector<Seen_Points> polygons;
    std::vector<Seen_Points> lines; ///< polylines that continue each other are one
    std::vector<UINT> posted;
};

/// What was seen since the last call.
Seen_Drawing take_seen_drawing();

/// Called when something is posted.
extern void (*on_post)(UINT message);

}
