#include "tests/hostkit/charts/axes_fixture.h"

using test::Axes;
using test::Range;

namespace {

struct Picture {
    const char* name;
    int width;
    int height;
    Range x;
    Range y;
    short scale = 8;
};

constexpr Range tomography{-1228.8f, 3276.8f};
constexpr Range counts{-12345, 135795};

constexpr Picture pictures[] = {
    {"axes-small", 200, 120, tomography, counts},
    {"axes-usual", 784, 292, tomography, counts},
    {"axes-large", 1584, 790, tomography, {-150000, 1650000}},
    {"axes-bytes", 784, 400, {-12.75f, 267.75f}, {-431, 4741}},
    {"axes-zoomed", 784, 400, {1234.5f, 1234.75f}, {1234500, 1234600}},
    {"axes-fractions", 784, 400, {-0.05f, 1.05f}, {-2, 22}},
    {"axes-words", 784, 400, {-3276.75f, 68811.75f}, {-3e7f, 3.3e8f}},
    {"axes-twice-the-size", 784, 400, tomography, counts, 17},
};

class Axes_Picture : public Axes {};

}

TEST_F(Axes_Picture, IsKeptForLookingAt)
{
    for (const Picture& picture : pictures) {
        Make_Box(picture.width, picture.height);
        Draw_X(picture.x, picture.scale);
        Draw_Y(picture.y, picture.scale);
        test::keep_picture(main_window(), picture.name);
    }
}
