#include "workbench/document/samples.h"

#include <dcmtk/config/osconfig.h>
#include <dcmtk/dcmjpeg/djcparam.h>
#include <dcmtk/dcmjpeg/djdijg12.h>
#include <dcmtk/dcmjpeg/djdijg16.h>
#include <dcmtk/dcmjpeg/djdijg8.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace document {

namespace {

/// What the segments before the coded data tell.
struct JpegHeader {
    int bits = 0, rows = 0, columns = 0, components = 0;
    std::optional<bool> is_ybr;
};

int byte_at(std::span<const std::byte> stream, std::size_t at)
{
    return at < stream.size() ? std::to_integer<int>(stream[at]) : 0;
}

int word_at(std::span<const std::byte> stream, std::size_t at)
{
    return byte_at(stream, at) << 8 | byte_at(stream, at + 1);
}

JpegHeader header_of(std::span<const std::byte> stream)
{
    constexpr int scan = 0xDA, colour_note = 0xEE;
    JpegHeader header;
    for (std::size_t at = 2; at + 4 <= stream.size() && byte_at(stream, at) == 0xFF;) {
        const int mark = byte_at(stream, at + 1);
        if (mark == 0xFF) { // padding
            ++at;
            continue;
        }
        if (mark == scan)
            break;
        // The frame's marks, without those that are tables.
        if (mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC)
            header = {byte_at(stream, at + 4), word_at(stream, at + 5), word_at(stream, at + 7),
                byte_at(stream, at + 9), header.is_ybr};
        const auto length = std::size_t(word_at(stream, at + 2));
        constexpr std::size_t whole_note = 14; // shorter ones occur, and say nothing
        const bool adobe = mark == colour_note && length >= whole_note && stream.size() >= at + 2 + length &&
                           std::memcmp(stream.data() + at + 4, "Adobe", 5) == 0;
        if (adobe)
            header.is_ybr = byte_at(stream, at + 15) != 0;
        at += 2 + length;
    }
    return header;
}

/// One of the three builds of the decoder, which would print its warnings.
template <class Base>
class Silent : public Base {
public:
    using Base::Base;
    void emitMessage(int) const override {}
};

template <class Base>
bool decode_with(std::span<const std::byte> stream, std::span<std::byte> target)
{
    const DJCodecParameter as_it_is(ECC_lossyYCbCr, EDC_never, EUC_default, EPC_default);
    Silent<Base> decoder(as_it_is, OFFalse);
    // It only reads the stream.
    auto* const bytes = reinterpret_cast<Uint8*>(const_cast<std::byte*>(stream.data()));
    return decoder.init().good() && decoder
                                        .decode(bytes, Uint32(stream.size()), reinterpret_cast<Uint8*>(target.data()),
                                            Uint32(target.size()), OFFalse)
                                        .good();
}

}

std::optional<Decoded> decode_jpeg(
    std::span<const std::byte> stream, const FrameShape& shape, std::span<std::byte> target)
{
    constexpr std::size_t most = UINT32_MAX;
    const auto header = header_of(stream);
    const int bytes = header.bits <= 8 ? 1 : 2;
    if (header.bits < 2 || header.bits > 16 || header.rows != shape.rows || header.columns != shape.columns ||
        header.components != shape.samples || bytes > shape.bytes || stream.size() > most)
        return {};
    std::vector<std::byte> samples(shape.count() * std::size_t(bytes));
    if (samples.size() > most)
        return {};
    const bool decoded = header.bits <= 8    ? decode_with<DJDecompressIJG8Bit>(stream, samples)
                         : header.bits <= 12 ? decode_with<DJDecompressIJG12Bit>(stream, samples)
                                             : decode_with<DJDecompressIJG16Bit>(stream, samples);
    if (!decoded)
        return {};
    widen(samples, bytes, shape, target);
    return Decoded{header.bits, header.is_ybr};
}

}
