#include "workbench/document/jpeg.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <vector>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_JPEG
#define STBI_NO_STDIO
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb_image.h>
#pragma GCC diagnostic pop

namespace document {

namespace {

using Bytes = std::vector<stbi_uc>;

/// Whether the end mark FF D9 comes: segments have a length each; in coded data FF stands before 00 or a restart mark.
bool has_end(const Bytes& bytes)
{
    bool coded = false;
    for (std::size_t at = 2; at + 1 < bytes.size();) {
        const unsigned mark = bytes[at + 1];
        const bool is_mark = bytes[at] == 0xFF && mark != 0 && mark != 0xFF && (mark < 0xD0 || mark > 0xD7);
        if (!is_mark) {
            ++at;
            continue;
        }
        if (mark == 0xD9 && coded)
            return true;
        coded = coded || mark == 0xDA;
        const std::size_t length = at + 3 < bytes.size() ? std::size_t(bytes[at + 2]) << 8 | bytes[at + 3] : 0;
        at += 2 + length;
    }
    return false;
}

Failure damaged(const InputFile& file)
{
    const char* const reason = stbi_failure_reason();
    return Failure{quoted(file.path()) + " is damaged or of a kind of JPEG that cannot be read (" +
                   (reason ? reason : "unknown") + "). Get a new copy of the file, or convert it to PNG."};
}

}

Result<PixelMemory> read_jpeg(const InputFile& file, Layout& layout)
{
    Bytes bytes(file.size());
    bytes.resize(file.read(0, std::as_writable_bytes(std::span(bytes))));
    if (!has_end(bytes))
        return Failure{quoted(file.path()) + " is cut off: it ends after " + bytes_text(file.size()) +
                       ", before its picture does. Get a complete copy of the file."};
    if (bytes.size() > INT_MAX)
        return Failure{quoted(file.path()) + " is too large for a JPEG picture. Convert it to PNG or TIFF."};
    const int size = int(bytes.size());
    int width = 0, height = 0, channels = 0;
    if (!stbi_info_from_memory(bytes.data(), size, &width, &height, &channels))
        return damaged(file);
    layout.element = Element::u8;
    layout.components = channels == 1 ? 1 : 3;
    const std::int64_t sizes[] = {width, height};
    if (const auto failure = take_sizes(layout, sizes, file.path()))
        return *failure;
    auto memory = allocate_volume(layout, file.path());
    if (!memory)
        return memory;
    const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> pixels(
        stbi_load_from_memory(bytes.data(), size, &width, &height, &channels, layout.components), &stbi_image_free);
    if (!pixels)
        return damaged(file);
    std::copy_n(reinterpret_cast<const std::byte*>(pixels.get()), memory->size(), memory->data());
    return memory;
}

}
