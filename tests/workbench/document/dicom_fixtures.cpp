#include "tests/workbench/document/fixtures.h"

#include <algorithm>
#include <charconv>
#include <zlib.h>

namespace document_test {

namespace {

using Writing = Dicom::Writing;

void append_number(std::string& bytes, std::uint64_t number, int width, Writing writing = Writing::little_endian)
{
    for (int i = 0; i < width; ++i)
        bytes += char(number >> (8 * (writing == Writing::big_endian ? width - 1 - i : i)) & 0xFF);
}

std::string header(std::uint32_t tag, const std::string& vr, std::size_t length, Writing writing)
{
    std::string bytes;
    append_number(bytes, tag >> 16, 2, writing);
    append_number(bytes, tag & 0xFFFF, 2, writing);
    const bool typed = writing != Writing::implicit;
    const bool wide = vr == "OW" || vr == "OB" || vr == "OF" || vr == "OD" || vr == "SQ" || vr == "UN";
    if (typed)
        bytes += vr;
    if (typed && wide)
        append_number(bytes, 0, 2);
    append_number(bytes, length, typed && !wide ? 2 : 4, writing);
    return bytes;
}

/// Elements in the order of their tags.
class Writer {
public:
    explicit Writer(Writing writing) : writing_(writing) {}

