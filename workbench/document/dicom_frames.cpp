#include "workbench/document/dicom_frames.h"

#include "workbench/document/codecs.h"
#include "workbench/document/dicom_file.h"
#include "workbench/document/plain_samples.h"
#include "workbench/document/samples.h"
#include "workbench/document/text.h"

#include <cstring>
#include <string_view>

namespace document {

namespace {

using Decoder = std::optional<Decoded> (*)(std::span<const std::byte>, const FrameShape&, std::span<std::byte>);

bool begins_with(std::span<const std::byte> stream, std::string_view bytes)
{
    return stream.size() > bytes.size() && std::memcmp(stream.data(), bytes.data(), bytes.size()) == 0;
}

/// By content as far as that tells: headers err.
Decoder decoder_for(std::span<const std::byte> stream, const std::string& syntax)
{
    constexpr std::string_view common = "1.2.840.10008.1.2.";
    if (syntax == std::string(common) + "5")
        return decode_rle;
    if (syntax == std::string(common) + "4.80" || syntax == std::string(common) + "4.81")
        return decode_jpeg_ls;
    if (begins_with(stream, "\xFF\xD8\xFF"))
        return decode_jpeg;
    if (begins_with(stream, "\xFF\x4F\xFF\x51") || begins_with(stream, std::string_view("\0\0\0\x0CjP  ", 8)))
        return decode_jpeg_2000;
    return nullptr;
}

Element unsigned_like(Element type)
{
    switch (type) {
    case Element::i8:
        return Element::u8;
    case Element::i16:
        return Element::u16;
    case Element::i32:
        return Element::u32;
    default:
        return type;
    }
}

Failure damaged(const DicomHeader& header, int frame)
{
    const auto which = header.pixels.frames > 1 ? "its frame " + std::to_string(frame + 1) : std::string("its picture");
    return Failure{quoted(header.path) + " is damaged: " + which + " cannot be unpacked. Get a new copy of the file."};
}

}

Result<Layout> layout_of(const DicomHeader& header)
{
    const auto& pixels = header.pixels;
    for (const char* retired : {"HSV", "ARGB", "CMYK"})
        if (pixels.photometric == retired)
            return Failure{quoted(header.path) + " has colours of a kind that cannot be shown (" + retired +
                           "). Convert it to RGB."};
    const auto element = pixels.element();
    if (!element)
        return Failure{quoted(header.path) + " is damaged: its header does not say how many bits its pixels have."
                                             " Get a new copy of the file."};
    Layout layout;
    layout.element = pixels.is_colour() ? Element::u8 : *element;
    layout.components = pixels.is_colour() ? 3 : pixels.samples;
    layout.size = {pixels.columns, pixels.rows, 1};
    return layout;
}

Result<DicomFrames> DicomFrames::open(const DicomHeader& header)
{
    auto file = open_dicom(header.path);
    if (!file)
        return file.failure();
    return DicomFrames(header, std::move(*file));
}

DicomFrames::DicomFrames(const DicomHeader& header, InputFile file)
    : header_(header), type_(header.pixels.element().value_or(Element::u8)),
      file_(std::make_unique<InputFile>(std::move(file)))
{
    const auto& pixels = header.pixels;
    if (pixels.fragments > 0)
        fragments_.emplace(*file_, pixels);
    if (pixels.is_colour()) {
        colours_.emplace(*file_, pixels);
        type_ = unsigned_like(type_);
    }
}

std::optional<Failure> DicomFrames::read(int frame, std::span<std::byte> target) const
{
    const auto& pixels = header_.pixels;
    std::vector<std::byte> samples(colours_ ? pixels.samples_of_frame() * bytes_of(type_) : 0);
    const auto stored = colours_ ? std::span(samples) : target;
    int bits = pixels.bits_allocated;
    bool is_ybr = pixels.photometric == "YBR_FULL" || pixels.photometric.ends_with("_422");
    if (fragments_) {
        if (const auto failure = read_compressed(frame, stored, bits, is_ybr))
            return failure;
    } else if (!read_plain(*file_, pixels, frame, stored)) {
        return Failure{quoted(header_.path) + " changed while it was read. Open it again."};
    }
    // Decoders may deliver the stored bits alone, or all that are allocated.
    const bool all = bits > pixels.high_bit;
    const int kept = all ? pixels.bits_stored : bits;
    if (kept < int(8 * bytes_of(type_)))
        keep_bits(stored, type_, all ? pixels.high_bit + 1 - pixels.bits_stored : 0, kept);
    if (colours_)
        colours_->convert(samples, type_, kept, is_ybr, target);
    return {};
}

std::optional<Failure> DicomFrames::read_compressed(
    int frame, std::span<std::byte> target, int& bits, bool& is_ybr) const
{
    const auto& pixels = header_.pixels;
    const auto stream = fragments_->frame(frame);
    const auto decoder = decoder_for(stream, pixels.syntax);
    if (!stream.empty() && !decoder)
        return Failure{quoted(header_.path) + " is compressed in a way that cannot be read (transfer syntax " +
                       pixels.syntax + "). Save it uncompressed, or in another one."};
    const FrameShape shape{pixels.columns, pixels.rows, pixels.samples, int(bytes_of(type_))};
    const auto decoded = decoder ? decoder(stream, shape, target) : std::nullopt;
    if (!decoded)
        return damaged(header_, frame);
    bits = decoded->bits;
    is_ybr = decoded->is_ybr.value_or(is_ybr);
    return {};
}

}
