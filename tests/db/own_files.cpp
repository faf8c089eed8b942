#include "tests/db/own_files.h"

namespace test {

File_Record& Own_Files::add(const std::string& path, const std::vector<unsigned short>& depths)
{
    File& file = files_.emplace_back();
    file.path = path;
    for (const unsigned short depth : depths)
        file.frames.push_back({0x4354, 0, 256, 256, depth, 1});
    for (Frame_Record& frame : file.frames)
        file.frame_pointers.push_back(&frame);
    file.access.resize(depths.size());
    file.record = {
        file.path.data(), static_cast<unsigned short>(depths.size()), file.access.data(), file.frame_pointers.data()};
    pointers.push_back(&file.record);
    return file.record;
}

void Own_Files::show()
{
    own_tree::define("$DB_2D_FILE_NB", static_cast<unsigned>(pointers.size()));
    own_tree::define("$DB_2D_FILE_PT", static_cast<const void*>(pointers.data()));
}

}
