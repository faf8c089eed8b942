#include "db/rows.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace db {

namespace {

void free_texts(char** texts, int count)
{
    for (int i = 0; texts && i < count; ++i)
        std::free(texts[i]);
    std::free(texts);
}

}

// Room comes in powers of two, so that how much there is follows from how much is used.
bool add_row(int nb, DB_List** list_pt)
{
    const auto used = static_cast<unsigned>(nb);
    if (!*list_pt || std::has_single_bit(used)) {
        const auto room = std::bit_ceil(used + 1);
        auto* grown = static_cast<DB_List*>(std::realloc(*list_pt, room * sizeof(DB_List)));
        if (!grown)
            return false;
        *list_pt = grown;
    }
    (*list_pt)[nb] = {};
    return true;
}

bool copy_text(const char* text, char** copy)
{
    *copy = text && *text ? strdup(text) : nullptr;
    return *copy || !text || !*text;
}

void free_rows(int nb, DB_List* list)
{
    for (int i = 0; list && i < nb; ++i) {
        DB_List& row = list[i];
        std::free(row.title);
        std::free(row.name);
        free_texts(row.item_title, row.nb_item);
        free_texts(row.item_name, row.nb_item);
        std::free(row.item_x);
        std::free(row.item_color);
    }
    std::free(list);
}

int end_of_subtree(int row, int nb, const DB_List* list)
{
    int end = row + 1;
    while (end < nb && list[end].level > list[row].level)
        ++end;
    return end;
}

int shown_row(int row, const DB_List* list)
{
    while (list[row].line == DB_List::hidden_line) {
        if (list[row].parent >= row)
            return -1;
        row = list[row].parent;
    }
    return row;
}

// Lines grow with the rows that are shown, and what hides a row comes before it.
int row_on_line(int line, int nb, const DB_List* list)
{
    if (!list || line < 0 || line >= DB_List::hidden_line)
        return -1;
    int first = 0, last = nb - 1;
    while (first < last) {
        const int shown = shown_row((first + last + 1) / 2, list);
        if (shown < 0)
            return -1;
        if (list[shown].line <= line)
            first = (first + last + 1) / 2;
        else
            last = shown - 1;
    }
    const int found = nb > 0 && last >= 0 ? shown_row(first, list) : -1;
    return found >= 0 && list[found].line == line ? found : -1;
}

Row_Share::Row_Share(const Row_Share& other) : block_(other.block_)
{
    if (block_)
        ++block_->owners;
}

Row_Share& Row_Share::operator=(const Row_Share& other)
{
    Row_Share copy(other);
    std::swap(block_, copy.block_);
    return *this;
}

Row_Share::~Row_Share()
{
    if (block_ && --block_->owners == 0) {
        free_rows(block_->nb, block_->list);
        delete block_;
    }
}

bool Row_Share::own(int nb, DB_List* list)
{
    auto* made = new (std::nothrow) Block{list, nb, 1};
    if (!made)
        return false;
    Row_Share before;
    std::swap(block_, before.block_);
    block_ = made;
    return true;
}

}
