#pragma once

#include "workbench/document/input_file.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>
#include <zlib.h>

namespace document {

/// Decodes gzip or zlib data of a file, several gzip streams in a row included, and checks their checksums; or data
/// without any wrapping.
class Inflater {
public:
    enum class State { ended, cut_off, damaged, no_memory, stopped };
    enum class Wrapping { gzip_or_zlib, none };

    Inflater(const InputFile& file, std::uint64_t offset, Wrapping wrapping = Wrapping::gzip_or_zlib);
    ~Inflater();
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    /// Called before more is read from this position of the file; false stops.
    std::function<bool(std::uint64_t position)> on_input;

    std::uint64_t read(std::span<std::byte> target); ///< returns how many bytes came
    std::uint64_t skip(std::uint64_t count);         ///< decodes and drops; returns how many came
    void finish();                                   ///< decodes to the end, so that its checksum is checked

    /// What stopped it; `ended` also while there is more to come.
    State state() const { return state_; }

private:
    bool fill();
    bool next_stream();
    std::size_t decode(std::span<std::byte> target);

    const InputFile& file_;
    std::uint64_t position_;
    z_stream stream_ = {};
    std::vector<std::byte> input_;
    bool over_ = false; // nothing more comes, for good or bad
    State state_ = State::ended;
};

}
