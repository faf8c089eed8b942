#include "tests/db/database_list.h"

#include <algorithm>
#include <random>

// Which rows gestures select, in the list and in the host.

using namespace test;
using Numbers = std::vector<int>;

namespace {

class DatabaseSelection : public Database_List {
protected:
    Strato_Window* const window = hostkit::Window_Add("w");

    Numbers selected_images() const
    {
        Numbers result;
        for (size_t i = 0; i < images.size(); ++i) {
            if (images[i]->Flag_Get_Bit(16, reinterpret_cast<void*>(4), 512))
                result.push_back(static_cast<int>(i));
        }
        return result;
    }
};

// The rules once more, as plainly as can be said.
struct Rules {
    struct Row {
        int level, select;
        bool leaf;
    };
    std::vector<Row> rows;
    Numbers lines;
    int last_row = 0;

    int count() const { return static_cast<int>(rows.size()); }
    Row& at(int row) { return rows[static_cast<size_t>(row)]; }

    bool is_below(int row, int folder)
    {
        for (int i = folder + 1; i <= row; ++i) {
            if (at(i).level <= at(folder).level)
                return false;
        }
        return row > folder;
    }

    int row_on(int line)
    {
        const auto found = std::find(lines.begin(), lines.end(), line);
        return found == lines.end() ? -1 : static_cast<int>(found - lines.begin());
    }

    void copy_below(int folder)
    {
        for (int i = 0; i < count(); ++i) {
            if (is_below(i, folder))
                at(i).select = at(folder).select;
        }
    }

    void apply(int anchor, int end, bool shift, bool control)
    {
        for (Row& row : rows)
            row.select &= control ? ~0 : ~3;
        if (shift) {
            const int row = row_on(std::clamp(end, 0, count() - 1));
            for (int i = std::min(row, last_row); row >= 0 && i <= std::max(row, last_row); ++i) {
                at(i).select |= 2;
                copy_below(i);
            }
        } else {
            apply_lines(std::min(anchor, end), std::max(anchor, end));
        }
        roll_up();
    }

    void apply_lines(int first, int last)
    {
        for (int line = std::max(first, 0); line <= std::min(last, count() - 1); ++line) {
            const int row = row_on(line);
            if (row < 0)
                return;
            last_row = row;
            at(row).select ^= 2;
            copy_below(row);
            for (int i = 0; i < count(); ++i) {
                if (is_below(i, row) && lines[static_cast<size_t>(i)] != 65535)
                    line = std::max(line, lines[static_cast<size_t>(i)]);
            }
        }
    }

    void roll_up()
    {
        for (int folder = 0; folder < count(); ++folder) {
            if (at(folder).leaf)
                continue;
            int all = 0, chosen = 0;
            for (int i = 0; i < count(); ++i) {
                if (is_below(i, folder) && at(i).leaf) {
                    ++all;
                    chosen += (at(i).select & 2) != 0;
                }
            }
            at(folder).select = (at(folder).select & ~3) | (chosen == all ? 2 : chosen ? 1 : 0);
        }
        for (Row& row : rows) {
            if (row.leaf)
                row.select &= ~1;
        }
    }
};

Rules rules_of(const Tool_DB_List& panel)
{
    Rules rules;
    rules.last_row = panel.last_row;
    for (int i = 0; i < panel.nb; ++i) {
        const DB_List& row = panel.list_pt[i];
        rules.rows.push_back({row.level, row.select, (row.state & DB_List::leaf) != 0});
        rules.lines.push_back(row.line);
    }
    return rules;
}

}

TEST_F(DatabaseSelection, ClickSelectsARowAndTellsTheHost)
{
    click(3);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 0, 0, 0}));
    EXPECT_EQ(panel.last_row, 3);
    EXPECT_EQ(selected_images(), Numbers{1});
    EXPECT_EQ(hostkit::Window_Frame(window), images[1]);
    const auto sent = broadcasts();
    EXPECT_NE(std::find(sent.begin(), sent.end(), 0x102ull), sent.end());
}

TEST_F(DatabaseSelection, ClickOnAFolderSelectsWhatIsBelow)
{
    click(1);
    EXPECT_EQ(selects(), (Numbers{1, 2, 2, 2, 2, 0, 0}));
    EXPECT_EQ(hostkit::Window_Frame(window), images[0]) << "the uppermost";
    click(6);
    EXPECT_EQ(selects(), (Numbers{1, 0, 0, 0, 0, 2, 2}));
}

