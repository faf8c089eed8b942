#pragma once

#include "workbench/document/input_file.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace document {

/// Goes through the elements of a DICOM file and checks that each is whole. Nothing in the file is believed before.
class DicomWalker {
public:
    struct Element {
        std::uint32_t tag = 0; ///< group << 16 | element
        std::uint64_t value = 0, length = 0;
        bool words = false;          ///< its bytes come in words of two, each in the byte order of the file
        std::uint64_t fragments = 0; ///< of encapsulated pixel data; their bytes are counted in `length`
        // Where it is: below how many sequences, the outermost of these and the item in it.
        int depth = 0;
        std::uint32_t sequence = 0;
        std::size_t item = 0;
    };
    using Visit = std::function<void(const Element&)>;

    explicit DicomWalker(const InputFile& file) : file_(file) {}

    /// Where what is compressed as a whole (deflated) begins; nothing when the file is not.
    std::optional<std::uint64_t> deflated_from();
    /// Calls `visit` for each element, a sequence after those inside it. Returns whether the file is whole. What was
    /// deflated must be inflated before.
    bool walk(const Visit& visit);

    std::string text(const Element& element, std::size_t most = 4096) const; ///< trimmed, as its bytes are
    std::uint64_t number(const Element& element) const;                      ///< of two or four bytes; 0 without
    double real(const Element& element) const;                               ///< of eight bytes; 0 without
    std::array<std::uint64_t, 3> triple(const Element& element) const;       ///< of two bytes each; 0 without

    const std::string& syntax() const { return syntax_; } ///< the UID of the way of writing; empty when not told
    bool big_endian() const { return big_endian_; }

private:
    std::uint64_t read_number(std::uint64_t at, std::size_t width) const;
    std::uint32_t read_tag(std::uint64_t at) const;
    std::string vr_at(std::uint64_t at) const;
    bool read_meta(const Visit& visit);
    void find_ways();
    bool read_header(Element& element, std::string& vr);
    bool walk_elements(std::uint64_t end, int depth, const Visit& visit);
    bool walk_items(std::uint64_t end, bool endless, int depth, const Visit& visit);
    bool walk_value(Element& element, const std::string& vr, std::uint64_t end, int depth, const Visit& visit);
    bool walk_fragments(Element& element);

    const InputFile& file_;
    std::uint64_t at_ = 0;
    std::string syntax_;
    bool explicit_ = true, big_endian_ = false;
    std::uint32_t sequence_ = 0;
    std::size_t item_ = 0;
    mutable std::vector<std::byte> window_; // what was read of the file around window_start_
    mutable std::uint64_t window_start_ = 0;
};

}
