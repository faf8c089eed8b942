#include "db/frame_rows.h"

#include <algorithm>
#include <functional>
#include <new>

namespace db {

namespace {

const Frame_Record* record_of_row(const DB_List& row)
{
    const auto* file = static_cast<const File_Record*>(row.object);
    return row.level == frame_level && file ? record_of(*file, row.index) : nullptr;
}

bool comes_before(const Frame_Rows::Entry& one, const Frame_Rows::Entry& other)
{
    return one.record == other.record ? one.row < other.row : std::less<>()(one.record, other.record);
}

}

const Frame_Record* record_of(const File_Record& file, int frame)
{
    return file.frames && frame < file.nb_frames ? file.frames[frame] : nullptr;
}

Frame_Rows::Frame_Rows(int nb, const DB_List* list)
    : entries_(new (std::nothrow) Entry[static_cast<std::size_t>(list ? nb : 0)])
{
    for (int i = 0; entries_ && list && i < nb; ++i) {
        if (const Frame_Record* record = record_of_row(list[i]))
            entries_[static_cast<std::size_t>(count_++)] = {record, i, (list[i].select & DB_List::selected) != 0};
    }
    std::sort(entries_.get(), entries_.get() + count_, comes_before);
}

Frame_Rows::Range Frame_Rows::of(const Frame_Record* record) const
{
    const Entry* const end = entries_.get() + count_;
    if (!record)
        return {end, end};
    const Entry* const first =
        std::lower_bound(entries_.get(), entries_.get() + count_, Entry{record, 0, false}, comes_before);
    const Entry* last = first;
    while (last != end && last->record == record)
        ++last;
    return {first, last};
}

}
