#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace document {

namespace {

constexpr std::size_t header_most = 1 << 20;

struct Split {
    std::string header;
    std::size_t data; ///< offset of what follows the header
};

/// The header ends with an empty line; that of a detached one may end with the file.
Split split_header(const std::string& bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = bytes.find('\n', at);
        if (end == bytes.npos)
            break;
        if (end == at || (end == at + 1 && bytes[at] == '\r'))
            return {bytes.substr(0, at), end + 1};
        at = end + 1;
    }
    return {bytes, bytes.size()};
}

bool take_type(Layout& layout, const std::string& name)
{
    static const std::map<std::string, Element, std::less<>> elements = {{"signed char", Element::i8},
        {"int8", Element::i8}, {"int8_t", Element::i8}, {"uchar", Element::u8}, {"unsigned char", Element::u8},
        {"uint8", Element::u8}, {"uint8_t", Element::u8}, {"short", Element::i16}, {"short int", Element::i16},
        {"signed short", Element::i16}, {"signed short int", Element::i16}, {"int16", Element::i16},
        {"int16_t", Element::i16}, {"ushort", Element::u16}, {"unsigned short", Element::u16},
        {"unsigned short int", Element::u16}, {"uint16", Element::u16}, {"uint16_t", Element::u16},
        {"int", Element::i32}, {"signed int", Element::i32}, {"int32", Element::i32}, {"int32_t", Element::i32},
        {"uint", Element::u32}, {"unsigned int", Element::u32}, {"uint32", Element::u32}, {"uint32_t", Element::u32},
        {"longlong", Element::i64}, {"long long", Element::i64}, {"long long int", Element::i64},
        {"signed long long", Element::i64}, {"signed long long int", Element::i64}, {"int64", Element::i64},
        {"int64_t", Element::i64}, {"ulonglong", Element::u64}, {"unsigned long long", Element::u64},
        {"unsigned long long int", Element::u64}, {"uint64", Element::u64}, {"uint64_t", Element::u64},
        {"float", Element::f32}, {"double", Element::f64}};
    const auto found = elements.find(lower_case(name));
    if (found == elements.end())
        return false;
    layout.element = found->second;
    return true;
}

bool is_range(const std::string& kind)
{
    return !kind.empty() && kind != "???" && kind != "none" && kind != "domain" && kind != "space" && kind != "time";
}

/// Takes the sizes; an axis of components must be the fastest, or so slow that it counts as further volumes.
std::optional<Failure> take_axes(Layout& layout, const TextHeader& header, const std::filesystem::path& path)
{
    std::vector<std::int64_t> sizes;
    for (const auto& word : words_of(header.value("sizes")))
        sizes.push_back(std::atoll(word.c_str()));
    const auto kinds = words_of(lower_case(header.value("kinds")));
    for (std::size_t axis = 1; axis < std::min({kinds.size(), sizes.size(), std::size_t(3)}); ++axis)
        if (is_range(kinds[axis]))
            return Failure{quoted(path) + " has its components along axis " + std::to_string(axis + 1) +
                           ", between its rows. Reorder the axes so that components come first."};
    if (!kinds.empty() && is_range(kinds[0]) && !sizes.empty()) {
        if (sizes[0] < 1 || sizes[0] > 1024)
            return Failure{quoted(path) + " cannot be read: it has " + std::to_string(sizes[0]) +
                           " components a pixel. It is damaged, or its axes must be reordered."};
        layout.components = int(sizes[0]);
        sizes.erase(sizes.begin());
    }
    return take_sizes(layout, sizes, path);
}

/// "LIST" with a name a line after it, or one name.
std::vector<std::filesystem::path> data_files(
    const std::filesystem::path& path, const std::string& name, const std::string& header)
{
    if (!name.starts_with("LIST"))
        return {path.parent_path() / name};
    std::vector<std::filesystem::path> files;
    std::string_view rest = header;
    rest.remove_prefix(std::min(rest.size(), rest.find('\n', rest.rfind("LIST"))));
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\n'), rest.size());
        if (const auto line = trimmed(rest.substr(0, end)); !line.empty())
            files.push_back(path.parent_path() / line);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return files;
}

std::uint64_t after_lines(const std::filesystem::path& path, std::uint64_t offset, long long lines)
{
    const auto file = InputFile::open(path);
    std::byte byte;
    while (file && lines > 0 && file->read(offset, {&byte, 1}) == 1) {
        ++offset;
        lines -= byte == std::byte('\n') ? 1 : 0;
    }
    return offset;
}

Result<VoxelSource> source_of(const std::filesystem::path& path, const TextHeader& header, const Split& split)
{
    VoxelSource source;
    source.header = path;
    auto name = header.value("data file");
    if (name.empty())
        name = header.value("datafile");
    if (name.find('%') != name.npos)
        return Failure{quoted(path) + " names its data by a pattern (" + name +
                       "), which cannot be read. Replace it by \"LIST\" and one name a line."};
    source.files = name.empty() ? std::vector{path} : data_files(path, name, split.header);
    source.offset = name.empty() ? split.data : 0;
    if (source.files.empty())
        return Failure{quoted(path) + " does not say which files hold its pixels. Get a new copy of it."};

    auto skip_lines = header.integer("line skip", 0);
    skip_lines = std::max(skip_lines, header.integer("lineskip", 0));
    if (skip_lines > 0)
        source.offset = after_lines(source.files[0], source.offset, skip_lines);
    const auto skip_bytes = header.integer("byte skip", header.integer("byteskip", 0));
    source.at_end = skip_bytes == -1;
    source.skip = skip_bytes > 0 ? std::uint64_t(skip_bytes) : 0;

    const auto encoding = lower_case(header.value("encoding"));
    if (encoding == "raw")
        source.encoding = VoxelSource::Encoding::raw;
    else if (encoding == "gzip" || encoding == "gz")
        source.encoding = VoxelSource::Encoding::deflated;
    else if (encoding == "ascii" || encoding == "text" || encoding == "txt")
        source.encoding = VoxelSource::Encoding::text;
    else
        return Failure{quoted(path) + " has its pixels encoded as \"" + encoding +
                       "\", which cannot be read. Save it with the encoding \"gzip\" or \"raw\"."};
    return source;
}

}

Result<Opened> read_nrrd(const std::filesystem::path& path, const Progress& progress)
{
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    const auto bytes = read_head(*file, header_most).bytes;
    const auto split = split_header(bytes);
    const TextHeader header(split.header, ":");

    Layout layout;
    if (header.value("type").empty() || header.value("sizes").empty() || header.value("encoding").empty())
        return Failure{quoted(path) + " is cut off inside its header. Get a complete copy of the file."};
    if (!take_type(layout, header.value("type")))
        return Failure{quoted(path) + " has pixels of type \"" + header.value("type") +
                       "\", which cannot be shown. Convert it to numbers."};
    layout.swapped = lower_case(header.value("endian")) == "big";
    if (const auto failure = take_axes(layout, header, path))
        return *failure;
    const auto source = source_of(path, header, split);
    if (!source)
        return source.failure();
    auto opened = read_volume(Format::nrrd, *source, layout, progress);
    if (!opened)
        return opened;
    opened->volume.unit = trimmed(header.value("sample units"));
    std::erase(opened->volume.unit, '"');
    return opened;
}

}
