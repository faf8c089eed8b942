#include "workbench/document/input_file.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <zlib.h>

namespace document {

namespace {

Failure cannot_open(const std::filesystem::path& path, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        return Failure{quoted(path) + " does not exist (in " + path.parent_path().string() + "). Check the name."};
    if (error == EACCES || error == EPERM)
        return Failure{quoted(path) + " may not be read by you. Change its permissions, or copy it elsewhere."};
    return Failure{quoted(path) + " cannot be opened: " + std::strerror(error) + "."};
}

}

Result<InputFile> InputFile::open(const std::filesystem::path& path)
{
    // Without waiting: a pipe that nobody writes to would hold us up for ever.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return cannot_open(path, errno);
    struct stat status = {};
    InputFile file(descriptor, 0, path);
    if (fstat(descriptor, &status) != 0)
        return cannot_open(path, errno);
    if (!S_ISREG(status.st_mode))
        return Failure{quoted(path) + " is no regular file. Choose an image file."};
    if (status.st_size == 0)
        return Failure{quoted(path) + " is empty. Get a complete copy of the file."};
    file.size_ = std::uint64_t(status.st_size);
    return file;
}

InputFile::InputFile(const std::filesystem::path& path, std::vector<std::byte> content)
    : descriptor_(-1), size_(content.size()), path_(path), content_(std::move(content))
{
}

InputFile::InputFile(InputFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), size_(other.size_), path_(std::move(other.path_)),
      content_(std::move(other.content_))
{
}

InputFile::~InputFile()
{
    if (descriptor_ >= 0)
        close(descriptor_);
}

std::size_t InputFile::read(std::uint64_t offset, std::span<std::byte> target) const
{
    if (descriptor_ < 0) {
        const auto begin = std::min<std::uint64_t>(offset, content_.size());
        const auto count = std::min<std::size_t>(target.size(), content_.size() - begin);
        std::copy_n(content_.begin() + std::ptrdiff_t(begin), count, target.begin());
        return count;
    }
    std::size_t done = 0;
    while (done < target.size()) {
        const auto count = pread(descriptor_, target.data() + done, target.size() - done, off_t(offset + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        done += std::size_t(count);
    }
    return done;
}

namespace {

std::string inflated_head(std::string& packed, std::size_t most)
{
    std::string plain(most, '\0');
    z_stream stream = {};
    if (inflateInit2(&stream, 16 + MAX_WBITS) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = uInt(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_out = uInt(plain.size());
    inflate(&stream, Z_SYNC_FLUSH);
    plain.resize(plain.size() - stream.avail_out);
    inflateEnd(&stream);
    return plain;
}

}

Head read_head(const InputFile& file, std::size_t most)
{
    std::string bytes(std::max<std::size_t>(most, 4096), '\0');
    bytes.resize(file.read(0, std::as_writable_bytes(std::span(bytes))));
    if (bytes.starts_with("\x1f\x8b"))
        return {inflated_head(bytes, most), true};
    bytes.resize(std::min(bytes.size(), most));
    return {std::move(bytes), false};
}

}
