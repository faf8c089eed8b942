#pragma once

#include "db/edit_layout.h"
#include "db/tool_db_class.h"
#include "hostkit/embedding/panel_slot.h"
#include "hostkit/structures/tree.h"
#include "tests/support/panel_host.h"

#include <memory>
#include <string>
#include <vector>

namespace test {

/// A diagram of classes in a window of the host, which is told of events by window messages. Its tree has eight rows: a
/// root, study "x" with series "a" (three images), and study "y" with image "four", its only child.
class Database_Diagram : public Panel_Host {
protected:
    Database_Diagram();

    Tool_DB_Class& panel() { return slot_->panel(); }
    HWND window() const { return slot_->window(); }
    void lay_out(int width, int height);

    Strato_2D* add(Strato_2D* parent, const std::string& title, const std::string& name, unsigned class_a = 0);

    int row_of(const Strato_2D* object);

    /// Where the parts of a box are, in the window.
    Place part(const Strato_2D* object, db::Diagram_Part part);
    Place body(const Strato_2D* object) { return part(object, db::box_body); }
    Place empty_space(); ///< of the list box

    void drag(Place from, Place to);

    /// "root(x(a(one two three)) y(four))"
    static std::string text_of(const Strato_2D* object);
    std::string tree() const { return text_of(root); }
    std::vector<int> lines();

    Strato_2D* root;
    Strato_2D* study_x;
    Strato_2D* study_y;
    Strato_2D* series_a;
    Strato_2D* one;
    Strato_2D* two;
    Strato_2D* three;
    Strato_2D* four;

private:
    std::unique_ptr<hostkit::Panel_Slot<Tool_DB_Class>> slot_;
};

}
