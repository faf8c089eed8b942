#include "workbench/document/dicom_header.h"

#include "workbench/document/dicom_walker.h"
#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

constexpr std::uint32_t pixel_data = 0x7FE00010;

std::vector<double> numbers_of(const std::string& text)
{
    std::vector<double> numbers;
    for (std::string_view rest = text; !rest.empty();) {
        const auto end = std::min(rest.find('\\'), rest.size());
        numbers.push_back(number_of(rest.substr(0, end)).value_or(0));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return numbers;
}

/// To UTF-8. Of the character sets, the two that cover most of Europe and UTF-8 itself are known; what is foreign to
/// them becomes a question mark.
std::string utf8(const std::string& text, const std::string& character_set)
{
    if (character_set.find("192") != std::string::npos)
        return text;
    if (character_set.find("100") != std::string::npos)
        return from_latin1(text);
    std::string converted = text;
    std::replace_if(
        converted.begin(), converted.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }, '?');
    return converted;
}

/// "Doe^John" as people write it.
std::string person(std::string name)
{
    std::replace(name.begin(), name.end(), '^', ' ');
    return trimmed(name);
}

/// What the header says of its pixel data, to be held against them.
struct Pixels {
    std::uint64_t bits = 0, samples = 1, found = 0;
    std::string photometric;
    bool present = false, fragments = false;

    std::uint64_t promised(const DicomHeader& header) const
    {
        const auto pixels = std::uint64_t(header.rows) * std::uint64_t(header.columns) * std::uint64_t(header.frames);
        if (bits == 1)
            return (pixels * samples + 7) / 8;
        const auto per_pixel = photometric == "YBR_FULL_422" ? 2 : samples;
        return pixels * per_pixel * ((bits + 7) / 8);
    }
};

class Collector {
public:
    Collector(DicomHeader& header, Pixels& pixels, const DicomWalker& walker)
        : header_(header), pixels_(pixels), walker_(walker)
    {
    }

    void operator()(const DicomWalker::Element& element)
    {
        if (element.tag == pixel_data) {
            pixels_.present = true;
            pixels_.fragments = element.fragments;
            pixels_.found = element.length;
        } else if (!take_shape(element)) {
            take_place(element);
        }
    }

    void finish()
    {
        for (auto* text : {&header_.series, &header_.study, &header_.patient})
            *text = utf8(*text, character_set_);
        header_.patient = person(header_.patient);
        if (header_.unit.empty() && header_.modality == "CT")
            header_.unit = "HU";
        header_.inverted = pixels_.photometric == "MONOCHROME1";
    }

private:
    using Element = DicomWalker::Element;

    bool take_shape(const Element& element)
    {
        switch (element.tag) {
        case 0x00280002:
            pixels_.samples = walker_.number(element);
            return true;
        case 0x00280004:
            pixels_.photometric = walker_.text(element);
            return true;
        case 0x00280008:
            header_.frames = std::max(1, int(number(element)));
            return true;
        case 0x00280010:
            header_.rows = int(walker_.number(element) & 0xFFFF);
            return true;
        case 0x00280011:
            header_.columns = int(walker_.number(element) & 0xFFFF);
            return true;
        case 0x00280100:
            pixels_.bits = walker_.number(element);
            return true;
        case 0x00280101:
            header_.bits_stored = int(walker_.number(element) & 0xFF);
            return true;
        case 0x00280103:
            header_.is_signed = (walker_.number(element) & 1) != 0;
            return true;
        case 0x00281050:
            header_.window_centre = number(element);
            return true;
        case 0x00281051:
            header_.window_width = number(element);
            return true;
        case 0x00281054: // what rescaling leads to; "US" is "unspecified"
        case 0x00541001:
            if (const auto unit = walker_.text(element); unit != "US" && unit != "NONE")
                header_.unit = unit;
            return true;
        default:
            return false;
        }
    }

    void take_place(const Element& element)
    {
        switch (element.tag) {
        case 0x00080005:
            character_set_ = walker_.text(element);
            break;
        case 0x00080060:
            header_.modality = walker_.text(element);
            break;
        case 0x00081030:
            header_.study = walker_.text(element);
            break;
        case 0x0008103E:
            header_.series = walker_.text(element);
            break;
        case 0x00100010:
            header_.patient = walker_.text(element);
            break;
        case 0x00180050:
            header_.thickness = number(element);
            break;
        case 0x0020000E:
            header_.series_uid = walker_.text(element);
            break;
        case 0x00200013:
            header_.instance = int(number(element));
            break;
        case 0x00200032:
            if (const auto v = numbers_of(walker_.text(element)); v.size() == 3)
                header_.position = {v[0], v[1], v[2]};
            break;
        case 0x00200037:
            if (const auto v = numbers_of(walker_.text(element)); v.size() == 6)
                std::copy(v.begin(), v.end(), header_.orientation.begin());
            break;
        default:
            break;
        }
    }

    double number(const Element& element) const
    {
        const auto numbers = numbers_of(walker_.text(element));
        return numbers.empty() ? 0 : std::clamp(numbers[0], -2e9, 2e9);
    }

    DicomHeader& header_;
    Pixels& pixels_;
    const DicomWalker& walker_;
    std::string character_set_;
};

/// What is wrong, or nothing. Pictures of the deflated kind are named because nobody could check them.
std::string damage_of(const DicomHeader& header, const Pixels& pixels, bool whole, bool deflated)
{
    if (deflated)
        return "is compressed as a whole (deflated), which cannot be read. Save it in another transfer syntax.";
    if (!pixels.present || (pixels.fragments && !whole))
        return "is cut off: its pixels are missing or end too early. Get a complete copy of the file.";
    if (!pixels.fragments && pixels.found < pixels.promised(header))
        return "is cut off: its header promises " + bytes_text(pixels.promised(header)) + " of pixels, but " +
               bytes_text(pixels.found) + " are there. Get a complete copy of the file.";
    if (!whole)
        return "is damaged or cut off: its elements do not end where they should. Get a new copy of the file.";
    if (pixels.fragments && pixels.found == 0)
        return "holds no pixels. Get a new copy of the file.";
    return {};
}

}

std::array<double, 3> DicomHeader::normal() const
{
    const auto& o = orientation;
    return {o[1] * o[5] - o[2] * o[4], o[2] * o[3] - o[0] * o[5], o[0] * o[4] - o[1] * o[3]};
}

double DicomHeader::along_normal() const
{
    const auto n = normal();
    return position ? n[0] * (*position)[0] + n[1] * (*position)[1] + n[2] * (*position)[2] : 0;
}

std::optional<DicomHeader> read_dicom_header(const std::filesystem::path& path)
{
    const auto file = InputFile::open(path);
    if (!file || format_of(*file) != Format::dicom)
        return {};
    DicomHeader header;
    header.path = path;
    Pixels pixels;
    DicomWalker walker(*file);
    Collector collector(header, pixels, walker);
    const bool whole = walker.walk([&](const auto& element) { collector(element); });
    collector.finish();
    // Reports and the index of a disc are whole without any picture.
    const bool image = header.rows > 0 && header.columns > 0;
    if (!image && whole && !walker.deflated())
        return {};
    header.damage = damage_of(header, pixels, whole, walker.deflated());
    return header;
}

}
