#include "tests/hostkit/charts/seen_texts.h"

#include <utility>

namespace test {

namespace {

std::vector<Seen_Text> seen;

}

std::vector<Seen_Text> take_seen_texts()
{
    return std::exchange(seen, {});
}

}

// Texts are aligned to their upper left corner.
BOOL TextOutW(HDC context, int x, int y, LPCWSTR text, int length)
{
    SIZE size{};
    GetTextExtentPoint32W(context, text, length, &size);
    POINT corner{x, y};
    LPtoDP(context, &corner, 1);
    test::seen.push_back(
        {{text, static_cast<size_t>(length)}, {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy}});
    return TRUE;
}
