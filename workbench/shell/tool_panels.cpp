#include "workbench/shell/tool_panels.h"

#include "platform/qt/window_widget.h"
#include "workbench/model/session.h"
#include "workbench/shell/theme.h"
#include "workbench/shell/tool_column.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr unsigned long long brushesChanged = 1ull << 23;
constexpr int tagsPerRow = 4;
constexpr int fewestRows = 4; // before the panel scrolls, the column does

}

ToolPanels::ToolPanels(Session& session, ToolColumn& column, Worker& worker)
    : session_(session), column_(column),
      tags_(nullptr, {.clicked =
                             [this](int tag) {
                                 if (tag >= 0)
                                     session_.setCurrentTag(static_cast<unsigned>(tag));
                             }}),
      brushes_(nullptr, {.clicked =
                                [this](int chosen) {
                                    if (chosen == 1)
                                        session_.setCurrentBrush(static_cast<unsigned>(brushes_.panel().Read()));
                                }}),
      tagWidget_(Widget_From_Window(tags_.window())), brushWidget_(Widget_From_Window(brushes_.window())),
      propagation_(new PropagateSection(session, worker)), markers_(session), histogram_(new HistogramSection(session)),
      keys_({&tags_.host(), &brushes_.host(), &propagation_->host(), &markers_.host(), &histogram_->histogram().host()})
{
    Fct_Update(brushesChanged, nullptr, nullptr, nullptr); // the panel builds the brushes' shapes
    tags_.host().Set_Look(theme::panelLook());
    brushes_.host().Set_Look(theme::panelLook());
    column.addSection(tr("Tags"), tagWidget_);
    column.addSection(tr("Brushes"), brushWidget_);
    column.addSection({}, propagation_); // its panel is titled
    column.addSection(tr("Markers"), &markers_.widget());
    column.addSection(tr("Histogram"), histogram_);
    tagWidget_->show();
    brushWidget_->show();
    markers_.widget().show();
    fitHeights();
    connect(&column, &ToolColumn::resized, this, &ToolPanels::fitHeights);
    connect(&session, &Session::tagsChanged, this, &ToolPanels::followTagCount);
}

// As many rows of tags as there are or as fit, so that the column scrolls only in a low window.
void ToolPanels::fitHeights()
{
    laidOutTags_ = session_.tagCount();
    brushWidget_->setFixedHeight(brushes_.panel().Height());
    markers_.fitHeight();

    const int rows = std::max(1, static_cast<int>(laidOutTags_) / tagsPerRow);
    const int without = tags_.panel().Height(0);
    const int pitch = tags_.panel().Height(1) - without;
    const int fitting = (column_.heightLeftFor(tagWidget_) - without) / std::max(1, pitch);
    const int shown = std::clamp(fitting, std::min(fewestRows, rows), rows);
    tagWidget_->setFixedHeight(tags_.panel().Height(static_cast<unsigned short>(shown)));
}

void ToolPanels::layOut()
{
    fitHeights();
    tags_.host().Lay_Out();
    brushes_.host().Lay_Out();
    propagation_->layOut();
    markers_.layOut();
    histogram_->layOut();
}

void ToolPanels::followTagCount()
{
    if (session_.tagCount() != laidOutTags_)
        layOut();
}

}
