#include "host/basics.h"
#include "hostkit/gadgets/paint.h"
#include "hostkit/gadgets/tga.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unordered_map>

namespace {

// A picture as the platform keeps it, until the process ends.
struct Icon {
    HDC context = nullptr; // null: there is none
    int width = 0;
    int height = 0;
};

// Of a file that is much larger than an icon no more than shows it to be none.
std::string content_of(const std::string& path)
{
    std::string bytes(1 << 19, '\0');
    std::ifstream file(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(file.gcount()));
    return bytes;
}

Icon to_icon(const hostkit::Alpha_Picture& picture)
{
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = picture.width;
    description.bmiHeader.biHeight = -picture.height;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    description.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    const HDC context = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(context, &description, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (!bitmap) {
        DeleteDC(context);
        return {};
    }
    std::copy(picture.pixels.begin(), picture.pixels.end(), static_cast<unsigned*>(pixels));
    SelectObject(context, bitmap);
    return {context, picture.width, picture.height};
}

// Every file is read once, also one that is missing or broken.
const Icon& icon_of(const std::string& path)
{
    static auto& icons = *new std::unordered_map<std::string, Icon>;
    if (const auto found = icons.find(path); found != icons.end())
        return found->second;
    const auto picture = hostkit::read_tga(content_of(path));
    return icons.emplace(path, picture ? to_icon(*picture) : Icon{}).first->second;
}

std::string with_separator(const char* folder)
{
    std::string result = folder && *folder ? folder : Prog_Name;
    if (!result.empty() && result.back() != '/' && result.back() != '\\')
        result += '/';
    return result;
}

bool screen_is_finer()
{
    return GetDeviceCaps(Y_DC, DESKTOPHORZRES) > GetDeviceCaps(Y_DC, HORZRES);
}

bool draw(const Icon& icon, int x, int y, int width, int height)
{
    const hostkit::Upright upright({x, y, width, height});
    return AlphaBlend(Y_DC, upright.corner.x, upright.corner.y, width, height, icon.context, 0, 0, icon.width,
        icon.height, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

bool draw_file(int x, int y, const std::string& folder, const char* file)
{
    if (screen_is_finer()) {
        const Icon& fine = icon_of(folder + "2x/" + file);
        if (fine.context)
            return draw(fine, x, y, fine.width / 2, fine.height / 2);
    }
    const Icon& icon = icon_of(folder + file);
    return icon.context && draw(icon, x, y, icon.width, icon.height);
}

}

int Icon_Draw_Image(const Boxs*, int x, int y, const char* folder, const char* file)
{
    if (!Y_DC || !file || !*file)
        return 0;
    try {
        return draw_file(x, y, with_separator(folder), file);
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
