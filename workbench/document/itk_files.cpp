#include "workbench/document/itk_files.h"

#include "workbench/document/text.h"

#include <itkBMPImageIO.h>
#include <itkJPEGImageIO.h>
#include <itkMetaDataObject.h>
#include <itkMetaImageIO.h>
#include <itkNiftiImageIO.h>
#include <itkNrrdImageIO.h>
#include <itkPNGImageIO.h>
#include <itkTIFFImageIO.h>

namespace document {

namespace {

using Component = itk::CommonEnums::IOComponent;

// What the decoders would print to the console comes as a Failure.
void silence()
{
    itk::Object::SetGlobalWarningDisplay(false);
}

itk::ImageIOBase::Pointer make_io(Format format)
{
    silence();
    switch (format) {
    case Format::nifti:
        return itk::NiftiImageIO::New().GetPointer();
    case Format::nrrd:
        return itk::NrrdImageIO::New().GetPointer();
    case Format::metaimage:
        return itk::MetaImageIO::New().GetPointer();
    case Format::png:
        return itk::PNGImageIO::New().GetPointer();
    case Format::jpeg:
        return itk::JPEGImageIO::New().GetPointer();
    case Format::tiff:
        return itk::TIFFImageIO::New().GetPointer();
    case Format::bmp:
        return itk::BMPImageIO::New().GetPointer();
    case Format::dicom: // read otherwise
    case Format::unknown:
        break;
    }
    return nullptr;
}

std::optional<Element> element_of(Component component)
{
    switch (component) {
    case Component::UCHAR:
        return Element::u8;
    case Component::CHAR:
        return Element::i8;
    case Component::USHORT:
        return Element::u16;
    case Component::SHORT:
        return Element::i16;
    case Component::UINT:
        return Element::u32;
    case Component::INT:
        return Element::i32;
    case Component::ULONG:
        return sizeof(long) == 8 ? Element::u64 : Element::u32;
    case Component::LONG:
        return sizeof(long) == 8 ? Element::i64 : Element::i32;
    case Component::ULONGLONG:
        return Element::u64;
    case Component::LONGLONG:
        return Element::i64;
    case Component::FLOAT:
        return Element::f32;
    case Component::DOUBLE:
        return Element::f64;
    default:
        return {};
    }
}

Geometry geometry_of(const itk::ImageIOBase& io)
{
    Geometry geometry;
    geometry.size = {1, 1, 1};
    const unsigned dimensions = std::min(3u, io.GetNumberOfDimensions());
    for (unsigned axis = 0; axis < dimensions; ++axis) {
        const auto size = io.GetDimensions(axis);
        geometry.size[axis] = size > INT_MAX ? 0 : int(size);
        geometry.spacing[axis] = io.GetSpacing(axis);
        geometry.origin[axis] = io.GetOrigin(axis);
        const auto direction = io.GetDirection(axis);
        for (unsigned row = 0; row < std::min<std::size_t>(3, direction.size()); ++row)
            geometry.direction[row * 3 + axis] = direction[row];
    }
    return geometry;
}

ItkHeader header_of(const itk::ImageIOBase& io)
{
    ItkHeader header;
    for (unsigned axis = 0; axis < io.GetNumberOfDimensions(); ++axis)
        header.size.push_back(std::int64_t(io.GetDimensions(axis)));
    header.geometry = geometry_of(io);
    if (io.GetPixelType() != itk::CommonEnums::IOPixel::COMPLEX)
        header.element = element_of(io.GetComponentType());
    header.components = int(io.GetNumberOfComponents());
    return header;
}

/// What ITK says, cut to the sentence that tells something.
std::string reason_of(const itk::ExceptionObject& error)
{
    std::string text = error.GetDescription();
    const auto start = text.find("): ");
    if (text.find("ITK ERROR") != text.npos && start != text.npos)
        text.erase(0, start + 3);
    text = trimmed(text.substr(0, text.find('\n')));
    return text.empty() ? "it is damaged" : text;
}

/// Runs an action of ITK; what it throws becomes a failure.
template <class Action>
std::optional<Failure> guarded(const std::filesystem::path& path, const char* verb, Action&& action)
{
    try {
        action();
        return {};
    } catch (const itk::ExceptionObject& error) {
        return Failure{quoted(path) + " cannot be " + verb + ": " + reason_of(error)};
    } catch (const std::bad_alloc&) {
        return Failure{
            quoted(path) + " cannot be " + verb + ": there is not enough memory. Close other programs first."};
    } catch (const std::exception& error) {
        return Failure{quoted(path) + " cannot be " + verb + ": " + error.what()};
    } catch (...) {
        return Failure{quoted(path) + " cannot be " + verb + ": it is damaged."};
    }
}

}

struct ItkFile::Reader {
    itk::ImageIOBase::Pointer io;
    std::filesystem::path path;
};

Result<ItkFile> ItkFile::open(Format format, const std::filesystem::path& path)
{
    ItkFile file;
    const auto failure = guarded(path, "read", [&] {
        file.reader_ = std::make_shared<Reader>(Reader{make_io(format), path});
        auto& io = *file.reader_->io;
        io.SetFileName(path.string());
        io.ReadImageInformation();
        file.header_ = header_of(io);
    });
    if (failure)
        return *failure;
    return file;
}

std::string ItkFile::text(const std::string& key) const
{
    std::string value;
    itk::ExposeMetaData(reader_->io->GetMetaDataDictionary(), key, value);
    return trimmed(value);
}

std::optional<Failure> ItkFile::read(std::span<std::byte> target)
{
    return guarded(reader_->path, "read", [&] {
        auto& io = *reader_->io;
        const unsigned dimensions = io.GetNumberOfDimensions();
        itk::ImageIORegion region(dimensions);
        for (unsigned axis = 0; axis < dimensions; ++axis)
            region.SetSize(axis, io.GetDimensions(axis));
        io.SetIORegion(region);
        if (std::size_t(io.GetImageSizeInBytes()) != target.size())
            throw std::runtime_error("its size changed while it was read");
        io.Read(target.data());
    });
}

namespace {

void describe(itk::ImageIOBase& io, const Geometry& geometry)
{
    io.SetNumberOfDimensions(3);
    itk::ImageIORegion region(3);
    for (unsigned axis = 0; axis < 3; ++axis) {
        io.SetDimensions(axis, unsigned(geometry.size[axis]));
        io.SetSpacing(axis, geometry.spacing[axis]);
        io.SetOrigin(axis, geometry.origin[axis]);
        const auto& d = geometry.direction;
        io.SetDirection(axis, std::vector<double>{d[axis], d[3 + axis], d[6 + axis]});
        region.SetSize(axis, itk::SizeValueType(geometry.size[axis]));
    }
    io.SetIORegion(region);
    io.SetPixelType(itk::CommonEnums::IOPixel::SCALAR);
    io.SetComponentType(Component::UCHAR);
    io.SetNumberOfComponents(1);
    io.SetUseCompression(true);
}

}

std::optional<Failure> itk_write(
    const std::filesystem::path& path, const Geometry& geometry, std::span<const std::uint8_t> bytes)
{
    const auto extension = extension_of(path);
    const Format format = extension == ".nrrd" ? Format::nrrd : extension == ".mha" ? Format::metaimage : Format::nifti;
    return guarded(path, "written", [&] {
        const auto io = make_io(format);
        io->SetFileName(path.string());
        describe(*io, geometry);
        io->WriteImageInformation();
        io->Write(bytes.data());
    });
}

}
