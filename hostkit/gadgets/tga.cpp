#include "hostkit/gadgets/tga.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#define STBI_MAX_DIMENSIONS 256
#include <memory>
#include <stb_image.h>

namespace hostkit {

namespace {

unsigned byte_at(std::string_view file, size_t place)
{
    return static_cast<unsigned char>(file[place]);
}

// stb_image takes what is missing at the end for black.
bool is_cut_off(std::string_view file, int width, int height)
{
    constexpr size_t head = 18;
    constexpr unsigned plain_colors = 2;
    if (file.size() < head)
        return true;
    const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
    const size_t content = byte_at(file, 2) == plain_colors ? pixels * (byte_at(file, 16) / 8) : 1;
    return file.size() < head + byte_at(file, 0) + content;
}

unsigned multiplied(unsigned channel, unsigned alpha)
{
    return (channel * alpha + 127) / 255;
}

}

std::optional<Alpha_Picture> read_tga(std::string_view bytes)
{
    constexpr int channels = 4;
    Alpha_Picture picture;
    int of_file = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> loaded(
        stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()), static_cast<int>(bytes.size()),
            &picture.width, &picture.height, &of_file, channels),
        stbi_image_free);
    if (!loaded || is_cut_off(bytes, picture.width, picture.height))
        return std::nullopt;
    const stbi_uc* end = loaded.get() + picture.width * picture.height * channels;
    for (const stbi_uc* pixel = loaded.get(); pixel != end; pixel += channels) {
        const unsigned alpha = pixel[3];
        picture.pixels.push_back(alpha << 24 | multiplied(pixel[0], alpha) << 16 | multiplied(pixel[1], alpha) << 8 |
                                 multiplied(pixel[2], alpha));
    }
    return picture;
}

}
