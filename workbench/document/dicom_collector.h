#pragma once

#include "workbench/document/dicom_header.h"
#include "workbench/document/dicom_walker.h"

namespace document {

/// Puts the elements that a walker visits into a header.
class DicomCollector {
public:
    DicomCollector(DicomHeader& header, const DicomWalker& walker) : header_(header), walker_(walker) {}

    void take(const DicomWalker::Element& element);
    /// After the last one.
    void finish();

private:
    using Element = DicomWalker::Element;

    void take_nested(const Element& element);
    bool take_identity(const Element& element);
    bool take_pixels(const Element& element);
    bool take_tables(const Element& element);
    bool take_place(const Element& element);
    bool take_values(const Element& element);
    void take_own(DicomFrame& frame, const Element& element);
    void take_region(const Element& element);

    double number(const Element& element) const;
    std::vector<double> numbers(const Element& element) const;

    DicomHeader& header_;
    const DicomWalker& walker_;
    std::string character_set_, dose_unit_;
    double dose_scale_ = 0;
    int spacing_rank_ = 0; // how good the source of the distances between pixels is
    std::array<std::uint64_t, 2> region_units_ = {};
};

}
