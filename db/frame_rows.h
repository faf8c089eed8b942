#pragma once

#include "db/db_list.h"
#include "host/structures.h"

#include <memory>

namespace db {

constexpr int frame_level = 2;

/// Which rows stand for a frame: a table, so that objects need not be held against every row.
class Frame_Rows {
public:
    struct Entry {
        const Frame_Record* record;
        int row;
        bool selected; ///< as the row was when the table was made
    };

    Frame_Rows(int nb, const DB_List* list);

    /// False when there was no memory.
    bool made() const { return entries_ != nullptr; }

    struct Range {
        const Entry* first;
        const Entry* last;
        const Entry* begin() const { return first; }
        const Entry* end() const { return last; }
    };

    /// The rows of a frame, in their order. None of null.
    Range of(const Frame_Record* record) const;

private:
    std::unique_ptr<Entry[]> entries_;
    int count_ = 0;
};

/// The record of a frame; null when the file has none.
const Frame_Record* record_of(const File_Record& file, int frame);

}
