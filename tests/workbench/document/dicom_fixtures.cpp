#include "tests/workbench/document/fixtures.h"

#include <charconv>

namespace document_test {

namespace {

void append_number(std::string& bytes, std::uint64_t number, int width)
{
    for (int i = 0; i < width; ++i)
        bytes += char(number >> (8 * i) & 0xFF);
}

/// Elements one after the other; a value gets the padding that its length must have.
class Writer {
public:
    explicit Writer(bool implicit) : implicit_(implicit) {}

    void text(unsigned group, unsigned element, const char* vr, std::string value)
    {
        if (value.size() % 2 != 0)
            value += std::string(vr) == "UI" ? '\0' : ' ';
        header(group, element, vr, value.size());
        bytes += value;
    }
    void optional(unsigned group, unsigned element, const char* vr, const std::string& value)
    {
        if (!value.empty())
            text(group, element, vr, value);
    }
    void number(unsigned group, unsigned element, int value)
    {
        header(group, element, "US", 2);
        append_number(bytes, std::uint64_t(value), 2);
    }
    void header(unsigned group, unsigned element, const std::string& vr, std::size_t length)
    {
        append_number(bytes, group, 2);
        append_number(bytes, element, 2);
        if (implicit_) {
            append_number(bytes, length, 4);
            return;
        }
        bytes += vr;
        if (vr == "OW" || vr == "OB") {
            append_number(bytes, 0, 2);
            append_number(bytes, length, 4);
        } else {
            append_number(bytes, length, 2);
        }
    }

    std::string bytes;

private:
    bool implicit_;
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
    writer.optional(0x0008, 0x0005, "CS", dicom.character_set);
    const char* const image_class = dicom.frames > 1 ? "1.2.840.10008.5.1.4.1.1.7.2" : "1.2.840.10008.5.1.4.1.1.2";
    writer.text(0x0008, 0x0016, "UI", image_class);
    writer.text(0x0008, 0x0018, "UI", dicom.series_uid + "." + std::to_string(dicom.instance));
    writer.text(0x0008, 0x0060, "CS", dicom.modality);
    writer.text(0x0008, 0x1030, "LO", "Head");
    writer.text(0x0008, 0x103E, "LO", dicom.series);
    writer.text(0x0010, 0x0010, "PN", dicom.patient);
    writer.text(0x0018, 0x0050, "DS", "2.5");
    writer.text(0x0020, 0x000D, "UI", "1.2.9");
    writer.text(0x0020, 0x000E, "UI", dicom.series_uid);
    writer.text(0x0020, 0x0013, "IS", std::to_string(dicom.instance));
    writer.optional(0x0020, 0x0032, "DS", decimals(dicom.position));
    writer.optional(0x0020, 0x0037, "DS", decimals(dicom.orientation));
}

void write_pixels(Writer& writer, const Dicom& dicom)
{
    writer.number(0x0028, 0x0002, dicom.samples);
    writer.text(0x0028, 0x0004, "CS", dicom.photometric);
    if (dicom.samples > 1)
        writer.number(0x0028, 0x0006, 0);
    if (dicom.frames > 1)
        writer.text(0x0028, 0x0008, "IS", std::to_string(dicom.frames));
    writer.number(0x0028, 0x0010, dicom.rows);
    writer.number(0x0028, 0x0011, dicom.columns);
    writer.text(0x0028, 0x0030, "DS", "0.5\\0.25");
    writer.number(0x0028, 0x0100, dicom.bits);
    writer.number(0x0028, 0x0101, dicom.bits);
    writer.number(0x0028, 0x0102, dicom.bits - 1);
    writer.number(0x0028, 0x0103, dicom.is_signed ? 1 : 0);
    writer.optional(0x0028, 0x1050, "DS", dicom.window_centre);
    writer.optional(0x0028, 0x1051, "DS", dicom.window_width);
    writer.optional(0x0028, 0x1052, "DS", dicom.intercept);
    writer.optional(0x0028, 0x1053, "DS", dicom.slope);
    writer.optional(0x0028, 0x1054, "LO", dicom.rescale_type);
    const auto pixels = dicom.pixels.empty() ? counted_pixels(dicom) : dicom.pixels;
    writer.header(0x7FE0, 0x0010, dicom.bits == 8 ? "OB" : "OW", pixels.size());
    writer.bytes += pixels;
}

}

void write_dicom(const Path& path, const Dicom& dicom)
{
    Writer meta(false);
    meta.header(0x0002, 0x0001, "OB", 2);
    meta.bytes += std::string("\0\1", 2);
    meta.text(0x0002, 0x0002, "UI", "1.2.840.10008.5.1.4.1.1.2");
    meta.text(0x0002, 0x0003, "UI", dicom.series_uid + "." + std::to_string(dicom.instance));
    meta.text(0x0002, 0x0010, "UI", dicom.implicit ? "1.2.840.10008.1.2" : "1.2.840.10008.1.2.1");
    Writer length(false);
    length.header(0x0002, 0x0000, "UL", 4);
    append_number(length.bytes, meta.bytes.size(), 4);
    Writer writer(dicom.implicit);
    write_identity(writer, dicom);
    write_pixels(writer, dicom);
    write_file(path, std::string(128, '\0') + "DICM" + length.bytes + meta.bytes + writer.bytes);
}

}
