#pragma once

#include "workbench/document/geometry.h"
#include "workbench/document/open.h"
#include "workbench/document/pixels.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace document_test {

using Path = std::filesystem::path;

/// A folder that is gone, with all in it, at the end of the test.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    Path operator/(const std::string& name) const { return path_ / name; }
    const Path& path() const { return path_; }
    std::vector<std::string> names() const; ///< of all files in it, sorted

private:
    Path path_;
};

std::string bytes_of_file(const Path& path);
void write_file(const Path& path, std::string_view bytes);
void write_gzip(const Path& path, std::string_view bytes);

/// A geometry that looks like nothing else: turned axes, uneven spacing.
document::Geometry turned_geometry(int x, int y, int z);

/// Writes pixels with ITK, in the format that the extension names; `components` of `type` a pixel.
/// A depth of 1 and a picture's extension write a picture.
void write_image(const Path& path, document::PixelType type, const document::Geometry& geometry, const void* pixels,
    int components = 1, bool compressed = false);

/// What ITK's reader delivers of a file of bytes, and its geometry.
std::vector<std::uint8_t> read_bytes_with_itk(const Path& path, document::Geometry& geometry);

template <class Pixel>
constexpr document::PixelType type_of()
{
    using document::PixelType;
    if constexpr (std::is_same_v<Pixel, std::uint8_t>)
        return PixelType::u8;
    else if constexpr (std::is_same_v<Pixel, std::int8_t>)
        return PixelType::i8;
    else if constexpr (std::is_same_v<Pixel, std::uint16_t>)
        return PixelType::u16;
    else if constexpr (std::is_same_v<Pixel, std::int16_t>)
        return PixelType::i16;
    else if constexpr (std::is_same_v<Pixel, std::uint32_t>)
        return PixelType::u32;
    else if constexpr (std::is_same_v<Pixel, std::int32_t>)
        return PixelType::i32;
    else if constexpr (std::is_same_v<Pixel, float>)
        return PixelType::f32;
    else
        return PixelType::f64;
}

/// Values over the whole range of a type, the ends included, that repeat nowhere near.
template <class Pixel>
std::vector<Pixel> varied_pixels(std::size_t count)
{
    std::vector<Pixel> pixels(count);
    std::uint64_t state = 12345;
    for (auto& pixel : pixels) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        pixel = static_cast<Pixel>(static_cast<std::int64_t>(state) >> 33);
    }
    if constexpr (std::is_integral_v<Pixel>) {
        pixels.front() = std::numeric_limits<Pixel>::min();
        pixels.back() = std::numeric_limits<Pixel>::max();
    }
    return pixels;
}

template <class Pixel>
std::vector<Pixel> pixels_of(const document::Volume& volume)
{
    const auto pixels = volume.as<Pixel>();
    return {pixels.begin(), pixels.end()};
}

/// Runs an action in a process of its own and returns what the action returned.
std::string in_child(const std::function<std::string()>& action);

/// The failure's message; empty when it opened.
std::string message_of(const document::Result<document::Opened>& opened);

/// One DICOM file, written by this fixture byte for byte.
struct Dicom {
    enum class Writing { little_endian, implicit, big_endian, deflated };
    struct Element {
        std::string vr, value; ///< the value's bytes as the file has them
    };

    std::string series_uid = "1.2.3";
    std::string series = "Axial";
    std::string modality = "CT";
    std::string patient = "Doe^Jane";
    std::string character_set;
    std::string photometric = "MONOCHROME2";
    std::string rescale_type;
    std::string slope, intercept; ///< as decimal texts; empty: not there
    std::string window_centre, window_width;
    std::vector<double> position = {0, 0, 0}; ///< empty: not there
    std::vector<double> orientation = {1, 0, 0, 0, 1, 0};
    int instance = 1;
    int rows = 4, columns = 6, frames = 1, samples = 1;
    int bits = 16;
    int bits_stored = 0; ///< 0: all
    int high_bit = -1;   ///< -1: the last of them
    bool is_signed = false, planar = false;
    Writing writing = Writing::little_endian;
    std::string syntax;                    ///< instead of that of the writing
    std::string preamble;                  ///< instead of 128 zeros
    bool bare = false;                     ///< without what comes before the elements of the image
    std::string pixels;                    ///< bytes; shorter than promised for damage. Empty: counted up
    std::vector<std::string> fragments;    ///< instead of pixels: the table, then what is compressed
    std::map<std::uint32_t, Element> more; ///< by group << 16 | element; instead of those above. Without vr: left out
};
void write_dicom(const Path& path, const Dicom& dicom);

/// The value of a sequence of items that have one element each, or sequences in it.
std::string items(const std::vector<std::string>& contents);
std::string element(std::uint32_t tag, const std::string& vr, std::string value,
    Dicom::Writing writing = Dicom::Writing::little_endian);

template <class Pixel>
std::string as_bytes(const std::vector<Pixel>& pixels)
{
    return {reinterpret_cast<const char*>(pixels.data()), pixels.size() * sizeof(Pixel)};
}

/// A compressed one without loss, written by ITK.
enum class Compression { jpeg, jpeg_2000 };
void write_compressed_dicom(const Path& path, int columns, int rows, const std::vector<std::uint16_t>& pixels,
    Compression compression = Compression::jpeg_2000);

/// A stream of JPEG-LS without loss; with several samples a pixel, each of them apart.
std::string jpeg_ls(int columns, int rows, int samples, const std::vector<std::uint16_t>& planes);

}
