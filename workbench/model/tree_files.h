#pragma once

#include <vector>

class Strato_2D;
struct File_Record;

namespace document {
class Volume;
}

namespace workbench {

/// Adds the files of a volume to those that are open in the host, each with a record for each of its frames, and says
/// that `objects`, one for each frame, show them. Frames that were left out of the volume are not accessible. Throws
/// std::bad_alloc, or std::length_error when there are too many; those that were added are in `files` either way.
void addFilesOf(
    const document::Volume& volume, const std::vector<Strato_2D*>& objects, std::vector<File_Record*>& files);

}
