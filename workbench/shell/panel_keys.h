#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QKeyEvent;
class QWidget;

namespace hostkit {
class Panel_Window;
}

namespace workbench {

/// Sees every key before anyone else and gives it to the panel under the pointer. What the panel leaves goes on: to the
/// shortcuts, then to the widget with the focus.
class PanelKeys final : public QObject {
public:
    /// @param first  asked before the panel, when there is one under the pointer; returns whether it took the key
    explicit PanelKeys(std::vector<hostkit::Panel_Window*> panels, std::function<bool(const QKeyEvent&)> first = {},
        QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool offer(const QKeyEvent& event);
    hostkit::Panel_Window* panelUnderPointer() const;

    std::vector<hostkit::Panel_Window*> panels_;
    std::function<bool(const QKeyEvent&)> first_;
    int usedKey_ = 0; // taken while shortcuts were asked: its key press is still to come
};

/// The code that panels know a key by: a character, 8, 9, 13, 27, or 2048 + virtual-key code; 0 for none.
int panelKeyCode(const QKeyEvent& event);

}
