#include "workbench/document/dicom_walker.h"

#include "workbench/document/text.h"

#include <algorithm>
#include <string_view>

namespace document {

namespace {

constexpr std::uint32_t endless_length = 0xFFFFFFFF;
constexpr std::uint32_t item = 0xFFFEE000, item_end = 0xFFFEE00D, sequence_end = 0xFFFEE0DD;
constexpr std::uint32_t pixel_data = 0x7FE00010, transfer_syntax = 0x00020010;
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

std::string DicomWalker::text(const Element& element) const
{
    std::string text(std::min<std::uint64_t>(element.length, 4096), '\0');
    text.resize(file_.read(element.value, std::as_writable_bytes(std::span(text))));
    return trimmed(text);
}

std::uint64_t DicomWalker::number(const Element& element) const
{
    return read_number(element.value, element.length >= 4 ? 4 : 2);
}

bool DicomWalker::walk(const Visit& visit)
{
    at_ = 128;
    const bool preamble = file_.size() >= 132 && read_number(128, 4) == 0x4D434944; // "DICM"
    at_ = preamble ? 132 : 0;
    // Without the part that names it, the way of writing shows in the first element.
    const auto vr0 = char(read_number(at_ + 4, 1)), vr1 = char(read_number(at_ + 5, 1));
    explicit_ = is_known(std::string{vr0, vr1});
    if (!read_meta(visit))
        return false;
    return deflated_ || walk_elements(file_.size(), 0, visit);
}

/// The group that says how the rest is written; it is always explicit and little-endian itself.
bool DicomWalker::read_meta(const Visit& visit)
{
    std::string syntax;
    while (at_ + 8 <= file_.size() && read_tag(at_) >> 16 == 2) {
        Element element;
        std::string vr;
        explicit_ = true;
        if (!read_header(element, vr) || element.length > file_.size() - at_)
            return false;
        at_ += element.length;
        if (element.tag == transfer_syntax)
            syntax = text(element);
        visit(element);
    }
    if (!syntax.empty())
        take_syntax(syntax);
    return true;
}

void DicomWalker::take_syntax(const std::string& uid)
{
    explicit_ = uid != "1.2.840.10008.1.2";
    big_endian_ = uid == "1.2.840.10008.1.2.2";
    deflated_ = uid == "1.2.840.10008.1.2.1.99";
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
        vr = {char(read_number(at_ + 4, 1)), char(read_number(at_ + 5, 1))};
    if (typed && !is_known(vr))
        return false;
    const bool wide = typed && has_long_length(vr);
    if (wide && left < 12)
        return false;
    element.length = wide ? read_number(at_ + 8, 4) : typed ? read_number(at_ + 6, 2) : read_number(at_ + 4, 4);
    at_ += wide ? 12 : 8;
    element.value = at_;
    return true;
}

bool DicomWalker::walk_elements(std::uint64_t end, int depth, const Visit& visit)
{
    while (at_ < end) {
        Element element;
        std::string vr;
        if (!read_header(element, vr))
            return false;
        if (element.tag == item_end)
            return true;
        if (!walk_value(element, vr, end, depth))
            return false;
        if (depth == 0)
            visit(element);
    }
    return at_ == end;
}

bool DicomWalker::walk_value(Element& element, const std::string& vr, std::uint64_t end, int depth)
{
    const bool endless = element.length == endless_length;
    if (element.tag == pixel_data && endless && depth == 0)
        return walk_fragments(element);
    if (!endless && element.length > end - at_)
        return false;
    if (!endless && vr != "SQ") {
        at_ += element.length;
        return true;
    }
    // An unknown type of unknown length is a sequence written without types.
    const bool types = explicit_;
    explicit_ = explicit_ && vr != "UN";
    const bool whole = walk_items(endless ? end : at_ + element.length, endless, depth + 1);
    explicit_ = types;
    return whole;
}

bool DicomWalker::walk_items(std::uint64_t end, bool endless, int depth)
{
    static const Visit nobody = [](const Element&) {};
    while (at_ < end && depth < deepest) {
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
        if (!walk_elements(open ? end : at_ + part.length, depth, nobody))
            return false;
        if (open && at_ == item_begin)
            return false;
    }
    return !endless && at_ == end;
}

/// Each fragment is an item; what ends them tells that all are there.
bool DicomWalker::walk_fragments(Element& element)
{
    element.fragments = true;
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
        at_ += part.length;
    }
}

}
