#include "workbench/document/guarded.h"
#include "workbench/document/itk_files.h"
#include "workbench/document/label_map.h"
#include "workbench/document/readers.h"
#include "workbench/document/safe_file.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

bool can_write(const std::string& extension)
{
    return extension == ".nii" || extension == ".nii.gz" || extension == ".nrrd" || extension == ".mha";
}

/// A value that is no tag; nothing when all are.
template <class Pixel>
std::optional<double> first_foreign(const Volume& volume, std::span<const Pixel> pixels)
{
    for (const Pixel pixel : pixels)
        if (const double grey = double(pixel) * volume.slope + volume.intercept;
            !(grey >= 0 && grey <= 255 && grey == std::floor(grey)))
            return grey;
    return {};
}

template <class Pixel>
std::optional<Failure> take_tags(LabelMap& labels, const Volume& volume, const std::filesystem::path& path)
{
    const auto pixels = volume.as<Pixel>();
    if (const auto foreign = first_foreign(volume, pixels))
        return Failure{quoted(path) + " holds the value " + number_text(*foreign) +
                       ", but tags are whole numbers from 0 to 255. Choose a label map."};
    std::transform(pixels.begin(), pixels.end(), labels.tags().begin(),
        [&](Pixel pixel) { return std::uint8_t(double(pixel) * volume.slope + volume.intercept); });
    return {};
}

Result<LabelMap> tags_of(Volume volume, const Geometry& geometry, const std::filesystem::path& path)
{
    if (volume.is_colour())
        return Failure{quoted(path) + " is a colour picture, no label map. Choose a file with one number a voxel."};
    if (const auto differs = difference(volume.geometry, geometry); !differs.empty())
        return Failure{quoted(path) + " does not fit to the image: " + differs +
                       ". Choose the label map that was made for this image."};
    if (volume.type == PixelType::u8 && volume.slope == 1 && volume.intercept == 0)
        return LabelMap(geometry, std::move(volume.pixels));
    auto labels = LabelMap::create(geometry);
    if (!labels)
        return labels;
    const auto failure = with_type(volume.type, [&](auto type) -> std::optional<Failure> {
        using Pixel = typename decltype(type)::type;
        if constexpr (!std::is_same_v<Pixel, Rgb>)
            return take_tags<Pixel>(*labels, volume, path);
        return {};
    });
    if (failure)
        return *failure;
    return labels;
}

Result<LabelMap> read_tags(const std::filesystem::path& path, const Geometry& geometry, const Progress& progress)
{
    if (std::error_code error; std::filesystem::is_directory(path, error))
        return Failure{quoted(path) + " is a folder. Choose a label map."};
    auto opened = read_file(path, progress);
    if (!opened)
        return opened.failure();
    if (!opened->notices.empty())
        return Failure{quoted(path) + " is no label map. " + opened->notices[0] +
                       " Choose a file with one number a"
                       " voxel."};
    return tags_of(std::move(opened->volume), geometry, path);
}

std::optional<Failure> write_and_compare(const std::filesystem::path& path, const LabelMap& labels)
{
    if (auto failure = itk_write(path, labels.geometry(), labels.tags()))
        return failure;
    const auto written = read_tags(path, labels.geometry(), {});
    if (!written)
        return Failure{"what was written could not be read back (" + written.failure().message + ")"};
    const auto tags = written->tags();
    if (!std::equal(tags.begin(), tags.end(), labels.tags().begin(), labels.tags().end()))
        return Failure{"what was written reads back differently"};
    return {};
}

}

std::optional<Failure> save_labels(const std::filesystem::path& path, const LabelMap& labels)
{
    return guarded<std::optional<Failure>>(path, [&]() -> std::optional<Failure> {
        if (!can_write(extension_of(path)))
            return Failure{quoted(path) +
                           " has no extension that tells how to save it. Let its name end in \".nii.gz\","
                           " \".nii\", \".nrrd\" or \".mha\"."};
        return replace_file(path, labels.tags().size(),
            [&](const std::filesystem::path& temporary) { return write_and_compare(temporary, labels); });
    });
}

Result<LabelMap> load_labels(const std::filesystem::path& path, const Geometry& geometry, const Progress& progress)
{
    return guarded<Result<LabelMap>>(path, [&] { return read_tags(path, geometry, progress); });
}

}
