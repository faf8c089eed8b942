#pragma once

#include "db/edit_layout.h"
#include "db/tool_db_class.h"

#include <QPoint>

class QWidget;
class Strato;

namespace workbench {

/// The object of a row.
Strato* objectOf(const Tool_DB_Class& panel, int row);

/// Where a part of a class is in a diagram, on the diagram's widget.
QPoint diagramPlace(const Tool_DB_Class& diagram, const QWidget& widget, int row, db::Diagram_Part part);

}
