#include "workbench/document/dicom_pixels.h"

#include <algorithm>

namespace document {

namespace {

/// What a sample takes in the file.
int cell_bits(int allocated)
{
    if (allocated <= 1)
        return 1;
    return allocated <= 8 ? 8 : allocated <= 16 ? 16 : allocated <= 32 ? 32 : 64;
}

}

void DicomPixels::settle()
{
    frames = std::max(frames, 1);
    samples = std::clamp(samples, 1, 255);
    bits_allocated = std::clamp(bits_allocated, 0, 64);
    if (number != Number::integer)
        bits_allocated = bits_stored = number == Number::f32 ? 32 : 64;
    if (photometric.empty())
        photometric = samples == 3 ? "RGB" : "MONOCHROME2";
    if (bits_stored <= 0 || bits_stored > bits_allocated)
        bits_stored = bits_allocated;
    if (high_bit < bits_stored - 1 || high_bit >= bits_allocated)
        high_bit = bits_stored - 1;
}

std::uint64_t DicomPixels::bits_of_frame() const
{
    const auto pixels = std::uint64_t(rows) * std::uint64_t(columns);
    return pixels * std::uint64_t(has_shared_chroma() ? 2 : samples) * std::uint64_t(cell_bits(bits_allocated));
}

std::uint64_t DicomPixels::promised_bytes() const
{
    const auto bits = bits_of_frame();
    const auto count = std::uint64_t(frames);
    return bits > (UINT64_MAX - 7) / count ? UINT64_MAX : (bits * count + 7) / 8;
}

std::optional<Element> DicomPixels::element() const
{
    if (number != Number::integer)
        return number == Number::f32 ? Element::f32 : Element::f64;
    if (bits_allocated == 0)
        return {};
    switch (cell_bits(bits_allocated)) {
    case 1:
        return Element::u8;
    case 8:
        return is_signed ? Element::i8 : Element::u8;
    case 16:
        return is_signed ? Element::i16 : Element::u16;
    case 32:
        return is_signed ? Element::i32 : Element::u32;
    default:
        return is_signed ? Element::i64 : Element::u64;
    }
}

bool DicomPixels::has_shared_chroma() const
{
    return samples == 3 && fragments == 0 && (photometric == "YBR_FULL_422" || photometric == "YBR_PARTIAL_422");
}

bool DicomPixels::is_palette() const
{
    return photometric == "PALETTE COLOR" && samples == 1 && number == Number::integer &&
           std::all_of(tables.begin(), tables.end(), [](const auto& table) { return table.length > 0; });
}

bool DicomPixels::is_colour() const
{
    const bool known = photometric == "RGB" || photometric.starts_with("YBR_");
    return is_palette() || (samples == 3 && known && number == Number::integer && bits_allocated <= 32);
}

}
