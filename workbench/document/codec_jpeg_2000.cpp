#include "workbench/document/codecs.h"

#include <openjpeg.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace document {

namespace {

/// Bytes in memory as the decoder reads them.
struct Source {
    std::span<const std::byte> bytes;
    std::size_t at = 0;
};

OPJ_SIZE_T read_source(void* target, OPJ_SIZE_T most, void* user)
{
    auto& source = *static_cast<Source*>(user);
    const auto count = std::min<std::size_t>(most, source.bytes.size() - source.at);
    std::memcpy(target, source.bytes.data() + source.at, count);
    source.at += count;
    return count > 0 ? count : OPJ_SIZE_T(-1);
}

OPJ_OFF_T skip_source(OPJ_OFF_T count, void* user)
{
    auto& source = *static_cast<Source*>(user);
    if (count < 0 || std::size_t(count) > source.bytes.size() - source.at)
        return -1;
    source.at += std::size_t(count);
    return count;
}

OPJ_BOOL seek_source(OPJ_OFF_T place, void* user)
{
    auto& source = *static_cast<Source*>(user);
    if (place < 0 || std::size_t(place) > source.bytes.size())
        return OPJ_FALSE;
    source.at = std::size_t(place);
    return OPJ_TRUE;
}

using Stream = std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)>;
using Codec = std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)>;
using Image = std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)>;

Stream stream_of(Source& source)
{
    Stream stream(opj_stream_default_create(OPJ_TRUE), &opj_stream_destroy);
    if (stream) {
        opj_stream_set_read_function(stream.get(), read_source);
        opj_stream_set_skip_function(stream.get(), skip_source);
        opj_stream_set_seek_function(stream.get(), seek_source);
        opj_stream_set_user_data(stream.get(), &source, nullptr);
        opj_stream_set_user_data_length(stream.get(), source.bytes.size());
    }
    return stream;
}

/// Without handlers it prints nothing; by itself it takes a picture that is cut off for whole.
Codec codec_for(std::span<const std::byte> stream)
{
    constexpr std::array<unsigned char, 12> box = {0, 0, 0, 12, 'j', 'P', ' ', ' ', 0x0D, 0x0A, 0x87, 0x0A};
    const bool boxed = stream.size() > box.size() && std::memcmp(stream.data(), box.data(), box.size()) == 0;
    Codec codec(opj_create_decompress(boxed ? OPJ_CODEC_JP2 : OPJ_CODEC_J2K), &opj_destroy_codec);
    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    if (codec && !(opj_setup_decoder(codec.get(), &parameters) && opj_decoder_set_strict_mode(codec.get(), OPJ_TRUE)))
        codec.reset();
    return codec;
}

bool fits(const opj_image_t& image, const FrameShape& shape)
{
    const auto fits = [&](const opj_image_comp_t& plane) {
        return plane.w == OPJ_UINT32(shape.columns) && plane.h == OPJ_UINT32(shape.rows) && plane.dx == 1 &&
               plane.dy == 1 && plane.prec == image.comps[0].prec && int(plane.prec) <= 8 * shape.bytes;
    };
    return image.numcomps == OPJ_UINT32(shape.samples) && std::all_of(image.comps, image.comps + image.numcomps, fits);
}

template <class Sample>
void copy_plane(const OPJ_INT32* plane, std::size_t pixels, Sample* target, std::size_t step)
{
    for (std::size_t i = 0; i < pixels; ++i)
        target[i * step] = Sample(plane[i]);
}

bool copy_planes(const opj_image_t& image, const FrameShape& shape, std::span<std::byte> target)
{
    const auto samples = std::size_t(shape.samples);
    for (std::size_t sample = 0; sample < samples; ++sample) {
        const auto* const plane = image.comps[sample].data;
        const auto pixels = shape.count() / samples;
        auto* const first = target.data() + sample * std::size_t(shape.bytes);
        if (!plane)
            return false;
        if (shape.bytes == 1)
            copy_plane(plane, pixels, reinterpret_cast<std::uint8_t*>(first), samples);
        else if (shape.bytes == 2)
            copy_plane(plane, pixels, reinterpret_cast<std::uint16_t*>(first), samples);
        else if (shape.bytes == 4)
            copy_plane(plane, pixels, reinterpret_cast<std::uint32_t*>(first), samples);
        else
            copy_plane(plane, pixels, reinterpret_cast<std::int64_t*>(first), samples);
    }
    return true;
}

/// Whether the decoder turned brightness and chroma into red, green and blue.
bool was_transformed(opj_codec_t& codec)
{
    auto* info = opj_get_cstr_info(&codec);
    const bool transformed = info && info->m_default_tile_info.mct != 0;
    opj_destroy_cstr_info(&info);
    return transformed;
}

}

std::optional<Decoded> decode_jpeg_2000(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target)
{
    Source source{stream};
    const auto input = stream_of(source);
    const auto codec = codec_for(stream);
    if (!input || !codec)
        return {};
    opj_image_t* found = nullptr;
    const bool headed = opj_read_header(input.get(), codec.get(), &found);
    const Image image(found, &opj_image_destroy);
    if (!headed || !image || !fits(*image, shape))
        return {};
    if (!opj_decode(codec.get(), input.get(), image.get()) || !fits(*image, shape))
        return {};
    if (!copy_planes(*image, shape, target))
        return {};
    Decoded decoded{int(image->comps[0].prec), {}};
    if (was_transformed(*codec))
        decoded.is_ybr = false;
    return decoded;
}

}