    void put(std::uint32_t tag, const std::string& vr, const std::string& value)
    {
        elements_[tag] = element(tag, vr, value, writing_);
    }
    void replace(std::uint32_t tag, const Dicom::Element& by)
    {
        elements_.erase(tag);
        if (!by.vr.empty())
            put(tag, by.vr, by.value);
    }
    void optional(std::uint32_t tag, const std::string& vr, const std::string& value)
    {
        if (!value.empty())
            put(tag, vr, value);
    }
    void number(std::uint32_t tag, int value)
    {
        std::string bytes;
        append_number(bytes, std::uint64_t(value), 2, writing_);
        put(tag, "US", bytes);
    }
    void fragments(const std::vector<std::string>& fragments)
    {
        constexpr std::uint32_t pixel_data = 0x7FE00010, item = 0xFFFEE000, end = 0xFFFEE0DD;
        auto& bytes = elements_[pixel_data];
        bytes = header(pixel_data, "OB", 0xFFFFFFFF, writing_);
        for (const auto& fragment : fragments)
            bytes += header(item, "", fragment.size(), Writing::implicit) + fragment;
        bytes += header(end, "", 0, Writing::implicit);
    }
    std::string bytes() const
    {
        std::string bytes;
        for (const auto& [tag, encoded] : elements_)
            bytes += encoded;
        return bytes;
    }

private:
    Writing writing_;
    std::map<std::uint32_t, std::string> elements_;
};

std::string decimals(const std::vector<double>& values)
{
    std::string text;
    for (const double value : values) {
        char number[32];
        const auto end = std::to_chars(number, number + sizeof number, value, std::chars_format::fixed, 4).ptr;
        text += (text.empty() ? "" : "\\") + std::string(number, end);
    }
    return text;
}

std::string counted_pixels(const Dicom& dicom)
{
    std::string pixels(std::size_t(dicom.rows * dicom.columns * dicom.frames * dicom.samples * dicom.bits / 8), '\0');
    for (std::size_t i = 0; i < pixels.size(); i += std::size_t(dicom.bits / 8))
        pixels[i] = char(i / std::size_t(dicom.bits / 8));
    return pixels;
}

void write_identity(Writer& writer, const Dicom& dicom)
{
    writer.optional(0x00080005, "CS", dicom.character_set);
    const char* const image_class = dicom.frames > 1 ? "1.2.840.10008.5.1.4.1.1.7.2" : "1.2.840.10008.5.1.4.1.1.2";
    writer.put(0x00080016, "UI", image_class);
    writer.put(0x00080018, "UI", dicom.series_uid + "." + std::to_string(dicom.instance));
    writer.put(0x00080060, "CS", dicom.modality);
    writer.put(0x00081030, "LO", "Head");
    writer.optional(0x0008103E, "LO", dicom.series);
    writer.put(0x00100010, "PN", dicom.patient);
    writer.put(0x00180050, "DS", "2.5");
    writer.put(0x0020000D, "UI", "1.2.9");
    writer.put(0x0020000E, "UI", dicom.series_uid);
    writer.put(0x00200013, "IS", std::to_string(dicom.instance));
    writer.optional(0x00200032, "DS", decimals(dicom.position));
    writer.optional(0x00200037, "DS", decimals(dicom.orientation));
}

void write_pixels(Writer& writer, const Dicom& dicom)
{
    const int bits_stored = dicom.bits_stored > 0 ? dicom.bits_stored : dicom.bits;
    writer.number(0x00280002, dicom.samples);
    writer.put(0x00280004, "CS", dicom.photometric);
    if (dicom.samples > 1)
        writer.number(0x00280006, dicom.planar ? 1 : 0);
    if (dicom.frames > 1)
        writer.put(0x00280008, "IS", std::to_string(dicom.frames));
    writer.number(0x00280010, dicom.rows);
    writer.number(0x00280011, dicom.columns);
    writer.put(0x00280030, "DS", "0.5\\0.25");
    writer.number(0x00280100, dicom.bits);
    writer.number(0x00280101, bits_stored);
    writer.number(0x00280102, dicom.high_bit >= 0 ? dicom.high_bit : bits_stored - 1);
    writer.number(0x00280103, dicom.is_signed ? 1 : 0);
    writer.optional(0x00281050, "DS", dicom.window_centre);
    writer.optional(0x00281051, "DS", dicom.window_width);
    writer.optional(0x00281052, "DS", dicom.intercept);
    writer.optional(0x00281053, "DS", dicom.slope);
    writer.optional(0x00281054, "LO", dicom.rescale_type);
    if (!dicom.fragments.empty())
        writer.fragments(dicom.fragments);
    else
        writer.put(
            0x7FE00010, dicom.bits <= 8 ? "OB" : "OW", dicom.pixels.empty() ? counted_pixels(dicom) : dicom.pixels);
}

std::string meta_of(const Dicom& dicom)
{
    const char* const syntaxes[] = {
        "1.2.840.10008.1.2.1", "1.2.840.10008.1.2", "1.2.840.10008.1.2.2", "1.2.840.10008.1.2.1.99"};
    Writer meta(Writing::little_endian);
    meta.put(0x00020001, "OB", std::string("\0\1", 2));
    meta.put(0x00020002, "UI", "1.2.840.10008.5.1.4.1.1.2");
    meta.put(0x00020003, "UI", dicom.series_uid + "." + std::to_string(dicom.instance));
    meta.put(0x00020010, "UI", dicom.syntax.empty() ? syntaxes[std::size_t(dicom.writing)] : dicom.syntax);
    std::string length;
    append_number(length, meta.bytes().size(), 4);
    return element(0x00020000, "UL", length) + meta.bytes();
}

std::string deflated(std::string plain)
{
    std::string packed(plain.size() + 1000, '\0');
    z_stream stream = {};
    deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_in = uInt(plain.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = uInt(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

}

std::string element(std::uint32_t tag, const std::string& vr, std::string value, Dicom::Writing writing)
{
    if (value.size() % 2 != 0)
        value += vr == "UI" || vr[0] == 'O' ? '\0' : ' ';
    return header(tag, vr, value.size(), writing) + value;
}

std::string items(const std::vector<std::string>& contents)
{
    std::string bytes;
    for (const auto& content : contents)
        bytes += header(0xFFFEE000, "", content.size(), Writing::implicit) + content;
    return bytes;
}

void write_dicom(const Path& path, const Dicom& dicom)
{
    Writer writer(dicom.writing);
    write_identity(writer, dicom);
    write_pixels(writer, dicom);
    for (const auto& [tag, more] : dicom.more)
        writer.replace(tag, more);
    const auto image = dicom.writing == Writing::deflated ? deflated(writer.bytes()) : writer.bytes();
    const auto preamble = dicom.preamble.empty() ? std::string(128, '\0') : dicom.preamble;
    write_file(path, dicom.bare ? image : preamble + "DICM" + meta_of(dicom) + image);
}

}
