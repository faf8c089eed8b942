#pragma once

#include "tests/db/own_tree.h"

#include <deque>
#include <string>
#include <vector>

namespace test {

/// Open files that are what a test says.
class Own_Files {
public:
    /// A file with frames of 256 x 256, each with its images along z.
    File_Record& add(const std::string& path, const std::vector<unsigned short>& depths = {});

    /// Tells the variables.
    void show();
    std::vector<File_Record*> pointers;

private:
    struct File {
        std::string path;
        std::vector<Frame_Record> frames;
        std::vector<Frame_Record*> frame_pointers;
        std::vector<unsigned char> access;
        File_Record record{};
    };
    std::deque<File> files_;
};

}
