#include "tools/brush_shape.h"

#include <algorithm>
#include <cstring>

namespace tools {

namespace {

void set_symmetric(unsigned char* const* rows, int centre, int dx, int dy)
{
    rows[centre - dy][centre - dx] = 1;
    rows[centre + dy][centre - dx] = 1;
    rows[centre - dy][centre + dx] = 1;
    rows[centre + dy][centre + dx] = 1;
}

// A button's pictures seen as one grid of pixels.
struct Picture_Grid {
    unsigned* const (&pictures)[4];
    int width;
    int height;

    unsigned& pixel(int number, int x, int y) const { return pictures[number - 1][y * width + x]; }
    bool in_disc(int x, int y) const { return pixel(4, x, y) == pixel(2, x, y); }

    bool touches_disc(int x, int y) const
    {
        for (int ny = std::max(y - 1, 0); ny <= std::min(y + 1, height - 1); ++ny) {
            for (int nx = std::max(x - 1, 0); nx <= std::min(x + 1, width - 1); ++nx) {
                if ((nx != x || ny != y) && in_disc(nx, ny))
                    return true;
            }
        }
        return false;
    }

    template <class Visit>
    void for_square(int margin_x, int margin_y, const Visit& visit) const
    {
        for (int y = std::max(margin_y - 1, 0); y <= std::min(height - margin_y, height - 1); ++y) {
            for (int x = std::max(margin_x - 1, 0); x <= std::min(width - margin_x, width - 1); ++x)
                visit(x, y);
        }
    }
};

}

void fill_brush_shape(unsigned char* const* rows, int half_size, unsigned short size)
{
    for (int row = 0; row <= 2 * half_size; ++row)
        std::memset(rows[row], 0, static_cast<size_t>(2 * half_size + 1));
    if (size < 2) {
        rows[half_size][half_size] = 1;
        return;
    }
    const short limit = radius_squared(size);
    for (int dy = 0; dy <= half_size; ++dy) {
        for (int dx = 0; dx <= half_size && dx * dx + dy * dy < limit; ++dx)
            set_symmetric(rows, half_size, dx, dy);
    }
}

void paint_disc(unsigned* pixels, int width, int height, short limit, unsigned color)
{
    const int centre_x = width / 2;
    const int centre_y = height / 2;
    for (int dy = 0; dy < centre_y; ++dy) {
        for (int dx = 0; dx < centre_x && dx * dx + dy * dy <= limit; ++dx) {
            for (const int y : {centre_y - dy, centre_y + dy}) {
                pixels[y * width + centre_x - dx] = color;
                pixels[y * width + centre_x + dx] = color;
            }
        }
    }
}

void blacken_outline(unsigned* const (&pictures)[4], int width, int height, int margin_x, int margin_y)
{
    constexpr unsigned black = 0;
    const Picture_Grid grid{pictures, width, height};
    grid.for_square(margin_x, margin_y, [&](int x, int y) {
        if (!grid.in_disc(x, y) && grid.touches_disc(x, y))
            grid.pixel(3, x, y) = black;
    });
    grid.for_square(margin_x, margin_y, [&](int x, int y) {
        if (grid.pixel(3, x, y) != black)
            return;
        for (const int number : {2, 1, 4})
            grid.pixel(number, x, y) = black;
    });
}

}
