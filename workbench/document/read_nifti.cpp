#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace document {

namespace {

constexpr std::size_t header_bytes = 348;

/// The fields of a NIfTI-1 (or Analyze 7.5) header that tell of its voxels.
class NiftiHeader {
public:
    explicit NiftiHeader(const std::string& bytes) : bytes_(bytes)
    {
        const auto count = field<std::int16_t>(40);
        swapped_ = count < 1 || count > 7;
    }

    bool swapped() const { return swapped_; }
    bool is_nifti() const { return bytes_.compare(344, 2, "n+") == 0 || bytes_.compare(344, 2, "ni") == 0; }
    bool single_file() const { return bytes_.compare(344, 2, "n+") == 0; }
    std::int16_t datatype() const { return field<std::int16_t>(70); }
    float vox_offset() const { return field<float>(108); }
    double slope() const { return double(field<float>(112)); }
    double intercept() const { return double(field<float>(116)); }
    double display_high() const { return double(field<float>(124)); }
    double display_low() const { return double(field<float>(128)); }

    std::vector<std::int64_t> sizes() const
    {
        const int count = std::clamp<int>(field<std::int16_t>(40), 1, 7);
        std::vector<std::int64_t> sizes;
        for (int i = 1; i <= count; ++i)
            sizes.push_back(field<std::int16_t>(40 + 2 * std::size_t(i)));
        return sizes;
    }

private:
    template <class Field>
    Field field(std::size_t offset) const
    {
        char raw[sizeof(Field)];
        std::copy_n(bytes_.data() + offset, sizeof raw, raw);
        if (swapped_)
            std::reverse(raw, raw + sizeof raw);
        Field value;
        std::memcpy(&value, raw, sizeof raw);
        return value;
    }

    const std::string& bytes_;
    bool swapped_ = false;
};

bool take_type(Layout& layout, int datatype)
{
    switch (datatype) {
    case 2:
        layout.element = Element::u8;
        return true;
    case 4:
        layout.element = Element::i16;
        return true;
    case 8:
        layout.element = Element::i32;
        return true;
    case 16:
        layout.element = Element::f32;
        return true;
    case 64:
        layout.element = Element::f64;
        return true;
    case 128: // red, green, blue
        layout.element = Element::u8;
        layout.components = 3;
        return true;
    case 256:
        layout.element = Element::i8;
        return true;
    case 512:
        layout.element = Element::u16;
        return true;
    case 768:
        layout.element = Element::u32;
        return true;
    case 1024:
        layout.element = Element::i64;
        return true;
    case 1280:
        layout.element = Element::u64;
        return true;
    case 2304: // and transparency
        layout.element = Element::u8;
        layout.components = 4;
        return true;
    default:
        return false;
    }
}

/// The other file of a pair: x.img for x.hdr, compressed or not.
std::filesystem::path voxel_file(const std::filesystem::path& header)
{
    const auto text = header.string();
    const auto stem = text.substr(0, text.size() - extension_of(header).size());
    for (const char* extension : {".img", ".img.gz", ".IMG"})
        if (std::error_code error; std::filesystem::exists(stem + extension, error))
            return stem + extension;
    return stem + ".img";
}

void take_scale(Volume& volume, const NiftiHeader& header)
{
    const double slope = header.slope(), intercept = header.intercept();
    if (header.is_nifti() && std::isfinite(slope) && slope != 0 && std::isfinite(intercept) && !volume.is_colour()) {
        volume.slope = slope;
        volume.intercept = intercept;
    }
    const double low = header.display_low(), high = header.display_high();
    if (std::isfinite(low) && std::isfinite(high) && high > low && !volume.is_colour())
        volume.header_window = {low + (high - low) / 2, high - low};
}

std::optional<Failure> wrong_name(const std::filesystem::path& path, bool gzip)
{
    const auto extension = extension_of(path);
    if (gzip && (extension == ".nii" || extension == ".hdr"))
        return Failure{quoted(path) + " is compressed although its name does not say so. Rename it to end in \"" +
                       extension + ".gz\"."};
    for (const char* known : {".nii", ".nii.gz", ".hdr", ".hdr.gz"})
        if (extension == known)
            return {};
    return Failure{
        quoted(path) + " is a NIfTI image, but its name does not end in \".nii\" or \".nii.gz\". Rename it."};
}

Result<Opened> read_described(
    const std::filesystem::path& path, const NiftiHeader& nifti, bool gzip, const Progress& progress)
{
    Layout layout;
    layout.swapped = nifti.swapped();
    if (!take_type(layout, nifti.datatype()))
        return Failure{quoted(path) + " has voxels of NIfTI type " + std::to_string(nifti.datatype()) +
                       " (complex or extended numbers), which cannot be shown. Convert it to real numbers."};
    if (const auto failure = take_sizes(layout, nifti.sizes(), path))
        return *failure;
    VoxelSource source;
    source.header = path;
    source.files = {nifti.single_file() ? path : voxel_file(path)};
    const bool compressed = nifti.single_file() ? gzip : extension_of(source.files[0]).ends_with(".gz");
    source.encoding = compressed ? VoxelSource::Encoding::deflated : VoxelSource::Encoding::raw;
    const double offset = double(nifti.vox_offset());
    source.skip = offset > 0 && offset < 1e9 ? std::uint64_t(offset) : 0;
    if (nifti.single_file())
        source.skip = std::max<std::uint64_t>(source.skip, header_bytes + 4);
    auto opened = read_volume(Format::nifti, source, layout, progress);
    if (opened)
        take_scale(opened->volume, nifti);
    return opened;
}

}

Result<Opened> read_nifti(const std::filesystem::path& path, const Progress& progress)
{
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    const auto head = read_head(*file, header_bytes);
    if (head.bytes.size() < header_bytes)
        return Failure{quoted(path) + " is cut off inside its header. Get a complete copy of the file."};
    if (const auto failure = wrong_name(path, head.gzip))
        return *failure;
    return read_described(path, NiftiHeader(head.bytes), head.gzip, progress);
}

}
