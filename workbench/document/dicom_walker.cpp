#include "workbench/document/dicom_walker.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace document {

namespace {

constexpr std::uint32_t endless_length = 0xFFFFFFFF;
constexpr std::uint32_t item = 0xFFFEE000, item_end = 0xFFFEE00D, sequence_end = 0xFFFEE0DD;
constexpr std::uint32_t pixel_data = 0x7FE00010, transfer_syntax = 0x00020010;
constexpr const char* big_endian_syntax = "1.2.840.10008.1.2.2";
constexpr const char* deflated_syntax = "1.2.840.10008.1.2.1.99";
constexpr int deepest = 64;
constexpr std::size_t window_size = 4096;

bool is_one_of(std::string_view vr, std::string_view list)
{
    const auto place = list.find(vr);
    return vr.size() == 2 && place != list.npos && place % 3 == 0;
}

bool has_long_length(std::string_view vr)
{
    return is_one_of(vr, "OB OD OF OL OV OW SQ SV UC UN UR UT UV");
}

/// Sequences that somebody looks into; where types are not written, others are passed over whole.
bool is_needed_sequence(std::uint32_t tag)
{
    constexpr std::uint32_t needed[] = {
        0x00186011, 0x00209113, 0x00209116, 0x00289110, 0x00289132, 0x00289145, 0x00540022, 0x52009229, 0x52009230};
    return std::find(std::begin(needed), std::end(needed), tag) != std::end(needed);
}

bool is_known(std::string_view vr)
{
    return has_long_length(vr) || is_one_of(vr, "AE AS AT CS DA DS DT FD FL IS LO LT PN SH SL SS ST TM UI UL US");
}

}

std::uint64_t DicomWalker::read_number(std::uint64_t at, std::size_t width) const
{
    if (at < window_start_ || at + width > window_start_ + window_.size()) {
        window_.resize(window_size);
        window_.resize(file_.read(at, window_));
        window_start_ = at;
    }
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < width; ++i) {
        const std::size_t place = std::size_t(at - window_start_) + (big_endian_ ? i : width - 1 - i);
        number = number << 8 | (place < window_.size() ? std::uint64_t(window_[place]) : 0);
    }
    return number;
}

std::uint32_t DicomWalker::read_tag(std::uint64_t at) const
{
    return std::uint32_t(read_number(at, 2) << 16 | read_number(at + 2, 2));
}

std::string DicomWalker::vr_at(std::uint64_t at) const
{
    return {char(read_number(at, 1)), char(read_number(at + 1, 1))};
}

std::string DicomWalker::text(const Element& element, std::size_t most) const
{
    std::string text(std::min<std::uint64_t>(element.length, most), '\0');
    text.resize(file_.read(element.value, std::as_writable_bytes(std::span(text))));
    return trimmed(text);
}

std::uint64_t DicomWalker::number(const Element& element) const
{
    return element.length >= 2 ? read_number(element.value, element.length >= 4 ? 4 : 2) : 0;
}

double DicomWalker::real(const Element& element) const
{
    return element.length >= 8 ? std::bit_cast<double>(read_number(element.value, 8)) : 0;
}

std::array<std::uint64_t, 3> DicomWalker::triple(const Element& element) const
{
    if (element.length < 6)
        return {};
    const auto at = element.value;
    return {read_number(at, 2), read_number(at + 2, 2), read_number(at + 4, 2)};
}

std::optional<std::uint64_t> DicomWalker::deflated_from()
{
    static const Visit nobody = [](const Element&) {};
    if (!read_meta(nobody) || syntax_ != deflated_syntax)
        return {};
    return at_;
}

bool DicomWalker::walk(const Visit& visit)
{
    if (!read_meta(visit))
        return false;
    find_ways();
    return walk_elements(file_.size(), 0, visit);
}

