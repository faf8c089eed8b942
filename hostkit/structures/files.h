#pragma once

#include "host/structures.h"

#include <string>
#include <vector>

/// The open files: `"$DB_2D_FILE_NB"` and `"$DB_2D_FILE_PT"`.
namespace hostkit {

constexpr unsigned short scout_frame = 16;       ///< of Frame_Record::flags
constexpr unsigned char inaccessible_frame = 64; ///< of File_Record::frame_flags

struct Frame_Description {
    Frame_Record record{};
    bool accessible = true;
};

/// A file as the last of those that are open, which keeps its records. The caller sends the change (0x402) once
/// everything is in place. @throws std::length_error when there are 65,535 files, or more than as many frames in it
STRUCTURES_API File_Record* File_Add(const std::string& path, const std::vector<Frame_Description>& frames);

/// Closes a file: objects that show its frames show none of a file any more. The panels are told, and the records are
/// freed once nobody can be using them. Null does nothing.
STRUCTURES_API void File_Remove(File_Record* file);

/// Says which image of a file an object shows. @param file null for none @param frame its index; none when there is no
/// such frame
STRUCTURES_API void Frame_Shows(Strato_2D* object, const File_Record* file, unsigned short frame);

}
