#pragma once

#include "workbench/document/input_file.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace document {

/// Goes through the elements of a DICOM file and checks that each is whole. The library that decodes DICOM ends the
/// process on some files that are cut off, so none gets there that has not passed here.
class DicomWalker {
public:
    struct Element {
        std::uint32_t tag = 0; ///< group << 16 | element
        std::uint64_t value = 0, length = 0;
        bool fragments = false; ///< encapsulated pixel data; their bytes are counted in `length`
    };

    explicit DicomWalker(const InputFile& file) : file_(file) {}

    /// Calls `visit` for each element of the outermost level, in order. Returns whether the file is whole.
    bool walk(const std::function<void(const Element&)>& visit);

    std::string text(const Element& element) const;     ///< trimmed, as its bytes are
    std::uint64_t number(const Element& element) const; ///< of two or four bytes
    /// Whether it is compressed as a whole, which is not looked into.
    bool deflated() const { return deflated_; }

private:
    using Visit = std::function<void(const Element&)>;

    std::uint64_t read_number(std::uint64_t at, std::size_t width) const;
    std::uint32_t read_tag(std::uint64_t at) const;
    bool read_meta(const Visit& visit);
    void take_syntax(const std::string& uid);
    bool read_header(Element& element, std::string& vr);
    bool walk_elements(std::uint64_t end, int depth, const Visit& visit);
    bool walk_items(std::uint64_t end, bool endless, int depth);
    bool walk_value(Element& element, const std::string& vr, std::uint64_t end, int depth);
    bool walk_fragments(Element& element);

    const InputFile& file_;
    std::uint64_t at_ = 0;
    bool explicit_ = true, big_endian_ = false, deflated_ = false;
    mutable std::vector<std::byte> window_; // what was read of the file around window_start_
    mutable std::uint64_t window_start_ = 0;
};

}
