#include "workbench/tour/database_rows.h"

#include "hostkit/structures/registry.h"

#include <QWidget>

namespace workbench {

namespace {

constexpr int lineHeight = 18, firstLine = 18; // from the list's top to the middle of the first line
constexpr int columnWidth = 20, nameColumn = 4;

QPoint placeOf(const Tool_DB_List& list, const QWidget& widget, int row, int column)
{
    const DB_List& shown = list.list_pt[row];
    const Boxs& box = list.list_box;
    const int space = hostkit::Variable<short>("$INTERFACE_SPACE_DIM");
    const int down = firstLine + lineHeight * shown.line - static_cast<int>(list.vertical.value);
    const int across = space + columnWidth * column + columnWidth / 2 - static_cast<int>(list.horizontal.value);
    return {box.x + across, widget.height() - 1 - (box.y + box.height - down)};
}

}

QPoint rowPlace(const Tool_DB_List& list, const QWidget& widget, int row)
{
    return placeOf(list, widget, row, list.list_pt[row].level + nameColumn);
}

QPoint foldPlace(const Tool_DB_List& list, const QWidget& widget, int row)
{
    return placeOf(list, widget, row, list.list_pt[row].level);
}

QPoint buttonPlace(const Buttons& button, const QWidget& widget)
{
    return {button.x + button.width / 2, widget.height() - 1 - (button.y + button.height / 2)};
}

int rowOfLevel(const Tool_DB_List& list, int level, int behind)
{
    for (int row = behind + 1; row < list.nb; ++row)
        if (list.list_pt[row].level == level)
            return row;
    return -1;
}

}
