#pragma once

#include "db/tool_db_list.h"

#include <QPoint>

class QWidget;

namespace workbench {

/// Where a row of a list is on the list's widget: on its name, or on the sign that folds it. The row must be in sight.
QPoint rowPlace(const Tool_DB_List& list, const QWidget& widget, int row);
QPoint foldPlace(const Tool_DB_List& list, const QWidget& widget, int row);

/// The middle of a button of the list.
QPoint buttonPlace(const Buttons& button, const QWidget& widget);

/// The first row of this level, counted from 0 at the root, behind another one; -1 when there is none.
int rowOfLevel(const Tool_DB_List& list, int level, int behind = -1);

}
