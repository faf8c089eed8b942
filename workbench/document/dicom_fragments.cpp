#include "workbench/document/dicom_fragments.h"

#include <array>
#include <numeric>

namespace document {

namespace {

constexpr std::uint64_t item = 0xE000FFFE; // as four bytes of the file, the first one lowest
constexpr std::uint64_t header_size = 8;

}

DicomFragments::DicomFragments(const InputFile& file, const DicomPixels& pixels) : file_(file)
{
    find_pieces(pixels.offset);
    const auto frames = std::size_t(pixels.frames);
    if (frames == 1) {
        begins_ = {0, pieces_.size()};
    } else if (frames == pieces_.size()) {
        begins_.resize(frames + 1);
        std::iota(begins_.begin(), begins_.end(), std::size_t(0));
    } else if (!begin_by_table(pixels.frames) && !begin_by_content(pixels.frames)) {
        begins_.clear();
    }
}

std::uint64_t DicomFragments::number(std::uint64_t at) const
{
    std::array<std::byte, 4> raw = {};
    file_.read(at, raw);
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < raw.size(); ++i)
        number |= std::uint64_t(raw[i]) << (8 * i);
    return number;
}

void DicomFragments::find_pieces(std::uint64_t at)
{
    bool first = true;
    while (at + header_size <= file_.size() && number(at) == item) {
        const Piece piece{at + header_size, number(at + 4)};
        if (first)
            table_ = piece;
        else
            pieces_.push_back(piece);
        first = false;
        at = piece.offset + piece.length;
    }
}

/// The table counts from the end of itself to the header of a frame's first piece.
bool DicomFragments::begin_by_table(int frames)
{
    if (table_.length / 4 < std::uint64_t(frames))
        return false;
    begins_.clear();
    const auto start = table_.offset + table_.length;
    std::size_t piece = 0;
    for (int frame = 0; frame < frames; ++frame) {
        const auto place = start + number(table_.offset + 4 * std::uint64_t(frame)) + header_size;
        while (piece < pieces_.size() && pieces_[piece].offset < place)
            ++piece;
        if (piece == pieces_.size() || pieces_[piece].offset != place)
            return false;
        begins_.push_back(piece);
    }
    begins_.push_back(pieces_.size());
    return true;
}

bool DicomFragments::begin_by_content(int frames)
{
    begins_.clear();
    for (std::size_t i = 0; i < pieces_.size(); ++i)
        if (begins_picture(pieces_[i]))
            begins_.push_back(i);
    begins_.push_back(pieces_.size());
    return begins_.size() == std::size_t(frames) + 1 && begins_[0] == 0;
}

/// With the first mark of a JPEG or JPEG 2000 stream.
bool DicomFragments::begins_picture(const Piece& piece) const
{
    const auto start = piece.length >= 4 ? number(piece.offset) : 0;
    return (start & 0xFFFFFF) == 0xFFD8FF || start == 0x51FF4FFF;
}

std::vector<std::byte> DicomFragments::frame(int index) const
{
    if (std::size_t(index) + 1 >= begins_.size())
        return {};
    std::vector<std::byte> bytes;
    for (auto i = begins_[std::size_t(index)]; i < begins_[std::size_t(index) + 1]; ++i) {
        const auto end = bytes.size();
        bytes.resize(end + pieces_[i].length);
        bytes.resize(end + file_.read(pieces_[i].offset, std::span(bytes).subspan(end)));
    }
    return bytes;
}

}
