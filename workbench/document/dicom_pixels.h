#pragma once

#include "workbench/document/element.h"
#include "workbench/document/input_file.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace document {

/// A table of a DICOM file that turns stored values into one of the three colours.
struct DicomTable {
    int entries = 0;
    int first = 0; ///< the stored value of its first entry
    std::uint64_t offset = 0, length = 0;
};

/// How a DICOM file stores its pixels.
struct DicomPixels {
    enum class Number { integer, f32, f64 };

    Number number = Number::integer;
    int rows = 0, columns = 0, frames = 1;
    int samples = 1; ///< of a pixel
    int bits_allocated = 0, bits_stored = 0, high_bit = 0;
    bool is_signed = false;
    bool planar = false; ///< one sample of all pixels after the other
    std::string photometric;
    std::array<DicomTable, 3> tables;

    std::string syntax; ///< the UID of the way of writing
    bool present = false;
    bool big_endian = false;
    bool words = false;          ///< its bytes come in words of two, each in the byte order of the file
    std::uint64_t fragments = 0; ///< 0: not compressed
    std::uint64_t offset = 0, length = 0;

    /// Makes what a damaged header says consistent.
    void settle();
    std::size_t samples_of_frame() const { return std::size_t(rows) * std::size_t(columns) * std::size_t(samples); }
    /// Of one frame in the file, and of all, when they are not compressed.
    std::uint64_t bits_of_frame() const;
    std::uint64_t promised_bytes() const;
    /// What a sample is stored as; nothing for what cannot be read.
    std::optional<Element> element() const;
    /// Whether two pixels side by side share their chroma: brightness, brightness, blue, red.
    bool has_shared_chroma() const;
    bool is_palette() const;
    bool is_colour() const;
    bool is_inverted() const { return photometric == "MONOCHROME1"; }
};

}
