#include "workbench/document/dicom_file.h"

#include "workbench/document/dicom_walker.h"
#include "workbench/document/inflater.h"
#include "workbench/document/pixels.h"
#include "workbench/document/text.h"

namespace document {

namespace {

constexpr std::size_t step = std::size_t(1) << 20;

Failure cannot_inflate(const InputFile& file, Inflater::State state)
{
    switch (state) {
    case Inflater::State::cut_off:
        return Failure{quoted(file.path()) + " is cut off: it ends after " + bytes_text(file.size()) +
                       ", before what is compressed in it does. Get a complete copy of the file."};
    case Inflater::State::no_memory:
        return Failure{quoted(file.path()) + " is compressed as a whole and needs more memory than there is free."
                                             " Close other programs, or save it in another transfer syntax."};
    default:
        return Failure{quoted(file.path()) + " is damaged: what is compressed in it cannot be unpacked. Get a new copy"
                                             " of the file."};
    }
}

/// The part that is not compressed, then the rest as it was.
Result<InputFile> inflated(const InputFile& file, std::uint64_t begin)
{
    std::vector<std::byte> content(begin);
    content.resize(file.read(0, content));
    Inflater inflater(file, begin, Inflater::Wrapping::none);
    const auto most = memory_available() / 2; // a vector that grows needs both the old and the new
    for (std::uint64_t came = step; came == step;) {
        if (content.size() > most)
            return cannot_inflate(file, Inflater::State::no_memory);
        const auto end = content.size();
        content.resize(end + step);
        came = inflater.read(std::span(content).subspan(end));
        content.resize(end + came);
    }
    if (inflater.state() != Inflater::State::ended)
        return cannot_inflate(file, inflater.state());
    return InputFile(file.path(), std::move(content));
}

}

Result<InputFile> open_dicom(const std::filesystem::path& path)
{
    auto file = InputFile::open(path);
    if (!file)
        return file;
    const auto begin = DicomWalker(*file).deflated_from();
    return begin ? inflated(*file, *begin) : std::move(file);
}

}
