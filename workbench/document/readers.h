#pragma once

#include "workbench/document/input_file.h"
#include "workbench/document/itk_files.h"
#include "workbench/document/layout.h"
#include "workbench/document/open.h"
#include "workbench/document/voxel_source.h"

namespace document {

/// One reader a format; the file has the content of that format. They fill what the format tells of a volume; what all
/// have in common (its name, its frames) completed() adds.
Result<Opened> read_nifti(const std::filesystem::path& path, const Progress& progress);
Result<Opened> read_nrrd(const std::filesystem::path& path, const Progress& progress);
Result<Opened> read_metaimage(const std::filesystem::path& path, const Progress& progress);
Result<Opened> read_picture(Format format, const std::filesystem::path& path, const Progress& progress);

/// Reads what a header described by layout and source promises. ITK gives the geometry, asked only when all voxels were
/// found whole: what it says of a damaged file helps nobody.
Result<Opened> read_volume(Format format, const VoxelSource& source, const Layout& layout, const Progress& progress);

/// Opens one file that is not DICOM, by its content.
Result<Opened> read_file(const std::filesystem::path& path, const Progress& progress);

/// What is known of each frame and where it came from, as far as the reader did not tell.
Result<Opened> completed(Result<Opened> opened, const std::filesystem::path& path);

/// A part of a whole: from `begin` to `end` of its progress. The whole must outlive it.
Progress part_of(const Progress& whole, double begin, double end);

bool is_dicom(const std::filesystem::path& path);

/// Whether the content of a file is an image of a kind that is read.
bool is_image(const std::filesystem::path& path);

/// What the content of a file is.
Format format_of(const InputFile& file);

/// The value of "key: value" or "key = value" lines of a text header, by lower-case key.
class TextHeader {
public:
    TextHeader(std::string_view text, std::string_view separator);
    /// Empty when the key is not there; the last one counts.
    std::string value(std::string_view key) const;
    long long integer(std::string_view key, long long otherwise) const;
    double number(std::string_view key, double otherwise) const;

private:
    std::vector<std::pair<std::string, std::string>> lines_;
};

/// Splits at blanks.
std::vector<std::string> words_of(const std::string& text);

/// The number that a text starts with; nothing when there is none.
std::optional<double> number_of(std::string_view text);

}
