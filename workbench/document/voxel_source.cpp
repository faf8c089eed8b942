#include "workbench/document/voxel_source.h"

#include "workbench/document/inflater.h"
#include "workbench/document/input_file.h"
#include "workbench/document/samples.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>

namespace document {

namespace {

using Bytes = std::span<std::byte>;
constexpr std::size_t piece = std::size_t(4) << 20;

/// One file of a source, its part of the elements, and how much of that part the first volume takes.
struct Part {
    const VoxelSource& source;
    const Layout& layout;
    const InputFile& file;
    std::uint64_t promised;
    Bytes wanted;
    double done, share; // of the whole reading

    Failure cut(std::uint64_t found) const { return cut_off(file.path(), layout, found); }
};

const Failure stopped = {"Reading was stopped.", true};

std::optional<Failure> read_raw(const Part& part, const Progress& progress)
{
    const auto size = part.file.size();
    const auto start = part.source.at_end ? size - std::min(size, part.promised)
                                          : std::min(size, part.source.offset + part.source.skip);
    if (size - start < part.promised)
        return part.cut(size - start);
    for (std::size_t at = 0; at < part.wanted.size(); at += piece) {
        if (progress.stop())
            return stopped;
        const auto target = part.wanted.subspan(at, std::min(piece, part.wanted.size() - at));
        if (const auto count = part.file.read(start + at, target); count < target.size())
            return part.cut(at + count);
        progress.at(part.done + part.share * double(at) / double(part.wanted.size()));
    }
    return {};
}

std::optional<Failure> read_deflated(const Part& part, const Progress& progress)
{
    // No stream of deflate grows by more than this: a promise beyond it needs no memory to be refused.
    constexpr std::uint64_t most_growth = 1032;
    if (part.promised / most_growth > part.file.size())
        return part.cut(part.file.size() * most_growth);

    Inflater inflater(part.file, part.source.offset);
    inflater.on_input = [&](std::uint64_t position) {
        progress.at(part.done + part.share * double(position) / double(part.file.size()));
        return !progress.stop();
    };
    inflater.skip(part.source.skip);
    auto found = inflater.read(part.wanted);
    found += inflater.skip(part.promised - found);
    inflater.finish();
    switch (inflater.state()) {
    case Inflater::State::stopped:
        return stopped;
    case Inflater::State::damaged:
        return Failure{quoted(part.file.path()) + " is damaged: its compressed data are wrong after " +
                       bytes_text(found) + ". Get a new copy of the file."};
    case Inflater::State::no_memory:
        return Failure{"There is not enough memory to read " + quoted(part.file.path()) + "."};
    case Inflater::State::cut_off:
        return Failure{quoted(part.file.path()) + " is cut off: its compressed data end too early, after " +
                       bytes_text(found) + " of " + bytes_text(part.promised) + ". Get a complete copy of the file."};
    case Inflater::State::ended:
        break;
    }
    if (found < part.promised)
        return part.cut(found);
    return {};
}

template <class Number>
bool read_number(const char*& at, const char* end, std::byte* target)
{
    while (at < end && (std::isspace(static_cast<unsigned char>(*at)) || *at == ','))
        ++at;
    Number number = {};
    const auto result = std::from_chars(at, end, number);
    if (result.ec != std::errc())
        return false;
    at = result.ptr;
    std::memcpy(target, &number, sizeof number);
    return true;
}

bool read_number(Element element, const char*& at, const char* end, std::byte* target)
{
    switch (element) {
    case Element::u8:
        return read_number<std::uint8_t>(at, end, target);
    case Element::i8:
        return read_number<std::int8_t>(at, end, target);
    case Element::u16:
        return read_number<std::uint16_t>(at, end, target);
    case Element::i16:
        return read_number<std::int16_t>(at, end, target);
    case Element::u32:
        return read_number<std::uint32_t>(at, end, target);
    case Element::i32:
        return read_number<std::int32_t>(at, end, target);
    case Element::u64:
        return read_number<std::uint64_t>(at, end, target);
    case Element::i64:
        return read_number<std::int64_t>(at, end, target);
    case Element::f32:
        return read_number<float>(at, end, target);
    case Element::f64:
        break;
    }
    return read_number<double>(at, end, target);
}

std::optional<Failure> read_text(const Part& part, const Progress& progress)
{
    const auto start = std::min(part.file.size(), part.source.offset + part.source.skip);
    std::string text(part.file.size() - start, '\0');
    text.resize(part.file.read(start, std::as_writable_bytes(std::span(text))));
    const std::size_t step = bytes_of(part.layout.element);
    const char* at = text.data();
    std::byte unwanted[8];
    for (std::uint64_t done = 0; done < part.promised; done += step) {
        auto* const target = done < part.wanted.size() ? part.wanted.data() + done : unwanted;
        if (!read_number(part.layout.element, at, text.data() + text.size(), target))
            return part.cut(done);
        if (done % piece == 0 && progress.stop())
            return stopped;
    }
    return {};
}

std::optional<Failure> read_part(const Part& part, const Progress& progress)
{
    switch (part.source.encoding) {
    case VoxelSource::Encoding::raw:
        return read_raw(part, progress);
    case VoxelSource::Encoding::deflated:
        return read_deflated(part, progress);
    case VoxelSource::Encoding::text:
        break;
    }
    return read_text(part, progress);
}

std::optional<Failure> read_parts(
    const VoxelSource& source, const Layout& layout, Bytes volume, const Progress& progress)
{
    const std::uint64_t share = layout.total_bytes() / source.files.size();
    const double files = double(source.files.size());
    for (std::size_t i = 0; i < source.files.size(); ++i) {
        const auto file = InputFile::open(source.files[i]);
        if (!file && source.files[i] == source.header)
            return file.failure();
        if (!file)
            return Failure{quoted(source.header) + " keeps its pixels in another file: " + file.failure().message};
        const std::uint64_t start = std::min<std::uint64_t>(i * share, volume.size());
        const auto wanted = volume.subspan(start, std::min<std::uint64_t>(share, volume.size() - start));
        if (const auto failure =
                read_part({source, layout, *file, share, wanted, double(i) / files, 1 / files}, progress))
            return failure;
    }
    return {};
}

}

Result<PixelMemory> read_elements(const VoxelSource& source, const Layout& layout, const Progress& progress)
{
    if (layout.total_bytes() % source.files.size() != 0)
        return Failure{quoted(source.header) + " names " + std::to_string(source.files.size()) +
                       " files, which cannot hold equal parts of " + size_text(layout.size) +
                       " pixels. Check the list of files."};
    // A file that cannot hold what is promised is told before memory is asked for.
    if (source.encoding == VoxelSource::Encoding::raw)
        if (const auto file = InputFile::open(source.files.front());
            file && file->size() < layout.total_bytes() / source.files.size())
            return cut_off(source.files.front(), layout, file->size() - std::min(file->size(), source.offset));
    auto memory = allocate_volume(layout, source.header);
    if (!memory)
        return memory;
    if (const auto failure = read_parts(source, layout, memory->bytes(), progress))
        return *failure;
    if (layout.swapped && source.encoding != VoxelSource::Encoding::text && bytes_of(layout.element) > 1)
        swap_bytes(memory->bytes(), bytes_of(layout.element));
    progress.at(1);
    return memory;
}

}
