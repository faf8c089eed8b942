#pragma once

#include "db/db_list.h"

/// What is done with the rows of a list, whatever they stand for. Nothing here reports.
namespace db {

/// Rows are numbered with 16 bits, and the last number means "hidden".
constexpr int most_rows = 65535;

/// Makes room for one row more and clears it; does not count it. The rows have to be null or made by this.
/// @param list_pt receives where the rows are now @return whether there was memory; nothing has changed otherwise
bool add_row(int nb, DB_List** list_pt);

/// Keeps a text of the host's: null or empty becomes null. @return whether there was memory for it
bool copy_text(const char* text, char** copy);

/// Frees the rows with all that they own. Null rows are none.
void free_rows(int nb, DB_List* list);

/// The first row behind what is below a row, by its levels.
int end_of_subtree(int row, int nb, const DB_List* list);

/// The row that a line shows; -1 when none does. The lines are numbered.
int row_on_line(int line, int nb, const DB_List* list);

/// The row itself, or the one that hides it; -1 when there is none. The lines are numbered.
int shown_row(int row, const DB_List* list);

/// The owners of rows: copies of a panel share them, they go with the last. For the interface thread only.
class Row_Share {
public:
    Row_Share() = default;
    Row_Share(const Row_Share& other);
    Row_Share& operator=(const Row_Share& other);
    ~Row_Share();

    /// Becomes the owner of rows, which must not have one. @return whether there was memory for it
    bool own(int nb, DB_List* list);

    bool holds(const DB_List* list) const { return block_ && block_->list == list; }

private:
    struct Block {
        DB_List* list;
        int nb;
        unsigned owners;
    };
    Block* block_ = nullptr;
};

}
