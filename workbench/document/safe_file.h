#pragma once

#include "workbench/document/result.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

namespace document {

/// Writes a file beside its target and puts it in the target's place only when all went well. A symbolic link is
/// followed. `write` gets the path to write to (it exists, empty, with the target's extension) and returns what went
/// wrong, having read back what it wrote. `bytes` is about how much will be written, to tell a full disk.
std::optional<Failure> replace_file(const std::filesystem::path& target, std::uint64_t bytes,
    const std::function<std::optional<Failure>(const std::filesystem::path& temporary)>& write);

}
