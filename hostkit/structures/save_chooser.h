#pragma once

#include "host/structures.h"

#include <functional>
#include <optional>
#include <string>

/// Who asks for the name of a file to write.
namespace hostkit {

/// What Fct_Save_FileName was asked; nothing is null.
struct Save_Question {
    const char* title;
    const char* filter;    ///< as Fct_Create_szFilter makes it; empty for all files
    const char* offered;   ///< a path, or empty
    const char* extension; ///< without its point, or empty
};

/// @return the path that the user confirmed; nothing when the question was dismissed
using Save_Chooser = std::function<std::optional<std::string>(const Save_Question&)>;

/// Puts another chooser in the place of the system's dialog, for a program with dialogs of its own and for whoever has
/// no user to ask; null: the system's dialog again. @return the chooser that there was
STRUCTURES_API Save_Chooser Set_Save_Chooser(Save_Chooser chooser);

/// Asks with the system's dialog, for choosers that do more with the answer.
STRUCTURES_API std::optional<std::string> Ask_With_System_Dialog(const Save_Question& question);

}
