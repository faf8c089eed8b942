#include "workbench/document/elements.h"
#include "workbench/document/jpeg.h"
#include "workbench/document/picture_check.h"
#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>

namespace document {

namespace {

Result<PixelMemory> read_with_itk(ItkFile& itk, Layout& layout, const std::filesystem::path& path)
{
    const auto& header = itk.header();
    if (!header.element)
        return Failure{quoted(path) + " has pixels of a kind that cannot be shown. Convert it to grey or colour."};
    layout.element = *header.element;
    layout.components = header.components;
    if (const auto failure = take_sizes(layout, header.size, path))
        return *failure;
    auto memory = allocate_volume(layout, path);
    if (memory)
        if (const auto failure = itk.read(memory->bytes()))
            return *failure;
    return memory;
}

/// A grey picture that its format can only store as a colour one becomes grey again.
void restore_grey(PixelMemory& pixels, Layout& layout)
{
    const auto* const colours = reinterpret_cast<const Rgb*>(pixels.data());
    const std::size_t count = pixels.size() / sizeof(Rgb);
    if (layout.components != 3 || layout.element != Element::u8)
        return;
    const auto is_grey = [](Rgb c) { return c.red == c.green && c.green == c.blue; };
    if (!std::all_of(colours, colours + count, is_grey))
        return;
    auto grey = PixelMemory::allocate(count);
    if (!grey)
        return;
    std::transform(colours, colours + count, grey.data(), [](Rgb c) { return std::byte(c.red); });
    pixels = std::move(grey);
    layout.components = 1;
}

}

Result<Opened> read_picture(Format format, const std::filesystem::path& path, const Progress& progress)
{
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    if (const auto failure = check_picture(format, *file))
        return *failure;
    auto itk = ItkFile::open(format, path);
    if (!itk)
        return itk.failure();
    if (progress.stop())
        return Failure{"Reading was stopped.", true};
    Layout layout;
    auto pixels = format == Format::jpeg ? read_jpeg(*file, layout) : read_with_itk(*itk, layout, path);
    if (!pixels)
        return pixels.failure();
    if (format == Format::bmp)
        restore_grey(*pixels, layout);

    Opened opened;
    opened.volume.geometry = itk->header().geometry;
    if (const auto failure = take_elements(opened.volume, opened.notices, std::move(*pixels), layout, path))
        return *failure;
    // Grey with transparency is grey: nothing to tell.
    if (layout.components == 2)
        opened.notices.clear();
    progress.at(1);
    return opened;
}

}
