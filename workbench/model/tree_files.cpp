#include "workbench/model/tree_files.h"

#include "hostkit/structures/files.h"
#include "workbench/document/volume.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace workbench {

namespace {

unsigned short clamped(int size)
{
    return static_cast<unsigned short>(std::clamp(size, 0, 0xFFFF));
}

// Two letters, the first in the high byte.
unsigned short modalityCode(const std::string& modality)
{
    if (modality.size() != 2)
        return 0;
    const auto letter = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(modality[i])); };
    return static_cast<unsigned short>(letter(0) << 8 | letter(1));
}

// Each frame has a record of its own, so that a row of the list is one image of the tree.
hostkit::Frame_Description describe(const document::Volume& volume, const document::Frame& frame)
{
    const auto flags = frame.is_scout ? hostkit::scout_frame : static_cast<unsigned short>(0);
    return {.record = {modalityCode(volume.modality), flags, clamped(volume.width()), clamped(volume.height()), 1, 1}};
}

}

void addFilesOf(const document::Volume& volume, Strato_2D* series, std::vector<File_Record*>& files)
{
    std::unordered_map<std::string, std::vector<int>> framesOf;
    std::vector<const std::string*> paths; // in the order of the frames
    for (int z = 0; z < static_cast<int>(volume.frames.size()); ++z) {
        auto& frames = framesOf[volume.frames[static_cast<std::size_t>(z)].file];
        if (frames.empty())
            paths.push_back(&volume.frames[static_cast<std::size_t>(z)].file);
        frames.push_back(z);
    }
    files.reserve(paths.size());
    for (const std::string* path : paths) {
        const std::vector<int>& frames = framesOf[*path];
        std::vector<hostkit::Frame_Description> descriptions;
        for (const int z : frames)
            descriptions.push_back(describe(volume, volume.frames[static_cast<std::size_t>(z)]));
        files.push_back(hostkit::File_Add(*path, descriptions));
        for (std::size_t i = 0; i < frames.size(); ++i)
            hostkit::Frame_Shows(series->Child_Get_Pt(frames[i]), files.back(), static_cast<unsigned short>(i));
    }
}

}
