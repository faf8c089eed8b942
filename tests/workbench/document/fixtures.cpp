#include "tests/workbench/document/fixtures.h"

#include "workbench/document/text.h"

#include <itkBMPImageIO.h>
#include <itkGDCMImageIO.h>
#include <itkJPEGImageIO.h>
#include <itkMetaImageIO.h>
#include <itkNiftiImageIO.h>
#include <itkNrrdImageIO.h>
#include <itkPNGImageIO.h>
#include <itkTIFFImageIO.h>

#include <algorithm>
#include <charls/charls.h>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

namespace document_test {

using document::Geometry;
using document::PixelType;

Folder::Folder()
{
    std::string name = (std::filesystem::temp_directory_path() / "document_test_XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("no temporary folder");
    path_ = name;
}

Folder::~Folder()
{
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

std::vector<std::string> Folder::names() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string bytes_of_file(const Path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void write_file(const Path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

void write_gzip(const Path& path, std::string_view bytes)
{
    const gzFile file = gzopen(path.c_str(), "wb");
    gzwrite(file, bytes.data(), unsigned(bytes.size()));
    gzclose(file);
}

Geometry turned_geometry(int x, int y, int z)
{
    Geometry geometry;
    geometry.size = {x, y, z};
    geometry.spacing = {0.75, 1.25, 3.5};
    geometry.origin = {-12.5, 30.25, 101};
    const double c = std::cos(0.3), s = std::sin(0.3);
    geometry.direction = {c, -s, 0, s, c, 0, 0, 0, 1};
    return geometry;
}

namespace {

itk::ImageIOBase::Pointer io_for(const Path& path)
{
    const auto extension = document::extension_of(path);
    if (extension == ".nrrd" || extension == ".nhdr")
        return itk::NrrdImageIO::New().GetPointer();
    if (extension == ".mha" || extension == ".mhd")
        return itk::MetaImageIO::New().GetPointer();
    if (extension == ".png")
        return itk::PNGImageIO::New().GetPointer();
    if (extension == ".jpg")
        return itk::JPEGImageIO::New().GetPointer();
    if (extension == ".tif")
        return itk::TIFFImageIO::New().GetPointer();
    if (extension == ".bmp")
        return itk::BMPImageIO::New().GetPointer();
    return itk::NiftiImageIO::New().GetPointer();
}

bool is_picture(const Path& path)
{
    const auto extension = document::extension_of(path);
    return extension == ".png" || extension == ".jpg" || extension == ".tif" || extension == ".bmp";
}

itk::CommonEnums::IOComponent component_of(PixelType type)
{
    using C = itk::CommonEnums::IOComponent;
    const C components[] = {C::UCHAR, C::CHAR, C::USHORT, C::SHORT, C::UINT, C::INT, C::FLOAT, C::DOUBLE, C::UCHAR};
    return components[std::size_t(type)];
}

void describe(itk::ImageIOBase& io, unsigned dimensions, const Geometry& geometry)
{
    io.SetNumberOfDimensions(dimensions);
    itk::ImageIORegion region(dimensions);
    for (unsigned axis = 0; axis < dimensions; ++axis) {
        io.SetDimensions(axis, unsigned(geometry.size[axis]));
        io.SetSpacing(axis, geometry.spacing[axis]);
        io.SetOrigin(axis, geometry.origin[axis]);
        std::vector<double> direction;
        for (unsigned row = 0; row < dimensions; ++row)
            direction.push_back(geometry.direction[row * 3 + axis]);
        io.SetDirection(axis, direction);
        region.SetSize(axis, itk::SizeValueType(geometry.size[axis]));
    }
    io.SetIORegion(region);
}

}

void write_image(
    const Path& path, PixelType type, const Geometry& geometry, const void* pixels, int components, bool compressed)
{
    const auto io = io_for(path);
    io->SetFileName(path.string());
    describe(*io, is_picture(path) ? 2 : 3, geometry);
    using P = itk::CommonEnums::IOPixel;
    const bool colour = components == 3 || components == 4;
    io->SetPixelType(components == 1 ? P::SCALAR : components == 3 ? P::RGB : colour ? P::RGBA : P::VECTOR);
    io->SetComponentType(component_of(type));
    io->SetNumberOfComponents(unsigned(components));
    io->SetUseCompression(compressed);
    io->WriteImageInformation();
    io->Write(pixels);
}

std::vector<std::uint8_t> read_bytes_with_itk(const Path& path, Geometry& geometry)
{
    const auto io = io_for(path);
    io->SetFileName(path.string());
    io->ReadImageInformation();
    itk::ImageIORegion region(3);
    for (unsigned axis = 0; axis < 3; ++axis) {
        region.SetSize(axis, io->GetDimensions(axis));
        geometry.size[axis] = int(io->GetDimensions(axis));
        geometry.spacing[axis] = io->GetSpacing(axis);
        geometry.origin[axis] = io->GetOrigin(axis);
        for (unsigned row = 0; row < 3; ++row)
            geometry.direction[row * 3 + axis] = io->GetDirection(axis)[row];
    }
    io->SetIORegion(region);
    std::vector<std::uint8_t> bytes(std::size_t(io->GetImageSizeInBytes()));
    io->Read(bytes.data());
    return bytes;
}

void write_compressed_dicom(
    const Path& path, int columns, int rows, const std::vector<std::uint16_t>& pixels, Compression compression)
{
    using Kind = itk::GDCMImageIO::CompressionEnum;
    constexpr Kind kinds[] = {Kind::JPEG, Kind::JPEG2000};
    const auto io = itk::GDCMImageIO::New();
    io->SetFileName(path.string());
    Geometry geometry;
    geometry.size = {columns, rows, 1};
    describe(*io, 2, geometry);
    io->SetPixelType(itk::CommonEnums::IOPixel::SCALAR);
    io->SetComponentType(itk::CommonEnums::IOComponent::USHORT);
    io->SetNumberOfComponents(1);
    io->SetUseCompression(true);
    io->SetCompressionType(kinds[std::size_t(compression)]);
    io->WriteImageInformation();
    io->Write(pixels.data());
}

std::string jpeg_ls(int columns, int rows, int samples, const std::vector<std::uint16_t>& planes)
{
    charls::jpegls_encoder encoder;
    encoder.frame_info({std::uint32_t(columns), std::uint32_t(rows), 16, samples});
    encoder.interleave_mode(charls::interleave_mode::none);
    std::string stream(encoder.estimated_destination_size(), '\0');
    encoder.destination(stream);
    stream.resize(encoder.encode(planes));
    return stream;
}

std::string in_child(const std::function<std::string()>& action)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        const auto text = action();
        [[maybe_unused]] const auto count = write(ends[1], text.data(), text.size());
        _exit(0);
    }
    close(ends[1]);
    std::string text;
    char piece[256];
    for (ssize_t count; (count = read(ends[0], piece, sizeof piece)) > 0;)
        text.append(piece, std::size_t(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? text : "it crashed";
}

std::string message_of(const document::Result<document::Opened>& opened)
{
    return opened ? std::string() : opened.failure().message;
}

}
