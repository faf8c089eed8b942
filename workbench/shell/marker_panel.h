#pragma once

#include "hostkit/embedding/panel_slot.h"
#include "tools/tool_marker.h"

#include <QObject>

namespace workbench {

class Session;

/// The marker panel: a click on a marker makes it the current one and shows its slice, a click on its mark switches
/// whether it is shown, a right click renames it.
class MarkerPanel final : public QObject {
    Q_OBJECT
public:
    /// The session must outlive it.
    explicit MarkerPanel(Session& session);

    QWidget& widget() const { return *widget_; }
    hostkit::Panel_Window& host() { return slot_.host(); }

    /// As high as its rows, of which it shows a few and scrolls to the others.
    void fitHeight();

    /// After a change of the interface's size.
    void layOut();

private:
    void clicked(int marker);
    void followCount();

    Session& session_;
    hostkit::Panel_Slot<Tool_Marker> slot_;
    QWidget* widget_;
    unsigned laidOut_ = 0; // markers
};

}
