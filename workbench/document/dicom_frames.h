#pragma once

#include "workbench/document/dicom_colours.h"
#include "workbench/document/dicom_fragments.h"
#include "workbench/document/dicom_header.h"
#include "workbench/document/layout.h"

#include <memory>

namespace document {

/// What DicomFrames delivers of a file, one frame: colours of 8 bits a channel, or the samples of the file. Fails for
/// what cannot be read.
Result<Layout> layout_of(const DicomHeader& header);

/// Reads the frames of one DICOM file, whose header must outlive it.
class DicomFrames {
public:
    static Result<DicomFrames> open(const DicomHeader& header);

    /// Reads one frame; the target holds exactly what the layout promises.
    std::optional<Failure> read(int frame, std::span<std::byte> target) const;

private:
    DicomFrames(const DicomHeader& header, InputFile file);

    std::optional<Failure> read_compressed(int frame, std::span<std::byte> target, int& bits, bool& is_ybr) const;

    const DicomHeader& header_;
    Element type_;                    // of samples
    std::unique_ptr<InputFile> file_; // at an address of its own, which others know
    std::optional<DicomFragments> fragments_;
    std::optional<DicomColours> colours_;
};

}