/// The group that says how the rest is written; it is always explicit and little-endian itself.
bool DicomWalker::read_meta(const Visit& visit)
{
    const bool preamble = file_.size() >= 132 && read_number(128, 4) == 0x4D434944; // "DICM"
    at_ = preamble ? 132 : 0;
    while (at_ + 8 <= file_.size() && read_tag(at_) >> 16 == 2) {
        Element element;
        std::string vr;
        if (!read_header(element, vr) || element.length > file_.size() - at_)
            return false;
        at_ += element.length;
        if (element.tag == transfer_syntax)
            syntax_ = text(element);
        visit(element);
    }
    return true;
}

/// Byte order and whether types are written. For the latter, some files say one thing and do the other: the first
/// element shows it.
void DicomWalker::find_ways()
{
    big_endian_ = syntax_ == big_endian_syntax;
    if (syntax_.empty()) // the first group has a small number
        big_endian_ = read_number(at_, 2) >= 0x100;
    explicit_ = is_known(vr_at(at_ + 4));
}

/// Reads tag, type and length and goes behind them.
bool DicomWalker::read_header(Element& element, std::string& vr)
{
    const auto left = file_.size() - at_;
    if (left < 8)
        return false;
    element.tag = read_tag(at_);
    const bool typed = explicit_ && element.tag >> 16 != 0xFFFE;
    vr.clear();
    if (typed)
        vr = vr_at(at_ + 4);
    if (typed && !is_known(vr))
        return false;
    const bool wide = typed && has_long_length(vr);
    if (wide && left < 12)
        return false;
    element.length = wide ? read_number(at_ + 8, 4) : typed ? read_number(at_ + 6, 2) : read_number(at_ + 4, 4);
    at_ += wide ? 12 : 8;
    element.value = at_;
    element.words = vr == "OW";
    return true;
}

bool DicomWalker::walk_elements(std::uint64_t end, int depth, const Visit& visit)
{
    while (at_ < end) {
        Element element;
        std::string vr;
        if (depth == 0 && read_tag(at_) == 0) // filled up to a whole block
            return true;
        if (!read_header(element, vr))
            return false;
        if (element.tag == item_end)
            return true;
        if (depth == 0)
            sequence_ = element.tag;
        if (!walk_value(element, vr, end, depth, visit))
            return false;
        element.depth = depth;
        if (depth > 0) {
            element.sequence = sequence_;
            element.item = item_;
        }
        visit(element);
    }
    return at_ == end;
}

bool DicomWalker::walk_value(Element& element, const std::string& vr, std::uint64_t end, int depth, const Visit& visit)
{
    const bool endless = element.length == endless_length;
    if (element.tag == pixel_data && endless)
        return walk_fragments(element);
    if (!endless && element.length > end - at_)
        return false;
    const bool untyped = vr.empty() || vr == "UN";
    if (!endless && vr != "SQ" && !(untyped && is_needed_sequence(element.tag))) {
        at_ += element.length;
        return true;
    }
    // An unknown type of unknown length is a sequence written without types.
    const bool types = explicit_;
    explicit_ = explicit_ && vr != "UN";
    const bool whole = walk_items(endless ? end : at_ + element.length, endless, depth + 1, visit);
    explicit_ = types;
    return whole;
}

bool DicomWalker::walk_items(std::uint64_t end, bool endless, int depth, const Visit& visit)
{
    for (std::size_t i = 0; at_ < end && depth < deepest; ++i) {
        Element part;
        std::string vr;
        if (!read_header(part, vr))
            return false;
        if (part.tag == sequence_end)
            return endless;
        const bool open = part.length == endless_length;
        if (part.tag != item || (!open && part.length > end - at_))
            return false;
        const auto item_begin = at_;
        if (depth == 1)
            item_ = i;
        if (!walk_elements(open ? end : at_ + part.length, depth, visit))
            return false;
        if (open && at_ == item_begin)
            return false;
    }
    return !endless && at_ == end;
}

/// Each fragment is an item; what ends them tells that all are there.
bool DicomWalker::walk_fragments(Element& element)
{
    element.length = 0;
    for (;;) {
        Element part;
        std::string vr;
        if (!read_header(part, vr))
            return false;
        if (part.tag == sequence_end)
            return true;
        if (part.tag != item || part.length > file_.size() - at_)
            return false;
        element.length += part.length;
        ++element.fragments;
        at_ += part.length;
    }
}

}
