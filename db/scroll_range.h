#pragma once

#include "frame/widget_state.h"
#include "host/gadgets.h"

/// The bars beside a list: how far they go.
namespace db {

/// The states of a bar.
struct Bar_Looks {
    unsigned active;
    unsigned idle; ///< all is seen
};
constexpr Bar_Looks vertical_looks{frame::state::vertical_scroll, frame::state::idle_vertical_scroll};
constexpr Bar_Looks horizontal_looks{frame::state::horizontal_scroll, frame::state::idle_horizontal_scroll};

/// Scrolls back when less is left than was scrolled away. @param visible @param content pixels
/// @return whether it did
bool keep_within(Sliders& bar, int visible, int content);

/// Gives a bar its range, thumb and state; it is not drawn. @param visible @param content pixels
void set_range(Sliders& bar, int visible, int content, const Bar_Looks& looks);

}
