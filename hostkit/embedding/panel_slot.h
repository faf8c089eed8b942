#pragma once

#include "hostkit/embedding/panel_window.h"

#include <utility>

namespace hostkit {

/// A place for a panel in a host: the panel, and the window that feeds it.
///
///     Panel_Slot<Tool_Tag> tags(main_window, {.clicked = choose_tag});
///     MoveWindow(tags.window(), 0, 0, 240, tags.panel().Height(4), TRUE);
///     ShowWindow(tags.window(), SW_SHOW);
template <class Panel>
class Panel_Slot {
public:
    /// @param parent     the window that the panel's own becomes a child of
    /// @param rules      what the panel's results and changes mean to the program
    /// @param arguments  for the panel's constructor
    template <class... Arguments>
    explicit Panel_Slot(HWND parent, Panel_Rules rules, Arguments&&... arguments)
        : panel_(std::forward<Arguments>(arguments)...), window_(parent, events_, std::move(rules))
    {
    }

    Panel& panel() { return panel_; }
    const Panel& panel() const { return panel_; }
    Panel_Window& host() { return window_; }
    HWND window() const { return window_.window(); }

private:
    Panel panel_;
    Panel_Events_Of<Panel> events_{panel_};
    Panel_Window window_;
};

}
