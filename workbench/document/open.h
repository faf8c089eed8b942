#pragma once

#include "workbench/document/progress.h"
#include "workbench/document/result.h"
#include "workbench/document/volume.h"

#include <filesystem>
#include <string>
#include <vector>

namespace document {

/// What was opened, and what the user should know about it ("It holds 12 volumes; the first is shown.").
struct Opened {
    Volume volume;
    std::vector<std::string> notices;
};

/// Opens an image: a DICOM file (with the rest of its series from the same folder), a folder with a DICOM series, NIfTI
/// (.nii, .nii.gz, .hdr/.img), NRRD (.nrrd, .nhdr), MetaImage (.mha, .mhd), PNG, JPEG, TIFF or BMP. What a file is,
/// its content decides, not its name.
///
/// Several paths: DICOM files among them are read as one series, that of the first; otherwise the first path is opened
/// and a notice names the others. Of a folder with several series the one with the most frames is opened (of equals the
/// first by name) and a notice names the others. Frames are sorted by position along their normal.
///
/// Every size is checked against the file and the free memory before anything is believed or allocated. Safe to call in
/// any thread, in one at a time. Never throws.
Result<Opened> open(const std::vector<std::filesystem::path>& paths, const Progress& progress = {});

/// Images that were opened together.
struct OpenedImages {
    std::vector<Opened> images;          ///< at least one
    std::vector<std::string> unreadable; ///< why others could not be opened, ready to be shown
};

/// Opens all images that paths name: of a folder every DICOM series directly inside it, ordered by study and number, or
/// when there is none the first image, or when there is no image either every DICOM series in the folders inside it; of
/// several files each image, DICOM files among them sorted into series. One path that is a file is opened as open()
/// does it. What is named twice is opened once. Fails only when there is nothing that could be opened. Otherwise as
/// open().
Result<OpenedImages> open_all(const std::vector<std::filesystem::path>& paths, const Progress& progress = {});

/// One DICOM series of a folder.
struct Series {
    std::string uid;
    std::string description; ///< may be empty. These are UTF-8
    std::string modality;
    std::string patient;
    std::vector<std::filesystem::path> files; ///< in the order of the frames
};

/// The DICOM series directly inside a folder, ordered by description and uid; a folder without any gives an empty list.
/// Never throws.
Result<std::vector<Series>> list_series(const std::filesystem::path& folder, const Progress& progress = {});

/// Opens one of them. Never throws.
Result<Opened> open_series(const Series& series, const Progress& progress = {});

}
