#pragma once

#include "workbench/document/progress.h"
#include "workbench/document/result.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace document {

/// What the header of one DICOM file tells, without its pixels.
struct DicomHeader {
    std::filesystem::path path;
    std::string series_uid;
    std::string series; ///< description. UTF-8, as all texts here
    std::string study;
    std::string patient;
    std::string modality;
    std::string unit;
    int instance = 0;
    int rows = 0, columns = 0, frames = 1;
    std::optional<std::array<double, 3>> position;          ///< of the first voxel, millimetres
    std::array<double, 6> orientation = {1, 0, 0, 0, 1, 0}; ///< along a row, then along a column
    double window_centre = 0, window_width = 0;             ///< width 0: none
    double thickness = 0;                                   ///< millimetres, 0: not said
    bool inverted = false;                                  ///< low values are white
    int bits_stored = 0;
    bool is_signed = false;
    std::string damage; ///< what is wrong with its pixel data; empty when nothing is

    std::array<double, 3> normal() const;
    double along_normal() const; ///< the position's, 0 without one
};

/// Reads a header; nothing when the file is no DICOM image.
std::optional<DicomHeader> read_dicom_header(const std::filesystem::path& path);

}
