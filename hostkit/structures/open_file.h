#pragma once

#include "hostkit/structures/files.h"

#include <memory>

namespace hostkit {

/// A file with the memory behind its record. Objects that show its frames share it, so that none of them ever looks
/// into a file that is gone.
struct Open_File : File_Record, std::enable_shared_from_this<Open_File> {
    Open_File(const std::string& file_path, const std::vector<Frame_Description>& descriptions);
    Open_File(const Open_File&) = delete;
    Open_File& operator=(const Open_File&) = delete;

    bool open = true; ///< until it is closed

private:
    std::string path_text_;
    std::vector<Frame_Record> records_;
    std::vector<Frame_Record*> record_addresses_;
    std::vector<unsigned char> flags_;
};

/// Closes all files and tells nobody.
void Files_Reset();

}
