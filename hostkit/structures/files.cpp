#include "hostkit/structures/files.h"

#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/open_file.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/tree.h"

#include <algorithm>
#include <stdexcept>

namespace hostkit {

namespace {

constexpr size_t most_files = 65535;
constexpr size_t most_frames = 65535;

// What the variables name: a file may be null in the table, never among those that own the memory.
std::vector<File_Record*> table;
std::vector<std::shared_ptr<Open_File>> files;

void publish()
{
    Array_Variable<File_Record*>("$DB_2D_FILE_PT") = table.empty() ? nullptr : table.data();
    Variable<unsigned short>("$DB_2D_FILE_NB") = static_cast<unsigned short>(table.size());
}

}

Open_File::Open_File(const std::string& file_path, const std::vector<Frame_Description>& descriptions)
    : File_Record{}, path_text_(file_path)
{
    records_.reserve(descriptions.size());
    for (const auto& [record, accessible] : descriptions) {
        records_.push_back(record);
        record_addresses_.push_back(&records_.back());
        flags_.push_back(accessible ? 0 : inaccessible_frame);
    }
    path = path_text_.data();
    nb_frames = static_cast<unsigned short>(descriptions.size());
    frame_flags = flags_.data();
    frames = record_addresses_.data();
}

File_Record* File_Add(const std::string& path, const std::vector<Frame_Description>& frames)
{
    if (table.size() == most_files)
        throw std::length_error("there can be no more than 65,535 files");
    if (frames.size() > most_frames)
        throw std::length_error("there can be no more than 65,535 images in a file");
    auto file = std::make_shared<Open_File>(path, frames);
    files.push_back(file);
    table.push_back(file.get());
    publish();
    return file.get();
}

void File_Remove(File_Record* file)
{
    const auto found = std::find_if(files.begin(), files.end(), [file](const auto& one) { return one.get() == file; });
    if (found == files.end())
        return;
    const std::shared_ptr<Open_File> closed = *found;
    closed->open = false;
    files.erase(found);
    std::erase(table, file);
    publish();
    const Panel_Call until_told;
    Fct_Update(series_tree_changed, nullptr, nullptr, nullptr);
    After_Delivery([closed] {}); // rows that name it are gone by then
}

void Frame_Shows(Strato_2D* object, const File_Record* file, unsigned short frame)
{
    const bool is_one = file && frame < file->nb_frames;
    object->record()->file = is_one ? static_cast<const Open_File*>(file)->shared_from_this() : nullptr;
    object->record()->frame = is_one ? frame : 0;
}

void Files_Reset()
{
    for (const auto& file : files)
        file->open = false;
    files.clear();
    table.clear();
    publish();
}

}
