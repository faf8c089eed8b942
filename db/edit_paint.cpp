#include "db/edit_diagram.h"
#include "db/edit_state.h"
#include "db/edit_view.h"
#include "db/scroll_range.h"
#include "db/tool_db_list.h"
#include "frame/registry.h"

namespace {

struct Extent {
    int width;
    int height;
};

Extent extent_of(const db::Diagram_Size& size)
{
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    return {2 * (size.deepest * db::column_width / 2 + space) + db::box_width,
        2 * ((size.lines + 1) * db::diagram_line_height / 2 + space)};
}

}

int DB_Edit_Paint(int mode, Boxs* box, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal)
{
    if (!list)
        return 0;
    const Extent extent = extent_of(db::number_diagram(nb, list));
    db::forget_hover(*box);
    if (!box->window || box->width <= 0 || box->height <= 0)
        return 1;
    const frame::Drawing context(box->window, "DB_Edit_Paint");
    const bool moved_down = db::keep_within(*vertical, box->height, extent.height);
    const bool moved_across = db::keep_within(*horizontal, box->width, extent.width);
    box->Clear(box->back);
    const db::Diagram_View view{mode & Tool_DB_List::dimension_part, *box, nb, list, *vertical, *horizontal};
    if (db::Diagram diagram(view); diagram.ready())
        diagram.draw();
    db::forget_drag(*box);
    db::set_range(*vertical, box->height, extent.height, db::vertical_looks);
    db::set_range(*horizontal, box->width, extent.width, db::horizontal_looks);
    if (moved_down)
        vertical->Adjust();
    if (moved_across)
        horizontal->Adjust();
    return 1;
}
