#include "db/browse_view.h"

#include <gtest/gtest.h>

#include <random>

// The roll-up against its tables, written out: for each level whether its last sibling is still to come, and whether no
// leaf, or no unselected one, has been met below.

namespace {

using Rows = std::vector<DB_List>;
using Words = std::vector<std::pair<int, int>>;

constexpr int levels = 100;

void roll_up_by_tables(Rows& rows)
{
    std::vector<int> last_to_come(levels, 1), none_selected(levels, 1), none_unselected(levels, 1);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const int level = row->level < levels ? row->level : levels - 1;
        if (row->state & 2) {
            for (int i = 0; i <= level; ++i)
                (row->select & 2 ? none_selected : none_unselected)[static_cast<size_t>(i)] = 0;
        }
        const auto at = static_cast<size_t>(level);
        row->select &= static_cast<unsigned short>(~3);
        if (none_unselected[at])
            row->select |= 2;
        else if (!none_selected[at])
            row->select |= 1;
        if (last_to_come[at]) {
            row->state |= 4;
            last_to_come[at] = 0;
        }
        if (level == levels - 1)
            continue;
        for (int i = level + 1; i < levels; ++i)
            last_to_come[static_cast<size_t>(i)] = 1;
        for (int i = level; i < levels - 1; ++i)
            none_selected[static_cast<size_t>(i)] = none_unselected[static_cast<size_t>(i)] = 1;
    }
}

Words words_of(const Rows& rows)
{
    Words result;
    for (const DB_List& row : rows)
        result.emplace_back(row.state, row.select);
    return result;
}

// A walk through levels: mostly to a neighbour, sometimes far.
Rows random_rows(std::mt19937& random, int around)
{
    const auto pick = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    Rows rows(static_cast<size_t>(1 + pick(60)));
    int level = around;
    for (DB_List& row : rows) {
        row = {};
        level = std::max(pick(9) == 0 ? pick(130) : level + 1 - pick(2), 0);
        row.level = static_cast<unsigned short>(level);
        row.state = static_cast<unsigned short>(pick(1) ? 2 : pick(1));
        row.state |= static_cast<unsigned short>(pick(5) == 0 ? 16 : 0);
        row.select = static_cast<unsigned short>(pick(3) | (pick(5) == 0 ? 16 : 0));
    }
    return rows;
}

}

TEST(DatabaseRollUp, FollowsItsTablesAtEveryDepth)
{
    std::mt19937 random(11);
    for (int i = 0; i < 1000; ++i) {
        Rows rows = random_rows(random, i % 2 ? 3 : 98), expected = rows;
        DB_2D_Class_List_Roll_Up(static_cast<int>(rows.size()), rows.data());
        roll_up_by_tables(expected);
        ASSERT_EQ(words_of(rows), words_of(expected)) << "list " << i;
    }
}

TEST(DatabaseRollUp, OfNoRowsDoesNothing)
{
    DB_2D_Class_List_Roll_Up(0, nullptr);
    DB_2D_Class_List_Roll_Up(3, nullptr); // rows that were lost
}

TEST(DatabaseRollUp, FolderWithoutLeavesIsSelected)
{
    Rows rows(2);
    rows[0] = rows[1] = {};
    rows[1].level = 1;
    DB_2D_Class_List_Roll_Up(2, rows.data());
    EXPECT_EQ(words_of(rows), (Words{{4, 2}, {4, 2}}));
}
