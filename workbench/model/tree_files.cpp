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

/// A file with the images in it that belong to a volume.
struct Contents {
    const std::string* path;
    std::vector<hostkit::Frame_Description> frames;
    std::vector<Strato_2D*> objects; // that show them; fewer, when those at the end were left out
};

std::vector<Contents> contentsOf(const document::Volume& volume, const std::vector<Strato_2D*>& objects)
{
    std::vector<Contents> files;
    std::unordered_map<std::string, std::size_t> found;
    const auto fileOf = [&](const document::Frame& frame) -> Contents& {
        const auto [file, isNew] = found.try_emplace(frame.file, files.size());
        if (isNew)
            files.push_back({&frame.file, {}, {}});
        return files[file->second];
    };
    for (std::size_t z = 0; z < volume.frames.size(); ++z) {
        Contents& file = fileOf(volume.frames[z]);
        file.frames.push_back(describe(volume, volume.frames[z]));
        file.objects.push_back(objects[z]);
    }
    for (const document::Frame& frame : volume.left_out) {
        Contents& file = fileOf(frame);
        file.frames.push_back(describe(volume, frame));
        file.frames.back().accessible = false;
    }
    return files;
}

}

void addFilesOf(
    const document::Volume& volume, const std::vector<Strato_2D*>& objects, std::vector<File_Record*>& files)
{
    const std::vector<Contents> contents = contentsOf(volume, objects);
    files.reserve(contents.size());
    for (const Contents& file : contents) {
        files.push_back(hostkit::File_Add(*file.path, file.frames));
        for (std::size_t i = 0; i < file.objects.size(); ++i)
            hostkit::Frame_Shows(file.objects[i], files.back(), static_cast<unsigned short>(i));
    }
}

}
