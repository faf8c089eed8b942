#pragma once

#include "host/gadgets.h"

#include <cstddef>

/// How the dialog ended.
enum Class_Rename_Result : int { class_rename_save = 1, class_rename_cancel = 2, class_rename_no_memory = -1 };

/// Asks for another name of a class, in a dialog of its own over the active window, until the user saves or cancels.
/// @param look      whose colours it has
/// @param name      the name, UTF-8; what is typed goes into it at once, whether it is saved or not
/// @param capacity  its bytes, with the zero: what is longer is cut
/// @return a Class_Rename_Result; -1 also when the dialog could not be made
int DB_Class_Rename(const Tools& look, char* name, std::size_t capacity);
