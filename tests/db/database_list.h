#pragma once

#include "db/tool_db_class.h"
#include "hostkit/structures/tree.h"
#include "tests/support/panel_host.h"

#include <string>
#include <vector>

namespace test {

constexpr int left_press = 18;
constexpr int held = 17; ///< a motion with the left button down

/// A list of classes in a window of the host. Its tree has seven rows: a root, series "a" with three images, and series
/// "b" with one.
class Database_List : public Panel_Host {
protected:
    Database_List();
    ~Database_List() override;

    Strato_2D* add(Strato_2D* parent, const std::string& title, const std::string& name, unsigned class_a = 0);
    Strato_2D_Frame* add_image(Strato_2D* series, const std::string& name);

    /// Series of images, more than the panel can show.
    void add_series(int series, int images);

    void lay_out(int width = 300, int height = 260, int x = 10, int y = 20);

    /// Makes the rows as the tree is.
    void rebuild() { panel.Update(0x402); }

    const DB_List& row(int index) const { return panel.list_pt[index]; }
    std::vector<int> selects() const;
    std::vector<int> lines() const;

    /// Where a line's texts are, or the lead of its row.
    Place on_line(int line, int level = 9) const;

    int press(Place place);
    int release(Place place);
    int move(Place place, int up_down);
    void drag(int from, int to);
    void click(int line) { drag(line, line); }

    Boxs area;
    Tool_DB_Class panel;
    Strato_2D* root;
    Strato_2D* series_a;
    Strato_2D* series_b;
    std::vector<Strato_2D_Frame*> images;
};

}