TEST_F(DatabaseSelection, DragTakesAllLinesInBetween)
{
    drag(3, 6);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 2, 2, 2}));
    EXPECT_EQ(panel.last_row, 5) << "what is below the folder went with it";
    drag(4, 2);
    EXPECT_EQ(selects(), (Numbers{1, 2, 2, 2, 2, 0, 0}));
}

TEST_F(DatabaseSelection, ControlTogglesAndKeepsTheRest)
{
    click(3);
    hold(false, true);
    click(6);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 0, 2, 2}));
    drag(2, 4);
    EXPECT_EQ(selects(), (Numbers{1, 1, 2, 0, 2, 2, 2}));
}

TEST_F(DatabaseSelection, ShiftSelectsFromTheLastRow)
{
    click(3);
    hold(true, false);
    click(6);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 2, 2, 2}));
    EXPECT_EQ(panel.last_row, 3);
    click(2);
    EXPECT_EQ(selects(), (Numbers{1, 1, 2, 2, 0, 0, 0}));
}

TEST_F(DatabaseSelection, ShiftTakesFoldedRowsToo)
{
    click(1);
    press(on_line(1, 1));
    hold(true, false);
    click(2); // series b
    EXPECT_EQ(selects(), (Numbers{2, 2, 2, 2, 2, 2, 2}));
}

TEST_F(DatabaseSelection, LastRowBeyondTheListCounts)
{
    panel.last_row = 4000;
    hold(true, false);
    click(5);
    EXPECT_EQ(selects(), (Numbers{1, 0, 0, 0, 0, 2, 2}));
}

TEST_F(DatabaseSelection, SelectAllMarksEveryRow)
{
    panel.list_pt[6].state |= DB_List::inaccessible;
    EXPECT_EQ(press(middle(panel.select_all)), 1);
    EXPECT_EQ(selects(), (Numbers{2, 2, 2, 2, 2, 2, 2}));
    EXPECT_EQ(selected_images(), (Numbers{0, 1, 2})) << "only what is accessible reaches the host";
    EXPECT_EQ(panel.select_all.pressed, 0);
}

TEST_F(DatabaseSelection, SelectNoneEmptiesTheWindows)
{
    press(middle(panel.select_all));
    release(middle(panel.select_all));
    ASSERT_NE(hostkit::Window_Frame(window), nullptr);
    EXPECT_EQ(press(middle(panel.select_none)), 1);
    EXPECT_EQ(selects(), Numbers(7, 0));
    EXPECT_EQ(selected_images(), Numbers());
    EXPECT_EQ(hostkit::Window_Frame(window), nullptr);
}

TEST_F(DatabaseSelection, GesturesFollowTheRules)
{
    std::mt19937 random(7);
    const auto upto = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    for (int i = 0; i < 3; ++i) {
        Strato_2D* const study = add(root, "Study", std::to_string(i));
        add(study, "Empty", "e", 0x2FFD);
        for (int k = 0; k < 2; ++k) {
            Strato_2D* const series = add(study, "Series", std::to_string(k));
            for (int n = upto(2); n >= 0; --n)
                add_image(series, std::to_string(n));
        }
    }
    lay_out(300, 780, 0, 0);
    rebuild();
    ASSERT_EQ(panel.vertical.state, 0x0C000027u) << "all of it is seen";
    int anchor = 0;
    for (int step = 0; step < 400; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        hold(false, false);
        if (upto(4) == 0) {
            const int folder = upto(panel.nb - 1);
            if (row(folder).line != 65535 && row(folder).nb_child > 0)
                press(on_line(row(folder).line, row(folder).level));
        }
        const int shown = static_cast<int>(std::count_if(
            panel.list_pt, panel.list_pt + panel.nb, [](const DB_List& each) { return each.line != 65535; }));
        const int from = upto(shown - 1), to = upto(shown - 1);
        const bool shift = upto(2) == 0, control = upto(2) == 0;
        Rules rules = rules_of(panel);
        hold(shift, control);
        drag(from, to);
        anchor = shift ? anchor : from;
        rules.apply(anchor, to, shift, control);
        for (int i = 0; i < panel.nb; ++i)
            ASSERT_EQ(row(i).select, rules.at(i).select) << "row " << i;
        ASSERT_EQ(panel.last_row, rules.last_row);
    }
}

TEST_F(DatabaseSelection, HalfSelectedFolderIsSelectedByAClick)
{
    click(3);
    ASSERT_EQ(row(1).select, 1);
    hold(false, true);
    click(1);
    EXPECT_EQ(selects(), (Numbers{1, 2, 2, 2, 2, 0, 0}));
}
