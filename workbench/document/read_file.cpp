#include "workbench/document/elements.h"
#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cstring>

namespace document {

namespace {

bool is_nifti(const std::string& head)
{
    if (head.size() < 348)
        return false;
    const std::string magic = head.substr(344, 3);
    return magic == "n+1" || magic == "ni1";
}

/// Analyze 7.5, the forerunner, has no magic but always this size in front.
bool is_analyze(const std::string& head)
{
    return head.size() >= 348 &&
           (head.starts_with(std::string("\x5c\x01\0\0", 4)) || head.starts_with(std::string("\0\0\x01\x5c", 4)));
}

bool is_metaimage(const std::string& head)
{
    return head.find("NDims") != head.npos && head.find('=') != head.npos &&
           (head.starts_with("ObjectType") || head.starts_with("NDims") || head.starts_with("Comment"));
}

/// Without the usual preamble, as some old devices write it: the first group is that of the file or of its identity, in
/// either byte order.
bool is_bare_dicom(const std::string& head)
{
    if (head.size() < 16)
        return false;
    const bool typed =
        std::isupper(static_cast<unsigned char>(head[4])) && std::isupper(static_cast<unsigned char>(head[5]));
    const bool little = (head[0] == 2 || head[0] == 8) && head[1] == 0 && head[3] == 0 && (typed || head[6] == 0);
    const bool big = head[0] == 0 && head[1] == 8 && head[2] == 0 && typed;
    return little || big;
}

bool is_nifti_2(const std::string& head)
{
    return head.size() >= 8 && (head.compare(4, 3, "n+2") == 0 || head.compare(4, 3, "ni2") == 0);
}

bool is_usual(const std::string& extension)
{
    static const char* const usual[] = {".nii", ".nii.gz", ".hdr", ".hdr.gz", ".img", ".img.gz", ".nrrd", ".nhdr",
        ".mha", ".mhd", ".png", ".jpg", ".jpeg", ".tif", ".tiff", ".bmp", ".dcm"};
    return std::find(std::begin(usual), std::end(usual), extension) != std::end(usual);
}

Failure not_known(const InputFile& file)
{
    const auto& path = file.path();
    const auto extension = extension_of(path);
    if (is_nifti_2(read_head(file, 16).bytes))
        return Failure{quoted(path) + " is of version 2 of NIfTI, which cannot be read. Save it as NIfTI-1."};
    if (is_usual(extension))
        return Failure{quoted(path) + " is damaged, cut off, or not what its name says: it does not begin like a \"" +
                       extension + "\" file. Get a new copy of it."};
    if (extension == ".raw" || extension == ".zraw")
        return Failure{quoted(path) + " holds only pixels. Open the \".mhd\" or \".nhdr\" file that describes them."};
    if (read_head(file, 16).gzip)
        return Failure{quoted(path) + " is packed with gzip. Unpack it, and open what was in it."};
    return Failure{quoted(path) + " is of no kind that can be read. Open a DICOM, NIfTI, NRRD, MetaImage, PNG, JPEG,"
                                  " TIFF or BMP file."};
}

/// For the voxel file of a pair, its header.
std::filesystem::path header_file(const std::filesystem::path& path)
{
    const auto extension = extension_of(path);
    if (extension != ".img" && extension != ".img.gz")
        return path;
    const auto text = path.string();
    const auto stem = text.substr(0, text.size() - extension.size());
    for (const char* header : {".hdr", ".hdr.gz"})
        if (std::error_code error; std::filesystem::exists(stem + header, error))
            return stem + header;
    return path;
}

}

Format format_of(const InputFile& file)
{
    const auto [head, gzip] = read_head(file, 512);
    // Before all others: the bytes in front of its mark may be those of another format.
    if (!gzip && head.size() >= 132 && head.compare(128, 4, "DICM") == 0)
        return Format::dicom;
    if (is_nifti(head) || is_analyze(head))
        return Format::nifti;
    if (gzip)
        return Format::unknown;
    if (head.starts_with("NRRD000"))
        return Format::nrrd;
    if (head.starts_with("\x89PNG\r\n\x1a\n"))
        return Format::png;
    if (head.starts_with("\xff\xd8\xff"))
        return Format::jpeg;
    if (head.starts_with(std::string("II*\0", 4)) || head.starts_with(std::string("MM\0*", 4)) ||
        head.starts_with(std::string("II+\0", 4)) || head.starts_with(std::string("MM\0+", 4)))
        return Format::tiff;
    if (is_metaimage(head))
        return Format::metaimage;
    if (head.starts_with("BM"))
        return Format::bmp;
    return is_bare_dicom(head) ? Format::dicom : Format::unknown;
}

Result<Opened> read_volume(Format format, const VoxelSource& source, const Layout& layout, const Progress& progress)
{
    auto elements = read_elements(source, layout, progress);
    if (!elements)
        return elements.failure();
    const auto itk = ItkFile::open(format, source.header);
    if (!itk)
        return itk.failure();
    Opened opened;
    opened.volume.geometry = itk->header().geometry;
    if (const auto failure = take_elements(opened.volume, opened.notices, std::move(*elements), layout, source.header))
        return *failure;
    return opened;
}

Result<Opened> read_file(const std::filesystem::path& chosen, const Progress& progress)
{
    const auto path = header_file(chosen);
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    const auto format = format_of(*file);
    switch (format) {
    case Format::nifti:
        return read_nifti(path, progress);
    case Format::nrrd:
        return read_nrrd(path, progress);
    case Format::metaimage:
        return read_metaimage(path, progress);
    case Format::png:
    case Format::jpeg:
    case Format::tiff:
    case Format::bmp:
        return read_picture(format, path, progress);
    default:
        return not_known(*file);
    }
}

}
