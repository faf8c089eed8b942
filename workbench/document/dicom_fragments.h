#pragma once

#include "workbench/document/dicom_pixels.h"

#include <vector>

namespace document {

/// Where the compressed frames of a DICOM file lie: each in one or more pieces.
class DicomFragments {
public:
    DicomFragments(const InputFile& file, const DicomPixels& pixels);

    /// The compressed bytes of a frame; none when the file does not tell which they are.
    std::vector<std::byte> frame(int index) const;

private:
    struct Piece {
        std::uint64_t offset = 0, length = 0;
    };

    std::uint64_t number(std::uint64_t at) const;
    void find_pieces(std::uint64_t at);
    bool begin_by_table(int frames);
    bool begin_by_content(int frames);
    bool begins_picture(const Piece& piece) const;

    const InputFile& file_;
    Piece table_;
    std::vector<Piece> pieces_;
    std::vector<std::size_t> begins_; // the first piece of each frame, and the end
};

}
