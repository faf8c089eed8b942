#include "hostkit/gadgets/paint.h"

#include <algorithm>

// The four pictures of a push button: a flat face, a little lighter the more it is in use, and a frame.

namespace {

struct Face {
    Colors inside;
    Colors frame;
};

Face face_of(const Tools& button, int number)
{
    using hostkit::blend;
    constexpr int lift[] = {16, 40, 6, 60};
    const Colors inside = blend(button.text, button.back, lift[number - 1]);
    const Colors frame = number == 4 ? button.text : number == 2 ? blend(button.text, button.frame, 60) : button.frame;
    return {inside, frame};
}

void paint_face(unsigned* pixels, int width, int height, int thickness, Face face)
{
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int from_edge = std::min({x, y, width - 1 - x, height - 1 - y});
            *pixels++ = hostkit::to_picture_pixel(from_edge < thickness ? face.frame : face.inside);
        }
    }
}

}

unsigned* Buttons::Picture(int number)
{
    const bool stale = pictures_.width() != width || pictures_.height() != height;
    if (stale && !Build_Pictures())
        return nullptr;
    return pictures_.pixels(number - 1);
}

bool Buttons::Build_Pictures()
{
    if (!pictures_.allocate(width, height))
        return false;
    const int thickness = std::min<int>(border, BORDER);
    for (int number = 1; number <= 4; ++number)
        paint_face(pictures_.pixels(number - 1), width, height, thickness, face_of(*this, number));
    // Whatever the area's colours are: who paints a disc into the pictures tells it from the face by these differences.
    unsigned* highlighted = pictures_.pixels(1);
    unsigned* pressed_down = pictures_.pixels(2);
    unsigned* current = pictures_.pixels(3);
    for (int i = 0; i < width * height; ++i) {
        if (current[i] == highlighted[i])
            current[i] ^= 0x010101;
        if (pressed_down[i] == 0)
            pressed_down[i] = 0x010101;
    }
    return true;
}
