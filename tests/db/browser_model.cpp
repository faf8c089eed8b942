#include "tests/db/browser_model.h"

#include "hostkit/structures/registry.h"

#include <algorithm>

using hostkit::Variable;

namespace test {

namespace {

constexpr int hidden = 65535;
constexpr int row_height = 18;

}

void Model_Bar::go_to(float wanted)
{
    value = std::min(std::max(wanted, 0.0f), most);
}

// --------------------------------------------------------------------------------------------------------- places

void Browser_Model::lay_out(int width, int height)
{
    space_ = Variable<short>("$INTERFACE_SPACE_DIM");
    const int bar = Variable<short>("$INTERFACE_VAL_DIM_SML"), button = Variable<short>("$INTERFACE_BUTTON_DIM_SML"),
              border = Variable<short>("$INTERFACE_BORDER_DIM");
    const int half = (width - 2 * space_ - 2) / 2;
    panel_ = {0, 0, width, height};
    all_button = {space_, space_, half, button};
    none_button = {space_ + half + 2, space_, half, button};

    const int band = space_ + button + space_, band_height = height - 2 * space_ - border - button - 1;
    const int list_width = width - 2 * space_ - bar - space_;
    down_bar = {width - space_ - bar, band + bar + space_, bar, band_height - 2 * space_ - bar};
    across_bar = {space_, band, list_width, bar};
    list_box = {space_, band + bar + space_, list_width, band_height - bar - space_};

    const int top = list_box.y + list_box.height, right = list_box.x + list_box.width;
    top_zone_ = {0, top - 10, width, height - top + 10};
    bottom_zone_ = {0, 0, width, list_box.y};
    left_zone_ = {0, 0, 20, height};
    right_zone_ = {right, 0, width - right, height};
    settle();
}

int Browser_Model::line_at(Place place) const
{
    return (list_box.y + list_box.height + static_cast<int>(down.value) - place.y - 9) / row_height;
}

int Browser_Model::column_at(Place place) const
{
    return (place.x - list_box.x - space_ + static_cast<int>(across.value)) / 20;
}

// ---------------------------------------------------------------------------------------------------------- rows

bool Browser_Model::is_below(int row, int folder) const
{
    for (int i = folder + 1; i <= row; ++i) {
        if (rows[static_cast<size_t>(i)].level <= rows[static_cast<size_t>(folder)].level)
            return false;
    }
    return row > folder;
}

bool Browser_Model::is_shown(int row) const
{
    for (int folder = 0; folder < row; ++folder) {
        if (is_below(row, folder) && !rows[static_cast<size_t>(folder)].open)
            return false;
    }
    return true;
}

int Browser_Model::row_on(int line) const
{
    const auto found =
        std::find_if(rows.begin(), rows.end(), [line](const Model_Row& row) { return row.line == line; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

// Numbers the lines, and scrolls no further than there is something to be seen.
void Browser_Model::settle()
{
    int lines = 0;
    for (int i = 0; i < count(); ++i)
        at(i).line = is_shown(i) ? lines++ : hidden;
    down.most = static_cast<float>(std::max((lines + 1) * row_height - list_box.height, 0));
    down.go_to(down.value);
    across.go_to(across.value);
}

void Browser_Model::roll_up()
{
    for (int i = 0; i < count(); ++i) {
        int leaves = 0, chosen = 0;
        bool last = true;
        for (int k = i; k < count() && (k == i || is_below(k, i)); ++k) {
            leaves += at(k).leaf;
            chosen += at(k).leaf && (at(k).select & 2);
        }
        for (int k = i + 1; k < count() && at(k).level >= at(i).level; ++k)
            last = last && at(k).level != at(i).level;
        at(i).last = at(i).last || last;
        if (!at(i).leaf)
            at(i).select = (at(i).select & 16) | (chosen == leaves ? 2 : chosen > 0 ? 1 : 0);
    }
    for (Model_Row& row : rows) {
        if (row.leaf)
            row.select &= ~1;
    }
}

// --------------------------------------------------------------------------------------------------------- events

void Browser_Model::press(Place place)
{
    button_is_down_ = true;
    if (list_box.has(place))
        press_in_list(place);
    else if ((down_bar.has(place) && down.most > 0) || (across_bar.has(place) && across.most > 0))
        bar_is_held = true;
    else if (all_button.has(place))
        mark_all(2);
    else if (none_button.has(place))
        mark_all(0);
    after_event();
}

void Browser_Model::press_in_list(Place place)
{
    const int line = line_at(place);
    if (line >= 0 && line < count()) {
        const int row = row_on(line);
        if (row < 0)
            return;
        if (at(row).children > 0 && column_at(place) == at(row).level) {
            at(row).open = !at(row).open;
            return settle();
        }
    }
    dragging_ = true;
    if (!shift)
        anchor_ = line;
}

void Browser_Model::release(Place place)
{
    if (list_box.has(place) && dragging_)
        apply(line_at(place));
    dragging_ = button_is_down_ = bar_is_held = false;
    after_event();
}

// A drag scrolls near the edges.
void Browser_Model::move(Place place)
{
    if (!dragging_ || !button_is_down_)
        return;
    constexpr float step = 3;
    if (right_zone_.has(place))
        across.go_to(across.value + step);
    if (left_zone_.has(place))
        across.go_to(across.value - step);
    if (bottom_zone_.has(place))
        down.go_to(down.value + step);
    if (top_zone_.has(place))
        down.go_to(down.value - step);
}

void Browser_Model::turn_wheel(Place place, int notches)
{
    const auto away = static_cast<float>(notches);
    if (across_bar.has(place) && across.most > 0)
        across.go_to(across.value - 20 * away);
    else if (panel_.has(place))
        down.go_to(down.value - 18 * away);
}

void Browser_Model::mark_all(int mark)
{
    for (Model_Row& row : rows)
        row.select = (row.select & ~3) | mark;
    write_host();
    if (mark == 0)
        empty_windows();
}

// -------------------------------------------------------------------------------------------------------- choosing

void Browser_Model::apply(int end)
{
    for (Model_Row& row : rows)
        row.select &= control ? ~0 : ~3;
    if (shift)
        choose_range(end);
    else
        choose_lines(std::min(anchor_, end), std::max(anchor_, end));
    roll_up();
    write_host();
}

void Browser_Model::copy_below(int row)
{
    for (int i = 0; i < count(); ++i) {
        if (is_below(i, row))
            at(i).select = at(row).select;
    }
}

void Browser_Model::choose_lines(int first, int last)
{
    for (int line = first; line <= last; ++line) {
        if (line < 0 || line >= count())
            continue;
        const int row = row_on(line);
        if (row < 0)
            return;
        last_row = row;
        at(row).select ^= 2;
        copy_below(row);
        for (int i = 0; i < count(); ++i) {
            if (is_below(i, row) && at(i).line != hidden)
                line = std::max(line, at(i).line);
        }
    }
}

void Browser_Model::choose_range(int end)
{
    const int row = row_on(std::min(std::max(end, 0), count() - 1));
    if (row < 0)
        return;
    const int anchor = std::min(std::max(last_row, 0), count() - 1);
    for (int i = std::min(anchor, row); i <= std::max(anchor, row); ++i) {
        at(i).select |= 2;
        copy_below(i);
    }
}

// -------------------------------------------------------------------------------------------------------- the host

void Browser_Model::send(unsigned long long word)
{
    if (std::find(waiting_.begin(), waiting_.end(), word) == waiting_.end())
        waiting_.push_back(word);
}

void Browser_Model::after_event()
{
    for (const auto word : std::exchange(waiting_, {})) {
        sent_.push_back(word);
        tell(word);
    }
}

void Browser_Model::rebuild()
{
    rows.clear();
    make_rows();
    roll_up();
    down.value = across.value = 0;
    settle();
}

void Browser_Model::tell(unsigned long long word)
{
    if (!(word & 0x100000) && (word & 0x102) != 0x102)
        return;
    read_host();
    roll_up();
}

}
