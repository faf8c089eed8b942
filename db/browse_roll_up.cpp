#include "db/browse_measure.h"
#include "db/browse_view.h"

#include <algorithm>
#include <array>

namespace {

constexpr unsigned short marks = DB_List::partly_selected | DB_List::selected;

// What is known of the rows behind the one that is looked at, for each level.
class Roll_Up {
public:
    Roll_Up()
    {
        last_is_to_come_.fill(true);
        none_selected_.fill(true);
        all_selected_.fill(true);
    }

    void add(DB_List& row)
    {
        const auto level = std::min<std::size_t>(row.level, db::deepest_level);
        touched_ = std::max(touched_, level);
        if (row.state & DB_List::leaf) {
            Flags& cleared = row.select & DB_List::selected ? none_selected_ : all_selected_;
            std::fill_n(cleared.begin(), level + 1, false);
        }
        row.select &= static_cast<unsigned short>(~marks);
        if (all_selected_[level])
            row.select |= DB_List::selected;
        else if (!none_selected_[level])
            row.select |= DB_List::partly_selected;
        if (last_is_to_come_[level])
            row.state |= DB_List::last_sibling;
        last_is_to_come_[level] = false;
        forget_below(level);
    }

private:
    using Flags = std::array<bool, db::deepest_level + 1>;
    Flags last_is_to_come_, none_selected_, all_selected_;
    std::size_t touched_ = 0; // deeper flags are all set

    // The leaf flags of the deepest level are for everything that is deeper, and stay.
    void forget_below(std::size_t level)
    {
        if (level == db::deepest_level)
            return;
        for (std::size_t k = level; k <= touched_; ++k) {
            if (k > level)
                last_is_to_come_[k] = true;
            if (k < db::deepest_level)
                none_selected_[k] = all_selected_[k] = true;
        }
        touched_ = level;
    }
};

}

void DB_2D_Class_List_Roll_Up(int nb, DB_List* list)
{
    Roll_Up roll_up;
    for (int i = list ? nb - 1 : -1; i >= 0; --i)
        roll_up.add(list[i]);
}
