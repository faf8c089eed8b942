#include "workbench/document/inflater.h"

#include <algorithm>
#include <array>

namespace document {

namespace {

constexpr std::size_t input_size = std::size_t(256) << 10;
constexpr std::size_t output_most = std::size_t(1) << 30; // zlib counts in 32 bits

}

Inflater::Inflater(const InputFile& file, std::uint64_t offset, Wrapping wrapping)
    : file_(file), position_(offset), input_(input_size)
{
    // 32 more than the window: either of gzip and zlib, told by its first bytes; negative: neither.
    if (inflateInit2(&stream_, wrapping == Wrapping::none ? -MAX_WBITS : 32 + MAX_WBITS) != Z_OK) {
        over_ = true;
        state_ = State::no_memory;
    }
}

Inflater::~Inflater()
{
    inflateEnd(&stream_);
}

bool Inflater::fill()
{
    if (stream_.avail_in > 0)
        return true;
    if (on_input && !on_input(position_)) {
        over_ = true;
        state_ = State::stopped;
        return false;
    }
    const std::size_t count = file_.read(position_, input_);
    position_ += count;
    stream_.next_in = reinterpret_cast<Bytef*>(input_.data());
    stream_.avail_in = uInt(count);
    return count > 0;
}

/// After the end of a gzip stream: another one may follow, as block-wise compressors write it.
bool Inflater::next_stream()
{
    return fill() && *stream_.next_in == 0x1f && inflateReset(&stream_) == Z_OK;
}

std::size_t Inflater::decode(std::span<std::byte> target)
{
    if (!fill()) {
        if (!over_)
            state_ = State::cut_off;
        over_ = true;
        return 0;
    }
    stream_.next_out = reinterpret_cast<Bytef*>(target.data());
    stream_.avail_out = uInt(std::min(target.size(), output_most));
    const auto before = stream_.avail_out;
    const int result = inflate(&stream_, Z_NO_FLUSH);
    if (result == Z_STREAM_END) {
        over_ = !next_stream();
    } else if (result != Z_OK && result != Z_BUF_ERROR) {
        over_ = true;
        state_ = result == Z_MEM_ERROR ? State::no_memory : State::damaged;
    }
    return before - stream_.avail_out;
}

std::uint64_t Inflater::read(std::span<std::byte> target)
{
    std::size_t done = 0;
    while (done < target.size() && !over_)
        done += decode(target.subspan(done));
    return done;
}

std::uint64_t Inflater::skip(std::uint64_t count)
{
    std::array<std::byte, 65536> unwanted;
    std::uint64_t done = 0;
    while (done < count && !over_)
        done += decode(std::span(unwanted).first(std::size_t(std::min<std::uint64_t>(count - done, unwanted.size()))));
    return done;
}

void Inflater::finish()
{
    skip(UINT64_MAX);
}

}
