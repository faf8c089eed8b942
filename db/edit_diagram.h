#pragma once

#include "db/edit_state.h"
#include "frame/drawing.h"
#include "frame/painting.h"

#include <optional>

namespace db {

/// How a handle looks.
enum class Handle_Look : unsigned char { plain, marked, refusing };

/// Draws a diagram whose lines are numbered, or parts of it, while this lives. Nothing leaves the list box.
class Diagram {
public:
    explicit Diagram(const Diagram_View& view);

    /// False without a window or its drawing context.
    bool ready() const { return clip_.has_value(); }

    /// All that is seen, on an empty box.
    void draw();

    /// The handles of the rows that are dragged.
    void draw_dragged();

    /// A part again.
    void draw_part(int code, Emphasis emphasis);

private:
    const Diagram_View& view_;
    List_Point origin_;
    frame::Drawing drawing_;
    std::optional<frame::Clip> clip_; // goes before the drawing context
    Boxs box_;
    Labels name_;

    const DB_List& row(int index) const { return view_.list[index]; }
    int box_x(int level) const { return origin_.x + column_width * level; }
    int box_x(const DB_List& row) const { return box_x(row.level); }
    int middle(const DB_List& row) const { return origin_.y - diagram_line_height * row.line - handle_depth; }
    bool is_on_seen_line(const DB_List& row) const;
    bool is_first_child(int index) const { return row(index).level > 0 && row(index).parent == index - 1; }

    void draw_row(int index);
    void draw_box(int index, Emphasis emphasis);
    void draw_link_to_parent(int index) const;
    void draw_handles_on_box(int index) const;
    void draw_parent_handle(int index, Handle_Look look) const;
    void draw_children_handle(int index, Handle_Look look) const;
    void draw_fold_handle(int index, Handle_Look look) const;
};

}
