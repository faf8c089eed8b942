#pragma once

#include <string>

namespace document {
class Volume;
}

/// What a volume's study, series and frames are called in the tree. UTF-8.
namespace workbench {

/// Volumes with the same key belong to one study: its UID, else the folder of the files.
std::string keyOfStudy(const document::Volume& volume);
/// Of whom and what: "Doe Jane, Head, 2024-05-31"; else the folder's name.
std::string nameOfStudy(const document::Volume& volume);
/// "3: Axial", else the file's name.
std::string nameOfSeries(const document::Volume& volume);
/// "12, 34.5 mm": the number that the header gives, and the place among the others.
std::string nameOfFrame(const document::Volume& volume, int z);

}
