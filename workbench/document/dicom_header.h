#pragma once

#include "workbench/document/dicom_pixels.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace document {

/// What a frame of a file with several has of its own.
struct DicomFrame {
    std::optional<std::array<double, 3>> position;
    std::optional<std::array<double, 6>> orientation;
    std::optional<double> slope, intercept;
};

/// What the header of one DICOM file tells, without its pixels.
struct DicomHeader {
    std::filesystem::path path;
    std::string study_uid, series_uid;
    std::string series;     ///< description. UTF-8, as all texts here
    std::string study;      ///< description
    std::string study_date; ///< "2024-05-31"; empty when it is not said
    std::string patient;
    std::string modality;
    std::string unit;
    int series_number = 0; ///< 0: not said
    int instance = 0;
    bool is_scout = false; ///< made to plan others on
    DicomPixels pixels;

    std::optional<std::array<double, 3>> position;          ///< of the first voxel, millimetres
    std::array<double, 6> orientation = {1, 0, 0, 0, 1, 0}; ///< along a row, then along a column
    double row_distance = 1, column_distance = 1;           ///< between centres of neighbouring rows, millimetres
    double frame_distance = 0, thickness = 0;               ///< of frames, millimetres; 0: not said
    std::vector<double> offsets;                            ///< of the frames of a dose along their normal

    double slope = 1, intercept = 0;
    double window_centre = 0, window_width = 0; ///< width 0: none
    std::vector<DicomFrame> own;                ///< one for each frame that has something of its own

    std::string damage; ///< what is wrong with the file, ready to be shown; empty when nothing is

    // Of one frame, what it has of its own or shares with the others. The scale is never 0.
    std::optional<std::array<double, 3>> position_of(int frame) const;
    const std::array<double, 6>& orientation_of(int frame) const;
    double slope_of(int frame) const;
    double intercept_of(int frame) const;

    double along_normal(const std::array<double, 3>& place) const;
    double along_normal() const { return position ? along_normal(*position) : 0; } ///< of its own position
};

/// The direction that is at a right angle to both of an orientation.
std::array<double, 3> normal_of(const std::array<double, 6>& orientation);

/// Reads a header; nothing when the file is no DICOM image.
std::optional<DicomHeader> read_dicom_header(const std::filesystem::path& path);

}
