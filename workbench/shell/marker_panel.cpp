#include "workbench/shell/marker_panel.h"

#include "hostkit/gadgets/button_mark.h"
#include "platform/qt/window_widget.h"
#include "workbench/model/session.h"
#include "workbench/shell/theme.h"

#include <QWidget>

#include <algorithm>

namespace workbench {

namespace {

constexpr unsigned markersPerRow = 4;
constexpr unsigned mostRows = 4;
constexpr unsigned showsMarks = 1u << 20;

}

MarkerPanel::MarkerPanel(Session& session)
    : session_(session), slot_(nullptr, {.clicked = [this](int marker) { clicked(marker); }}),
      widget_(Widget_From_Window(slot_.window()))
{
    hostkit::Panel_Look look = theme::panelLook();
    look.state |= showsMarks;
    slot_.host().Set_Look(look);
    fitHeight();
    connect(&session.markers(), &Markers::changed, this, &MarkerPanel::followCount);
}

void MarkerPanel::clicked(int marker)
{
    if (marker < 0)
        return;
    Markers& markers = session_.markers();
    const auto chosen = static_cast<unsigned>(marker);
    if (!hostkit::Pressed_On_Mark())
        return markers.show(chosen);
    markers.setCurrent(chosen);
    markers.setShown(chosen, !markers.at(chosen).enabled);
}

void MarkerPanel::fitHeight()
{
    laidOut_ = session_.markers().count();
    const unsigned rows = std::clamp(laidOut_ / markersPerRow, 1u, mostRows);
    widget_->setFixedHeight(slot_.panel().Height(static_cast<unsigned short>(rows)));
}

void MarkerPanel::layOut()
{
    fitHeight();
    slot_.host().Lay_Out();
}

void MarkerPanel::followCount()
{
    if (session_.markers().count() != laidOut_)
        layOut();
}

}
