#pragma once

#include "host/structures.h"

/// From window messages to the words that panels are given.
namespace hostkit {

enum class Mouse_Event { none, press, release, motion };

/// What a window message says of the mouse's buttons and place; none for other messages. A double click is a press.
STRUCTURES_API Mouse_Event Mouse_Event_Of(UINT message);

/// The up-down word: bit 0 a button is held (motion), bit 1 press, 16, 32 and 64 the left, middle and right button is
/// down. @param wparam the message's, with its MK_ flags
STRUCTURES_API int Up_Down_Word(Mouse_Event event, WPARAM wparam);

}
