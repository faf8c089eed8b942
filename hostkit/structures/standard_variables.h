#pragma once

#include "hostkit/structures/registry.h"

#include <span>

namespace hostkit {

struct Standard_Variable {
    const char* name;
    Variable_Type type;
};

/// The variables that panels read and write; every host has them from the start.
std::span<const Standard_Variable> Standard_Variables();

/// Gives the interface's dimensions and fonts and the counts the values that suit a screen at its usual size, and file
/// dialogs their patterns.
void Standard_Values_Set();

}
