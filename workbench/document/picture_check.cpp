#include "workbench/document/picture_check.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <vector>
#include <zlib.h>

namespace document {

namespace {

Failure picture_cut_off(const InputFile& file)
{
    return Failure{quoted(file.path()) + " is cut off: it ends after " + bytes_text(file.size()) +
                   ", before its picture does. Get a complete copy of the file."};
}

/// Whole numbers at places of a file; 0 where the file has ended.
class Numbers {
public:
    Numbers(const InputFile& file, bool big_endian) : file_(file), big_endian_(big_endian) {}

    std::uint64_t at(std::uint64_t offset, std::size_t width) const
    {
        std::byte raw[8] = {};
        file_.read(offset, std::span(raw, width));
        if (!big_endian_)
            std::reverse(raw, raw + width);
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < width; ++i)
            number = number << 8 | std::uint64_t(raw[i]);
        return number;
    }

private:
    const InputFile& file_;
    bool big_endian_;
};

/// A chain of chunks, each with a checksum; the last is called IEND.
std::optional<Failure> check_png(const InputFile& file)
{
    const Numbers numbers(file, true);
    std::vector<std::byte> chunk;
    for (std::uint64_t at = 8; at + 12 <= file.size();) {
        const auto length = numbers.at(at, 4);
        if (length > file.size() - at - 12)
            break;
        chunk.resize(std::size_t(length) + 4); // its name and its content
        file.read(at + 4, chunk);
        const auto sum = crc32(0, reinterpret_cast<const Bytef*>(chunk.data()), uInt(chunk.size()));
        if (sum != numbers.at(at + 8 + length, 4))
            return Failure{quoted(file.path()) + " is damaged: a checksum in it is wrong. Get a new copy of the file."};
        if (numbers.at(at + 4, 4) == 0x49454E44)
            return {};
        at += 12 + length;
    }
    return picture_cut_off(file);
}

std::optional<Failure> check_bmp(const InputFile& file)
{
    const Numbers numbers(file, false);
    const auto start = numbers.at(10, 4);
    const auto width = std::int32_t(numbers.at(18, 4)), height = std::int32_t(numbers.at(22, 4));
    const auto bits = numbers.at(28, 2), compression = numbers.at(30, 4);
    const auto row = (std::uint64_t(std::abs(std::int64_t(width))) * bits + 31) / 32 * 4;
    const auto plain = row * std::uint64_t(std::abs(std::int64_t(height)));
    const bool packed = compression == 1 || compression == 2;
    const auto promised = packed ? numbers.at(34, 4) : plain;
    if (start < 26 || start > file.size() || promised > file.size() - start)
        return picture_cut_off(file);
    return {};
}

/// The directories of a TIFF file, classic or big.
class TiffCheck {
public:
    explicit TiffCheck(const InputFile& file)
        : file_(file), numbers_(file, Numbers(file, true).at(0, 2) == 0x4D4D), big_(numbers_.at(2, 2) == 43)
    {
    }

    bool complete() const
    {
        auto directory = big_ ? numbers_.at(8, 8) : numbers_.at(4, 4);
        if (directory == 0)
            return false;
        // A chain that runs in a circle is stopped by the count.
        for (int i = 0; directory != 0 && i < 100'000; ++i) {
            const auto entries = numbers_.at(directory, big_ ? 8 : 2);
            const auto first = directory + (big_ ? 8 : 2);
            const auto end = first + entries * entry_size();
            if (entries == 0 || entries > file_.size() || end + offset_size() > file_.size())
                return false;
            if (!directory_complete(first, entries))
                return false;
            directory = numbers_.at(end, offset_size());
        }
        return directory == 0;
    }

private:
    struct Entry {
        std::uint64_t count = 0, width = 0, values = 0; // values: where they are
    };

    std::uint64_t entry_size() const { return big_ ? 20 : 12; }
    std::uint64_t offset_size() const { return big_ ? 8 : 4; }

    Entry entry(std::uint64_t at) const
    {
        constexpr int widths[] = {1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 1, 1, 8, 8, 8}; // by type, from 0
        const auto type = numbers_.at(at + 2, 2);
        Entry entry;
        entry.width = type < std::size(widths) ? std::uint64_t(widths[type]) : 1;
        entry.count = numbers_.at(at + 4, offset_size());
        const auto inside = at + 4 + offset_size();
        entry.values = entry.count * entry.width <= offset_size() ? inside : numbers_.at(inside, offset_size());
        return entry;
    }

    bool directory_complete(std::uint64_t first, std::uint64_t entries) const
    {
        Entry offsets, counts;
        for (std::uint64_t i = 0; i < entries; ++i) {
            const auto at = first + i * entry_size();
            const auto tag = numbers_.at(at, 2);
            const auto found = entry(at);
            if (found.count > file_.size() || found.values + found.count * found.width > file_.size())
                return false;
            if (tag == 273 || tag == 324)
                offsets = found;
            else if (tag == 279 || tag == 325)
                counts = found;
        }
        for (std::uint64_t i = 0; i < std::min(offsets.count, counts.count); ++i) {
            const auto offset = numbers_.at(offsets.values + i * offsets.width, offsets.width);
            const auto count = numbers_.at(counts.values + i * counts.width, counts.width);
            if (offset > file_.size() || count > file_.size() - offset)
                return false;
        }
        return true;
    }

    const InputFile& file_;
    Numbers numbers_;
    bool big_;
};

}

std::optional<Failure> check_picture(Format format, const InputFile& file)
{
    switch (format) {
    case Format::png:
        return check_png(file);
    case Format::bmp:
        return check_bmp(file);
    case Format::tiff:
        if (!TiffCheck(file).complete())
            return picture_cut_off(file);
        return {};
    default:
        return {};
    }
}

}
