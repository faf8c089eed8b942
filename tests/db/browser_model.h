#pragma once

#include "tests/support/panel_host.h"

#include <vector>

/// The database list once more, by its rules alone and as plainly as they can be said: every answer is found by looking
/// at every row. What the list does on events is held against it.
namespace test {

struct Model_Row {
    int level = 0;
    int children = 0; ///< of the object, listed or not
    bool open = true;
    bool leaf = false;
    bool accessible = true;
    bool last = false; ///< of its siblings
    int select = 0;    ///< 0, 1 or 2, and 16
    int line = 0;
    int object = -1; ///< what it stands for, as the model's host counts

    int state() const { return (open && !leaf) | leaf << 1 | last << 2 | (accessible ? 0 : 16); }
};

struct Model_Area {
    int x = 0, y = 0, width = 0, height = 0;
    bool has(Place place) const { return place.x >= x && place.x < x + width && place.y >= y && place.y < y + height; }
};

/// A scroll bar: what is seen of the content, and from where.
struct Model_Bar {
    float value = 0;
    float most = 0; ///< 0: everything fits
    void go_to(float wanted);
};

class Browser_Model {
public:
    virtual ~Browser_Model() = default;

    void lay_out(int width, int height);

    void press(Place place);
    void release(Place place);
    void move(Place place);
    void turn_wheel(Place place, int notches);

    /// Makes the rows anew.
    void rebuild();

    /// Tells the list that the host's selection has changed, or that another window is current.
    void tell(unsigned long long word);

    /// The words that were sent since the last call.
    std::vector<unsigned long long> take_words() { return std::exchange(sent_, {}); }

    bool shift = false, control = false; ///< the keys that are held
    bool bar_is_held = false;            ///< a scroll bar follows the pointer as it thinks fit
    Model_Bar down, across;
    std::vector<Model_Row> rows;
    int last_row = 0;

    Model_Area list_box, down_bar, across_bar, all_button, none_button;

protected:
    virtual void make_rows() = 0;
    virtual void read_host() = 0;
    virtual void write_host() = 0;
    virtual void empty_windows() = 0;

    /// A word that is waiting already is not sent again.
    void send(unsigned long long word);

    int count() const { return static_cast<int>(rows.size()); }
    Model_Row& at(int row) { return rows[static_cast<size_t>(row)]; }
    bool is_below(int row, int folder) const;

private:
    Model_Area panel_, right_zone_, left_zone_, bottom_zone_, top_zone_;
    int space_ = 0;
    bool dragging_ = false, button_is_down_ = false;
    static inline int anchor_ = 0; // of all panels
    std::vector<unsigned long long> waiting_, sent_;

    void after_event();
    void settle();
    bool is_shown(int row) const;
    int row_on(int line) const;
    int line_at(Place place) const;
    int column_at(Place place) const;
    void press_in_list(Place place);
    void mark_all(int mark);
    void apply(int end);
    void choose_lines(int first, int last);
    void choose_range(int end);
    void copy_below(int row);
    void roll_up();
};

}
