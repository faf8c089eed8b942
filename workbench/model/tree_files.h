#pragma once

#include <vector>

class Strato_2D;
struct File_Record;

namespace document {
class Volume;
}

namespace workbench {

/// Adds the files of a volume to those that are open in the host, each with a record for each of its frames, and says
/// that the frames of the series show them. Throws std::bad_alloc, or std::length_error when there are too many; those
/// that were added are in `files` either way.
void addFilesOf(const document::Volume& volume, Strato_2D* series, std::vector<File_Record*>& files);

}
