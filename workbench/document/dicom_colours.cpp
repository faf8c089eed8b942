#include "workbench/document/dicom_colours.h"

#include <algorithm>

namespace document {

namespace {

template <class Sample>
void narrow(const Sample* samples, std::size_t count, int bits, std::byte* target)
{
    const auto most = (std::uint64_t(1) << bits) - 1;
    if (bits == 8)
        std::transform(samples, samples + count, target, [](Sample sample) { return std::byte(sample); });
    else
        std::transform(samples, samples + count, target,
            [most](Sample sample) { return std::byte((sample * std::uint64_t(255) + most / 2) / most); });
}

/// What turns brightness and chroma into red, green and blue, in 65536ths.
struct Weights {
    int foot, brightness, red_to_red, blue_to_green, red_to_green, blue_to_blue;
};
constexpr Weights full = {0, 65536, 91881, -22554, -46802, 116130};
constexpr Weights partial = {16, 76309, 104597, -25675, -53279, 132201};

std::byte channel(int sum)
{
    return std::byte(std::clamp((sum + 32768) >> 16, 0, 255));
}

void turn_to_rgb(std::span<std::byte> pixels, const Weights& weights)
{
    for (std::size_t i = 0; i + 2 < pixels.size(); i += 3) {
        const int y = (std::to_integer<int>(pixels[i]) - weights.foot) * weights.brightness;
        const int blue = std::to_integer<int>(pixels[i + 1]) - 128, red = std::to_integer<int>(pixels[i + 2]) - 128;
        pixels[i] = channel(y + weights.red_to_red * red);
        pixels[i + 1] = channel(y + weights.blue_to_green * blue + weights.red_to_green * red);
        pixels[i + 2] = channel(y + weights.blue_to_blue * blue);
    }
}

}

DicomColours::DicomColours(const InputFile& file, const DicomPixels& pixels)
    : partial_(pixels.photometric.starts_with("YBR_PARTIAL"))
{
    if (!pixels.is_palette())
        return;
    for (std::size_t i = 0; i < 3; ++i) {
        tables_[i] = read_table(file, pixels.tables[i], pixels.big_endian);
        first_[i] = pixels.tables[i].first;
    }
}

/// Entries have one byte or two. Of two the upper one counts, unless a table uses only the lower ones.
std::vector<std::uint8_t> DicomColours::read_table(
    const InputFile& file, const DicomTable& table, bool big_endian) const
{
    const auto count = std::size_t(std::max(table.entries, 1));
    std::vector<std::byte> bytes(std::min<std::uint64_t>(table.length, 2 * count));
    file.read(table.offset, bytes);
    std::vector<std::uint8_t> entries(count);
    if (bytes.size() < 2 * count) {
        std::transform(bytes.begin(), bytes.begin() + std::ptrdiff_t(std::min(bytes.size(), count)), entries.begin(),
            [](std::byte byte) { return std::uint8_t(byte); });
        return entries;
    }
    const auto half = [&](std::size_t entry, bool upper) {
        return std::uint8_t(bytes[2 * entry + std::size_t(upper != big_endian)]);
    };
    bool upper = false;
    for (std::size_t i = 0; i < count; ++i)
        upper = upper || half(i, true) != 0;
    for (std::size_t i = 0; i < count; ++i)
        entries[i] = half(i, upper);
    return entries;
}

template <class Sample>
void DicomColours::look_up(const Sample* samples, std::size_t pixels, std::byte* target) const
{
    for (std::size_t i = 0; i < pixels; ++i)
        for (std::size_t c = 0; c < 3; ++c) {
            const auto last = std::int64_t(tables_[c].size()) - 1;
            const auto entry = std::clamp<std::int64_t>(std::int64_t(samples[i]) - first_[c], 0, last);
            target[3 * i + c] = std::byte(tables_[c][std::size_t(entry)]);
        }
}

void DicomColours::convert(
    std::span<const std::byte> samples, Element type, int bits, bool is_ybr, std::span<std::byte> target) const
{
    const bool palette = !tables_[0].empty();
    const auto convert_all = [&](const auto* all) {
        if (palette)
            look_up(all, target.size() / 3, target.data());
        else
            narrow(all, target.size(), bits, target.data());
    };
    if (bytes_of(type) == 1)
        convert_all(reinterpret_cast<const std::uint8_t*>(samples.data()));
    else if (bytes_of(type) == 2)
        convert_all(reinterpret_cast<const std::uint16_t*>(samples.data()));
    else
        convert_all(reinterpret_cast<const std::uint32_t*>(samples.data()));
    if (is_ybr && !palette)
        turn_to_rgb(target, partial_ ? partial : full);
}

}
