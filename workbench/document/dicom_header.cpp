#include "workbench/document/dicom_header.h"

#include "workbench/document/dicom_collector.h"
#include "workbench/document/dicom_file.h"
#include "workbench/document/readers.h"
#include "workbench/document/text.h"

namespace document {

namespace {

std::string damage_of(const DicomPixels& pixels, bool whole)
{
    if (!pixels.present && whole)
        return "has a header, but no pixels: they were taken out, or the file is cut off. Get a complete copy of it.";
    if (!pixels.present || (pixels.fragments > 0 && !whole))
        return "is cut off: its pixels are missing or end too early. Get a complete copy of the file.";
    if (pixels.fragments == 0 && pixels.length < pixels.promised_bytes())
        return "is cut off: its header promises " + bytes_text(pixels.promised_bytes()) + " of pixels, but " +
               bytes_text(pixels.length) + " are there. Get a complete copy of the file.";
    if (!whole)
        return "is damaged or cut off: its elements do not end where they should. Get a new copy of the file.";
    // The first fragment is a table.
    if (pixels.fragments > 0 && pixels.fragments - 1 < std::uint64_t(pixels.frames))
        return "is cut off: its header promises " + std::to_string(pixels.frames) + " frames, but " +
               std::to_string(pixels.fragments - 1) + " are there. Get a complete copy of the file.";
    return {};
}

/// What a frame has of its own.
const DicomFrame& own_of(const DicomHeader& header, int frame)
{
    static const DicomFrame nothing;
    return std::size_t(frame) < header.own.size() ? header.own[std::size_t(frame)] : nothing;
}

}

std::optional<std::array<double, 3>> DicomHeader::position_of(int frame) const
{
    if (const auto& found = own_of(*this, frame).position)
        return found;
    if (std::size_t(frame) >= offsets.size() || !position)
        return pixels.frames == 1 ? position : std::nullopt;
    const double offset = offsets[std::size_t(frame)] - offsets[0];
    const auto n = normal_of(orientation);
    const auto& p = *position;
    return std::array{p[0] + offset * n[0], p[1] + offset * n[1], p[2] + offset * n[2]};
}

const std::array<double, 6>& DicomHeader::orientation_of(int frame) const
{
    const auto& found = own_of(*this, frame).orientation;
    return found ? *found : orientation;
}

double DicomHeader::slope_of(int frame) const
{
    const double found = own_of(*this, frame).slope.value_or(slope);
    return found != 0 ? found : 1;
}

double DicomHeader::intercept_of(int frame) const
{
    return own_of(*this, frame).intercept.value_or(intercept);
}

double DicomHeader::along_normal(const std::array<double, 3>& place) const
{
    const auto n = normal_of(orientation);
    return n[0] * place[0] + n[1] * place[1] + n[2] * place[2];
}

std::array<double, 3> normal_of(const std::array<double, 6>& o)
{
    return {o[1] * o[5] - o[2] * o[4], o[2] * o[3] - o[0] * o[5], o[0] * o[4] - o[1] * o[3]};
}

std::optional<DicomHeader> read_dicom_header(const std::filesystem::path& path)
{
    if (const auto file = InputFile::open(path); !file || format_of(*file) != Format::dicom)
        return {};
    DicomHeader header;
    header.path = path;
    const auto file = open_dicom(path);
    if (!file) {
        header.damage = file.failure().message;
        return header;
    }
    DicomWalker walker(*file);
    DicomCollector collector(header, walker);
    const bool whole = walker.walk([&](const auto& element) { collector.take(element); });
    collector.finish();
    // Reports and the index of a disc are whole without any picture.
    const bool image = header.pixels.rows > 0 && header.pixels.columns > 0;
    if (!image && whole)
        return {};
    if (const auto damage = damage_of(header.pixels, whole); !damage.empty())
        header.damage = quoted(path) + " " + damage;
    return header;
}

}
