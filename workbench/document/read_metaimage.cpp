#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace document {

namespace {

constexpr std::size_t header_most = 1 << 20;

/// Where the header ends: after the line that names the data, which is its last.
std::size_t header_end(const std::string& bytes)
{
    const auto key = bytes.find("ElementDataFile");
    if (key == bytes.npos)
        return bytes.npos;
    const auto end = bytes.find('\n', key);
    return end == bytes.npos ? bytes.size() : end + 1;
}

bool take_type(Layout& layout, const std::string& name)
{
    static const std::map<std::string, Element, std::less<>> elements = {{"MET_UCHAR", Element::u8},
        {"MET_CHAR", Element::i8}, {"MET_USHORT", Element::u16}, {"MET_SHORT", Element::i16},
        {"MET_UINT", Element::u32}, {"MET_INT", Element::i32}, {"MET_ULONG", Element::u32}, {"MET_LONG", Element::i32},
        {"MET_ULONG_LONG", Element::u64}, {"MET_LONG_LONG", Element::i64}, {"MET_FLOAT", Element::f32},
        {"MET_DOUBLE", Element::f64}};
    const auto found = elements.find(name);
    if (found == elements.end())
        return false;
    layout.element = found->second;
    return true;
}

bool is_true(const std::string& text)
{
    return !text.empty() && (text[0] == 'T' || text[0] == 't' || text[0] == '1');
}

/// "name%03d.raw 1 60 1": a number in the pattern for each file.
std::vector<std::string> pattern_files(const std::vector<std::string>& words)
{
    const auto mark = words[0].find('%');
    std::size_t digits = mark + 1;
    while (digits < words[0].size() && words[0][digits] >= '0' && words[0][digits] <= '9')
        ++digits;
    if (digits >= words[0].size() || words[0][digits] != 'd')
        return {};
    const auto width = std::size_t(std::min(20.0, number_of(words[0].substr(mark + 1, digits - mark - 1)).value_or(0)));
    const long first = std::atol(words[1].c_str()), last = std::atol(words[2].c_str());
    const long step = words.size() > 3 ? std::atol(words[3].c_str()) : 1;
    std::vector<std::string> files;
    for (long i = first; step > 0 && i <= last && files.size() < 100'000; i += step) {
        auto number = std::to_string(i);
        number.insert(0, width > number.size() ? width - number.size() : 0, '0');
        files.push_back(words[0].substr(0, mark) + number + words[0].substr(digits + 1));
    }
    return files;
}

std::vector<std::string> data_files(const std::string& name, const std::string& after_header)
{
    const auto words = words_of(name);
    if (!words.empty() && words[0] == "LIST") {
        std::vector<std::string> files;
        std::string_view rest = after_header;
        while (!rest.empty()) {
            const auto end = std::min(rest.find('\n'), rest.size());
            if (const auto line = trimmed(rest.substr(0, end)); !line.empty())
                files.push_back(line);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return files;
    }
    if (words.size() >= 3 && words[0].find('%') != std::string::npos)
        return pattern_files(words);
    return {name};
}

Result<VoxelSource> source_of(
    const std::filesystem::path& path, const TextHeader& header, const std::string& bytes, std::size_t end)
{
    VoxelSource source;
    source.header = path;
    const auto name = header.value("elementdatafile");
    if (const auto lower = lower_case(name); lower == "local") {
        source.files = {path};
        source.offset = end;
    } else {
        for (const auto& file : data_files(name, bytes.substr(end)))
            source.files.push_back(path.parent_path() / file);
        const auto skip = header.integer("headersize", 0);
        source.at_end = skip == -1;
        source.offset = skip > 0 ? std::uint64_t(skip) : 0;
    }
    if (source.files.empty())
        return Failure{quoted(path) + " does not say which file holds its pixels (ElementDataFile = " + name +
                       "). Get a new copy of it."};
    if (is_true(header.value("compresseddata")))
        source.encoding = VoxelSource::Encoding::deflated;
    else if (const auto binary = header.value("binarydata"); !binary.empty() && !is_true(binary))
        source.encoding = VoxelSource::Encoding::text;
    return source;
}

}

Result<Opened> read_metaimage(const std::filesystem::path& path, const Progress& progress)
{
    const auto file = InputFile::open(path);
    if (!file)
        return file.failure();
    const auto bytes = read_head(*file, header_most).bytes;
    const auto end = header_end(bytes);
    if (end == bytes.npos)
        return Failure{quoted(path) + " is cut off inside its header. Get a complete copy of the file."};
    const TextHeader header(std::string_view(bytes).substr(0, end), "=");

    Layout layout;
    const auto type = header.value("elementtype");
    // The types of arrays are written like the types of their elements.
    const auto plain = type.ends_with("_ARRAY") ? type.substr(0, type.size() - 6) : type;
    if (!take_type(layout, plain))
        return Failure{quoted(path) + " has pixels of type \"" + type + "\", which is not known. Convert it first."};
    layout.components = int(std::clamp(header.integer("elementnumberofchannels", 1), 1ll, 1024ll));
    layout.swapped = is_true(header.value("binarydatabyteordermsb")) || is_true(header.value("elementbyteordermsb"));
    std::vector<std::int64_t> sizes;
    for (const auto& word : words_of(header.value("dimsize")))
        sizes.push_back(std::atoll(word.c_str()));
    if (const auto failure = take_sizes(layout, sizes, path))
        return *failure;
    const auto source = source_of(path, header, bytes, end);
    if (!source)
        return source.failure();
    auto opened = read_volume(Format::metaimage, *source, layout, progress);
    if (!opened)
        return opened;
    const double slope = header.number("elementtointensityfunctionslope", 1);
    opened->volume.slope = slope != 0 ? slope : 1;
    opened->volume.intercept = header.number("elementtointensityfunctionoffset", 0);
    opened->volume.modality =
        header.value("modality").starts_with("MET_MOD_") ? header.value("modality").substr(8) : "";
    return opened;
}

}
