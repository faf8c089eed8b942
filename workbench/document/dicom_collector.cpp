#include "workbench/document/dicom_collector.h"

#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>

namespace document {

namespace {

constexpr std::uint32_t shared_groups = 0x52009229, frame_groups = 0x52009230;
constexpr std::uint32_t regions = 0x00186011, detectors = 0x00540022;
constexpr std::uint64_t centimetres = 3;

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

/// "20240531" as people read it; what looks otherwise stays away.
std::string date(const std::string& text)
{
    constexpr std::size_t digits = 8;
    if (text.size() != digits || text.find_first_not_of("0123456789") != std::string::npos)
        return {};
    return text.substr(0, 4) + "-" + text.substr(4, 2) + "-" + text.substr(6);
}

template <std::size_t count>
std::optional<std::array<double, count>> exactly(const std::vector<double>& numbers)
{
    std::array<double, count> values = {};
    if (numbers.size() != count)
        return {};
    std::copy(numbers.begin(), numbers.end(), values.begin());
    return values;
}

/// Two directions of length one at a right angle, which headers give to a few digits.
std::optional<std::array<double, 6>> orientation(const std::vector<double>& numbers)
{
    auto o = exactly<6>(numbers);
    if (!o)
        return {};
    const auto dot = [&](std::size_t a, std::size_t b) {
        return (*o)[a] * (*o)[b] + (*o)[a + 1] * (*o)[b + 1] + (*o)[a + 2] * (*o)[b + 2];
    };
    constexpr double tolerance = 0.01;
    const double row = std::sqrt(dot(0, 0)), column = std::sqrt(dot(3, 3));
    if (std::abs(row - 1) > tolerance || std::abs(column - 1) > tolerance || std::abs(dot(0, 3)) > tolerance)
        return {};
    for (std::size_t i = 0; i < 6; ++i)
        (*o)[i] /= i < 3 ? row : column;
    return o;
}

}

void DicomCollector::take(const Element& element)
{
    if (element.depth > 0)
        take_nested(element);
    else
        take_identity(element) || take_pixels(element) || take_tables(element) || take_place(element) ||
            take_values(element);
}

void DicomCollector::take_nested(const Element& element)
{
    if (element.sequence == regions && element.depth == 1 && element.item == 0)
        take_region(element);
    else if (element.sequence == detectors && element.depth == 1 && element.item == 0)
        take_place(element);
    else if (element.sequence == shared_groups && element.depth == 2)
        take_place(element) || take_values(element);
    if (element.sequence != frame_groups || element.depth != 2)
        return;
    if (element.item == 0)
        take_place(element) || take_values(element);
    header_.own.resize(std::max(header_.own.size(), element.item + 1));
    take_own(header_.own[element.item], element);
}

bool DicomCollector::take_identity(const Element& element)
{
    switch (element.tag) {
    case 0x00080005:
        character_set_ = walker_.text(element);
        return true;
    case 0x00080008:
        header_.is_scout = walker_.text(element).find("LOCALIZER") != std::string::npos;
        return true;
    case 0x00080020:
        header_.study_date = date(walker_.text(element));
        return true;
    case 0x00080060:
        header_.modality = walker_.text(element);
        return true;
    case 0x00081030:
        header_.study = walker_.text(element);
        return true;
    case 0x0008103E:
        header_.series = walker_.text(element);
        return true;
    case 0x00100010:
        header_.patient = walker_.text(element);
        return true;
    case 0x0020000D:
        header_.study_uid = walker_.text(element);
        return true;
    case 0x0020000E:
        header_.series_uid = walker_.text(element);
        return true;
    case 0x00200011:
        header_.series_number = int(number(element));
        return true;
    case 0x00200013:
        header_.instance = int(number(element));
        return true;
    default:
        return false;
    }
}

bool DicomCollector::take_pixels(const Element& element)
{
    auto& pixels = header_.pixels;
    const auto whole = [&] { return int(walker_.number(element) & 0xFFFF); };
    switch (element.tag) {
    case 0x00280002:
        pixels.samples = whole();
        return true;
    case 0x00280004:
        pixels.photometric = walker_.text(element);
        return true;
    case 0x00280006:
        pixels.planar = whole() == 1;
        return true;
    case 0x00280008:
        pixels.frames = int(number(element));
        return true;
    case 0x00280010:
        pixels.rows = whole();
        return true;
    case 0x00280011:
        pixels.columns = whole();
        return true;
    case 0x00280100:
        pixels.bits_allocated = whole();
        return true;
    case 0x00280101:
        pixels.bits_stored = whole();
        return true;
    case 0x00280102:
        pixels.high_bit = whole();
        return true;
    case 0x00280103:
        pixels.is_signed = (whole() & 1) != 0;
        return true;
    case 0x7FE00008:
    case 0x7FE00009:
    case 0x7FE00010:
        pixels.present = true;
        pixels.number = element.tag == 0x7FE00008   ? DicomPixels::Number::f32
                        : element.tag == 0x7FE00009 ? DicomPixels::Number::f64
                                                    : DicomPixels::Number::integer;
        pixels.words = element.words;
        pixels.fragments = element.fragments;
        pixels.offset = element.value;
        pixels.length = element.length;
        return true;
    default:
        return false;
    }
}

/// Those that turn stored values into colours: a description and the entries of each.
bool DicomCollector::take_tables(const Element& element)
{
    if (element.tag >= 0x00281101 && element.tag <= 0x00281103) {
        auto& table = header_.pixels.tables[element.tag - 0x00281101];
        const auto [entries, first, bits] = walker_.triple(element);
        table.entries = entries == 0 ? 65536 : int(entries);
        table.first = header_.pixels.is_signed ? std::int16_t(first) : int(first);
        return true;
    }
    if (element.tag < 0x00281201 || element.tag > 0x00281203)
        return false;
    auto& table = header_.pixels.tables[element.tag - 0x00281201];
    table.offset = element.value;
    table.length = element.length;
    return true;
}

bool DicomCollector::take_place(const Element& element)
{
    const auto take_spacing = [&](int rank) {
        const auto distances = exactly<2>(numbers(element));
        if (rank > spacing_rank_ && distances && (*distances)[0] > 0 && (*distances)[1] > 0) {
            spacing_rank_ = rank;
            header_.row_distance = (*distances)[0];
            header_.column_distance = (*distances)[1];
        }
        return true;
    };
    switch (element.tag) {
    case 0x00180050:
        header_.thickness = number(element);
        return true;
    case 0x00180088:
        header_.frame_distance = std::abs(number(element));
        return true;
    case 0x00200032:
        header_.position = exactly<3>(numbers(element));
        return true;
    case 0x00200037:
        header_.orientation = orientation(numbers(element)).value_or(header_.orientation);
        return true;
    case 0x00280030: // in the patient
        return take_spacing(4);
    case 0x00181164: // on the detector, on paper; in the plane of a portal image
    case 0x00182010:
    case 0x30020011:
        return take_spacing(3);
    case 0x00280034: // only their ratio
        return take_spacing(1);
    case 0x3004000C:
        header_.offsets = numbers(element);
        return true;
    default:
        return false;
    }
}

bool DicomCollector::take_values(const Element& element)
{
    switch (element.tag) {
    case 0x00281050:
        header_.window_centre = number(element);
        return true;
    case 0x00281051:
        header_.window_width = number(element);
        return true;
    case 0x00281052:
        header_.intercept = number(element);
        return true;
    case 0x00281053:
        header_.slope = number(element);
        return true;
    case 0x00281054: // what rescaling leads to; "US" is "unspecified"
    case 0x00541001:
        if (const auto unit = walker_.text(element); unit != "US" && unit != "NONE")
            header_.unit = unit;
        return true;
    case 0x30040002:
        dose_unit_ = walker_.text(element);
        return true;
    case 0x3004000E:
        dose_scale_ = number(element);
        return true;
    default:
        return false;
    }
}

void DicomCollector::take_own(DicomFrame& frame, const Element& element)
{
    switch (element.tag) {
    case 0x00200032:
        frame.position = exactly<3>(numbers(element));
        break;
    case 0x00200037:
        frame.orientation = orientation(numbers(element));
        break;
    case 0x00281052:
        frame.intercept = number(element);
        break;
    case 0x00281053:
        frame.slope = number(element);
        break;
    default:
        break;
    }
}

/// The first calibrated region of an ultrasound image stands for all.
void DicomCollector::take_region(const Element& element)
{
    const auto distance = [&](std::uint64_t unit, double& target) {
        if (const double found = std::abs(walker_.real(element));
            unit == centimetres && found > 0 && spacing_rank_ <= 2) {
            spacing_rank_ = 2;
            target = found * 10;
        }
    };
    switch (element.tag) {
    case 0x00186024:
    case 0x00186026:
        region_units_[element.tag == 0x00186026] = walker_.number(element);
        break;
    case 0x0018602C:
        distance(region_units_[0], header_.column_distance);
        break;
    case 0x0018602E:
        distance(region_units_[1], header_.row_distance);
        break;
    default:
        break;
    }
}

void DicomCollector::finish()
{
    for (auto* text : {&header_.series, &header_.study, &header_.patient})
        *text = utf8(*text, character_set_);
    header_.patient = person(header_.patient);
    if (header_.offsets.size() > 1 && header_.frame_distance == 0)
        header_.frame_distance = std::abs(header_.offsets[1] - header_.offsets[0]);
    if (dose_scale_ != 0) {
        header_.slope = dose_scale_;
        header_.intercept = 0;
        header_.unit = dose_unit_ == "GY" ? "Gy" : "";
    }
    if (header_.slope == 0)
        header_.slope = 1;
    if (header_.unit.empty() && header_.modality == "CT")
        header_.unit = "HU";
    header_.pixels.syntax = walker_.syntax();
    header_.pixels.big_endian = walker_.big_endian();
    header_.pixels.settle();
}

double DicomCollector::number(const Element& element) const
{
    const auto all = numbers(element);
    return all.empty() ? 0 : std::clamp(all[0], -2e9, 2e9);
}

std::vector<double> DicomCollector::numbers(const Element& element) const
{
    constexpr std::size_t most = std::size_t(1) << 20;
    const auto text = walker_.text(element, most);
    std::vector<double> numbers;
    for (std::string_view rest = text; !rest.empty();) {
        const auto end = std::min(rest.find('\\'), rest.size());
        const double value = number_of(rest.substr(0, end)).value_or(0);
        numbers.push_back(std::isfinite(value) ? value : 0);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return numbers;
}

}
