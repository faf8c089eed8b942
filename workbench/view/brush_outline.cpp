#include "workbench/view/brush_outline.h"

#include <algorithm>
#include <map>
#include <QPainter>
#include <utility>
#include <vector>

namespace workbench {

void BrushOutline::setShape(const BrushShape& shape)
{
    radius_ = shape.radius();
    lines_.clear();
    std::map<int, std::vector<int>> ends; // of the runs above and below each line of the grid
    for (const Run& run : shape.whole()) {
        lines_ << QLine(run.first, run.y, run.first, run.y + 1) << QLine(run.last + 1, run.y, run.last + 1, run.y + 1);
        for (const int y : {run.y, run.y + 1})
            ends[y].insert(ends[y].end(), {run.first, run.last + 1});
    }
    // Between two ends exactly one of the rows is covered: where both are, their ends cancel out.
    for (auto& [y, places] : ends) {
        std::sort(places.begin(), places.end());
        for (std::size_t i = 0; i + 1 < places.size(); i += 2)
            if (places[i] != places[i + 1])
                lines_ << QLine(places[i], y, places[i + 1], y);
    }
}

QRect BrushOutline::box(QPoint centre) const
{
    return {centre.x() - radius_, centre.y() - radius_, 2 * radius_ + 1, 2 * radius_ + 1};
}

void BrushOutline::paint(QPainter& painter, const QTransform& place, QPoint centre, QColor colour) const
{
    painter.save();
    painter.setTransform(QTransform::fromTranslate(centre.x(), centre.y()) * place, true);
    for (const auto& [line_colour, width] : {std::pair(QColor(0, 0, 0, 150), 3.0), std::pair(colour, 1.0)}) {
        QPen pen(line_colour, width);
        pen.setCosmetic(true);
        painter.setPen(pen);
        painter.drawLines(lines_);
    }
    painter.restore();
}

}
