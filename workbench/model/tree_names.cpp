#include "workbench/model/tree_names.h"

#include "workbench/document/text.h"
#include "workbench/document/volume.h"

#include <cmath>
#include <filesystem>

namespace workbench {

namespace {

std::filesystem::path folderOf(const document::Volume& volume)
{
    if (volume.files.empty())
        return {};
    std::error_code error;
    const auto file = std::filesystem::absolute(volume.files.front(), error);
    return error ? std::filesystem::path() : file.parent_path();
}

std::string oneDecimal(double value)
{
    return document::number_text(std::round(value * 10) / 10);
}

}

std::string keyOfStudy(const document::Volume& volume)
{
    return volume.study_uid.empty() ? folderOf(volume).string() : volume.study_uid;
}

std::string nameOfStudy(const document::Volume& volume)
{
    std::string name;
    for (const std::string* part : {&volume.patient, &volume.study, &volume.study_date})
        if (!part->empty())
            name += (name.empty() ? "" : ", ") + *part;
    if (name.empty())
        name = folderOf(volume).filename().string();
    return name.empty() ? "Images" : name;
}

std::string nameOfSeries(const document::Volume& volume)
{
    const std::string name = volume.series.empty() ? "Image" : volume.series;
    return volume.series_number > 0 ? std::to_string(volume.series_number) + ": " + name : name;
}

std::string nameOfFrame(const document::Volume& volume, int z)
{
    if (std::size_t(z) >= volume.frames.size())
        return std::to_string(z + 1);
    const document::Frame& frame = volume.frames[std::size_t(z)];
    const std::string number = std::to_string(frame.instance > 0 ? frame.instance : z + 1);
    return volume.frame_count() > 1 ? number + ", " + oneDecimal(frame.position) + " mm" : number;
}

}
