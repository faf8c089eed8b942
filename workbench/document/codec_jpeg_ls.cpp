#include "workbench/document/samples.h"

#include <charls/charls.h>

#include <vector>

namespace document {

std::optional<Decoded> decode_jpeg_ls(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target)
{
    try {
        const charls::jpegls_decoder decoder(stream, true);
        const auto& info = decoder.frame_info();
        const int bytes = info.bits_per_sample <= 8 ? 1 : 2;
        if (info.width != std::uint32_t(shape.columns) || info.height != std::uint32_t(shape.rows) ||
            info.component_count != shape.samples || bytes > shape.bytes)
            return {};
        std::vector<std::byte> samples(shape.count() * std::size_t(bytes));
        decoder.decode(samples);
        if (shape.samples > 1 && decoder.interleave_mode() == charls::interleave_mode::none) {
            const auto planes = samples;
            interleave(planes, {shape.columns, shape.rows, shape.samples, bytes}, samples);
        }
        widen(samples, bytes, shape, target);
        return Decoded{info.bits_per_sample, {}};
    } catch (const charls::jpegls_error&) {
        return {};
    }
}

}
