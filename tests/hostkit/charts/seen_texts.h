#pragma once

#include "platform/windows_api.h"

#include <string>
#include <vector>

/// The texts that are drawn, instead of drawing them: linked into a program, this takes the place of the platform's
/// call.
namespace test {

struct Seen_Text {
    std::basic_string<WCHAR> text;
    RECT place; ///< client coordinates, y downward
};

/// What was seen since the last call.
std::vector<Seen_Text> take_seen_texts();

}
