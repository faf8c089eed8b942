#include "hostkit/gadgets/tga.h"

#include <algorithm>

namespace hostkit {

namespace {

// Takes a file to pieces; what lies behind its end is 0, and remembered.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : rest_(bytes) {}

    unsigned byte()
    {
        const std::string_view taken = take(1);
        return taken.empty() ? 0 : static_cast<unsigned char>(taken[0]);
    }

    unsigned word()
    {
        const unsigned low = byte();
        return low | byte() << 8;
    }

    std::string_view take(size_t count)
    {
        whole_ = whole_ && count <= rest_.size();
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    bool whole() const { return whole_; }

private:
    std::string_view rest_;
    bool whole_ = true;
};

struct Header {
    bool packed;
    bool top_row_first;
    bool has_alpha;
    int width;
    int height;
};

std::optional<Header> read_header(Bytes& file)
{
    constexpr unsigned plain_colors = 2;
    constexpr unsigned packed_colors = 10;
    constexpr unsigned most_pixels = 256; // along an edge
    const unsigned text_length = file.byte();
    const unsigned has_palette = file.byte();
    const unsigned kind = file.byte();
    file.take(5 + 4); // palette, place
    const unsigned width = file.word();
    const unsigned height = file.word();
    const unsigned depth = file.byte();
    const unsigned order = file.byte();
    file.take(text_length);
    const bool has_size = width > 0 && width <= most_pixels && height > 0 && height <= most_pixels;
    const bool from_the_right = (order & 0x10) != 0;
    if (!file.whole() || has_palette || (kind != plain_colors && kind != packed_colors) || !has_size ||
        (depth != 24 && depth != 32) || from_the_right)
        return std::nullopt;
    return Header{
        kind == packed_colors, (order & 0x20) != 0, depth == 32, static_cast<int>(width), static_cast<int>(height)};
}

unsigned multiplied(unsigned channel, unsigned alpha)
{
    return (channel * alpha + 127) / 255;
}

unsigned read_pixel(Bytes& file, bool has_alpha)
{
    const unsigned blue = file.byte();
    const unsigned green = file.byte();
    const unsigned red = file.byte();
    const unsigned alpha = has_alpha ? file.byte() : 255;
    return alpha << 24 | multiplied(red, alpha) << 16 | multiplied(green, alpha) << 8 | multiplied(blue, alpha);
}

// Runs may reach over the ends of rows.
void read_pixels(Bytes& file, const Header& header, std::vector<unsigned>& pixels, size_t count)
{
    while (pixels.size() < count && file.whole()) {
        const unsigned packet = header.packed ? file.byte() : 0;
        const size_t length = std::min<size_t>((packet & 0x7f) + 1, count - pixels.size());
        if (packet & 0x80) {
            pixels.insert(pixels.end(), length, read_pixel(file, header.has_alpha));
            continue;
        }
        for (size_t i = 0; i < length; ++i)
            pixels.push_back(read_pixel(file, header.has_alpha));
    }
}

void turn_over(Alpha_Picture& picture)
{
    const auto row = [&](int y) { return picture.pixels.begin() + y * picture.width; };
    for (int y = 0; y < picture.height / 2; ++y)
        std::swap_ranges(row(y), row(y + 1), row(picture.height - 1 - y));
}

}

std::optional<Alpha_Picture> read_tga(std::string_view bytes)
{
    Bytes file(bytes);
    const auto header = read_header(file);
    if (!header)
        return std::nullopt;
    Alpha_Picture picture{header->width, header->height, {}};
    const size_t count = static_cast<size_t>(header->width) * static_cast<size_t>(header->height);
    picture.pixels.reserve(count);
    read_pixels(file, *header, picture.pixels, count);
    if (!file.whole())
        return std::nullopt;
    if (!header->top_row_first)
        turn_over(picture);
    return picture;
}

}
