#pragma once

#include "workbench/document/dicom_pixels.h"

#include <span>
#include <vector>

namespace document {

/// Turns the samples of a DICOM file into red, green and blue of 8 bits each.
class DicomColours {
public:
    /// Of a file whose pixels are colours; the tables are read.
    DicomColours(const InputFile& file, const DicomPixels& pixels);

    /// `bits` of each sample count; the type is an unsigned one. Three bytes a pixel come out.
    void convert(
        std::span<const std::byte> samples, Element type, int bits, bool is_ybr, std::span<std::byte> target) const;

private:
    std::vector<std::uint8_t> read_table(const InputFile& file, const DicomTable& table, bool big_endian) const;
    template <class Sample>
    void look_up(const Sample* samples, std::size_t pixels, std::byte* target) const;

    bool partial_;               // brightness from 16 to 235, chroma from 16 to 240
    std::array<int, 3> first_{}; // the stored value of the first entry of each table
    std::array<std::vector<std::uint8_t>, 3> tables_;
};

}
