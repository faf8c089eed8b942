#include "workbench/shell/class_rows.h"

#include "db/dimension.h"

#include <QWidget>

namespace workbench {

Strato* objectOf(const Tool_DB_Class& panel, int row)
{
    return db::object_of(panel.Dimension(), panel.list_pt[row].object);
}

QPoint diagramPlace(const Tool_DB_Class& diagram, const QWidget& widget, int row, db::Diagram_Part part)
{
    constexpr int across[] = {db::box_width / 2, 0, db::box_width, db::fold_handle_x};
    const DB_List& shown = diagram.list_pt[row];
    const db::List_Point origin = diagram.Origin();
    const int x = origin.x + db::column_width * shown.level + across[part];
    const int y = origin.y - db::diagram_line_height * shown.line - db::handle_depth;
    return {x, widget.height() - 1 - y};
}

}
