#pragma once

#include "frame/change_flags.h"

#include <cstddef>

namespace tools {

/// What a panel does when a bit of the change-flag word is set: shows what changed, adds what must be redone to its
/// argument, and says whether the host had what it needs.
template <class Panel>
struct Update_Block {
    frame::Change_Flags bit;
    bool (Panel::*run)(unsigned& redo);
};

/// Runs the blocks that the flags name, in their order. @return false when one of them missed something; it is the last
/// one that was run then
template <class Panel, std::size_t count>
bool run_blocks(Panel& panel, const Update_Block<Panel> (&blocks)[count], frame::Change_Flags flags, unsigned& redo)
{
    for (const Update_Block<Panel>& block : blocks) {
        if (frame::has_any(flags, block.bit) && !(panel.*block.run)(redo))
            return false;
    }
    return true;
}

}
