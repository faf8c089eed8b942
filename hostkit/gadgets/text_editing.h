#pragma once

#include "host/gadgets.h"

namespace hostkit {

/// The editor that is being typed into, or null. There is at most one in a program. It lies over another widget, so
/// whoever draws a panel draws it again afterwards, and keys belong to it.
GADGETS_API Texts* Active_Text();

/// Makes an editor the one being typed into; forgets it when it is not active, or goes away.
void Note_Active_Text(Texts* editor);
void Forget_Text(const Texts* editor);

// Steps in UTF-8: offsets in bytes, always at the edge of a character.
int next_character(const char* text, int offset);
int previous_character(const char* text, int offset);

/// Writes a Unicode character as UTF-8. @param bytes room for five, zero at the end
void encode_character(int character, char (&bytes)[5]);

}
