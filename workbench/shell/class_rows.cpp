#include "workbench/shell/class_rows.h"

#include "host/structures.h"

#include <QWidget>

namespace workbench {

namespace {

int rowOfLine(const Tool_DB_Class& list, int y)
{
    const int line = (y - db::line_height / 2) / db::line_height;
    for (int row = 0; row < list.nb; ++row)
        if (list.list_pt[row].line == line)
            return row;
    return -1;
}

int rowOfBox(const Tool_DB_Class& diagram, db::List_Point place)
{
    if (place.x % db::column_width > db::box_width || place.y % db::diagram_line_height < db::box_top)
        return -1;
    const int column = place.x / db::column_width, line = place.y / db::diagram_line_height;
    for (int row = 0; row < diagram.nb; ++row)
        if (diagram.list_pt[row].level == column && diagram.list_pt[row].line == line)
            return row;
    return -1;
}

}

int rowUnderPointer(Tool_DB_Class& panel)
{
    constexpr int question = 4;
    const db::List_Point place = panel.Pointer();
    if (!panel.list_box.Select(question) || place.x < 0 || place.y < 0)
        return -1;
    return panel.Edits() ? rowOfBox(panel, place) : rowOfLine(panel, place.y);
}

Strato* objectOf(const Tool_DB_Class& panel, int row)
{
    void* const object = panel.list_pt[row].object;
    switch (panel.Dimension()) {
    case 1:
        return static_cast<Strato_1D*>(object);
    case 2:
        return static_cast<Strato_2D*>(object);
    default:
        return static_cast<Strato_3D*>(object);
    }
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
