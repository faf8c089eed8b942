#pragma once

#include "workbench/document/result.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace document {

/// A regular file open for reading.
class InputFile {
public:
    /// Fails, with what can be done, when it is missing, no file, empty or may not be read.
    static Result<InputFile> open(const std::filesystem::path& path);
    /// As if the file held this.
    InputFile(const std::filesystem::path& path, std::vector<std::byte> content);

    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&&) = delete;
    ~InputFile();

    std::uint64_t size() const { return size_; }
    const std::filesystem::path& path() const { return path_; }

    /// Reads at an offset as much as there is; returns how much. What cannot be read counts as not there.
    std::size_t read(std::uint64_t offset, std::span<std::byte> target) const;

private:
    InputFile(int descriptor, std::uint64_t size, const std::filesystem::path& path)
        : descriptor_(descriptor), size_(size), path_(path)
    {
    }

    int descriptor_; // -1: the content is in memory
    std::uint64_t size_;
    std::filesystem::path path_;
    std::vector<std::byte> content_;
};

/// The first bytes of a file, decoded when it is a gzip file; as many as there are, up to `most`.
struct Head {
    std::string bytes;
    bool gzip = false;
};
Head read_head(const InputFile& file, std::size_t most);

}
