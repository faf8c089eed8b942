#pragma once

#include "workbench/document/geometry.h"
#include "workbench/document/pixels.h"
#include "workbench/document/window.h"

#include <array>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace document {

/// What is known of one frame (slice) of a volume.
struct Frame {
    double position = 0;   ///< along the normal of the frames, millimetres
    int instance = 0;      ///< the number that the header gives, else counted from 1
    std::string file;      ///< the file it came from, UTF-8
    bool is_scout = false; ///< made to plan others on
};

/// One contiguous volume of pixels, in the type and with the values that its file stores: x fastest, then y, then z
/// (the frames); a picture is one frame. Row 0 is the upper row on the screen. Movable, never copied.
class Volume {
public:
    PixelType type = PixelType::u8;
    Geometry geometry;
    PixelMemory pixels; ///< geometry.voxels() * bytes_of(type) bytes

    double slope = 1; ///< grey value = stored value * slope + intercept; slope is never 0
    double intercept = 0;
    std::string unit;      ///< of grey values: "HU" for a CT; empty when unknown
    bool inverted = false; ///< low grey values are white
    std::optional<Window> header_window;

    std::string modality; ///< "CT", "MR"...; empty when unknown, as all of these. UTF-8
    std::string patient;
    std::string study;
    std::string study_date; ///< "2024-05-31"
    std::string study_uid, series_uid;
    int series_number = 0;          ///< 0 when unknown
    std::string series;             ///< what the series is called; for files without such a name the file's
    std::vector<Frame> frames;      ///< one each
    std::vector<Frame> left_out;    ///< others of the series, which lie where these are
    std::vector<std::string> files; ///< that it was read from, UTF-8, in the order of the frames

    int width() const { return geometry.size[0]; }
    int height() const { return geometry.size[1]; }
    int frame_count() const { return geometry.size[2]; }
    bool is_colour() const { return type == PixelType::rgb; }
    bool contains(int x, int y, int z) const;

    /// The stored value; of a colour its luminance (0.299 R + 0.587 G + 0.114 B). The voxel must be inside.
    double stored(int x, int y, int z) const;
    /// The grey value, in `unit`. The voxel must be inside.
    double grey(int x, int y, int z) const { return stored(x, y, z) * slope + intercept; }
    /// Only of a colour volume. The voxel must be inside.
    Rgb colour(int x, int y, int z) const;

    /// All pixels, or one frame's, as an array of their type, which must be the type that `type` names.
    template <class Pixel>
    std::span<const Pixel> as() const
    {
        return {reinterpret_cast<const Pixel*>(pixels.data()), geometry.voxels()};
    }
    template <class Pixel>
    std::span<const Pixel> frame_as(int z) const
    {
        return as<Pixel>().subspan(std::size_t(z) * geometry.frame_voxels(), geometry.frame_voxels());
    }
};

/// Calls function(std::type_identity<Pixel>()) with the C++ type of a pixel type: `Rgb` for colour.
template <class Function>
decltype(auto) with_type(PixelType type, Function&& function)
{
    switch (type) {
    case PixelType::u8:
        return function(std::type_identity<std::uint8_t>());
    case PixelType::i8:
        return function(std::type_identity<std::int8_t>());
    case PixelType::u16:
        return function(std::type_identity<std::uint16_t>());
    case PixelType::i16:
        return function(std::type_identity<std::int16_t>());
    case PixelType::u32:
        return function(std::type_identity<std::uint32_t>());
    case PixelType::i32:
        return function(std::type_identity<std::int32_t>());
    case PixelType::f32:
        return function(std::type_identity<float>());
    case PixelType::f64:
        return function(std::type_identity<double>());
    case PixelType::rgb:
        break;
    }
    return function(std::type_identity<Rgb>());
}

/// The value of a voxel as a status bar shows it: "-1024 HU", "0.3333", "R 12 G 3 B 200". The voxel must be inside.
std::string value_text(const Volume& volume, int x, int y, int z);

}
