#include "tests/support/panel_host.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb_image_write.h>

// In a file of its own, so that a program that sees finer pixels can have its own.

namespace test {

void keep_picture(HWND window, const std::string& name)
{
    RECT client{};
    GetClientRect(window, &client);
    std::vector<unsigned char> bytes;
    for (const COLORREF color : pixels(window))
        bytes.insert(bytes.end(), {GetRValue(color), GetGValue(color), GetBValue(color)});
    const std::string path = std::string(VETRA_OUT) + "/" + name + ".png";
    EXPECT_NE(stbi_write_png(path.c_str(), client.right, client.bottom, 3, bytes.data(), client.right * 3), 0) << path;
}

}
