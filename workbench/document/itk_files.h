#pragma once

#include "workbench/document/element.h"
#include "workbench/document/geometry.h"
#include "workbench/document/result.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace document {

enum class Format { unknown, dicom, nifti, nrrd, metaimage, png, jpeg, tiff, bmp };

/// What ITK tells of a file's header.
struct ItkHeader {
    std::vector<std::int64_t> size; ///< all dimensions, at least one
    Geometry geometry;              ///< of the first three; its size stays 1 where `size` has no more
    std::optional<Element> element; ///< what read() delivers; nothing for kinds that nobody shows (complex numbers)
    int components = 1;
};

/// A file open for reading by ITK.
class ItkFile {
public:
    static Result<ItkFile> open(Format format, const std::filesystem::path& path);

    const ItkHeader& header() const { return header_; }
    /// What the header says under a key; empty when it does not.
    std::string text(const std::string& key) const;
    /// Reads all elements; the span must hold exactly them.
    std::optional<Failure> read(std::span<std::byte> target);

    struct Reader;

private:
    std::shared_ptr<Reader> reader_; // shared only because its type is known in the source alone
    ItkHeader header_;
};

/// Writes bytes as a volume in the format that the extension names (.nii, .nii.gz, .nrrd, .mha). ITK does not report
/// every failure: read back what was written.
std::optional<Failure> itk_write(
    const std::filesystem::path& path, const Geometry& geometry, std::span<const std::uint8_t> bytes);

}
