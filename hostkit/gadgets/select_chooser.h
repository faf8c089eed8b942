#pragma once

#include "host/gadgets.h"

#include <functional>

/// Who chooses an item when a select list is pressed.
namespace hostkit {

/// Gets the select list. @return the index of an item, or -1 for none
using Select_Chooser = std::function<int(const Selects&)>;

/// Puts another chooser in the place of the opened list, for whoever has no user to ask; null: the opened list again.
/// @return the chooser that there was
GADGETS_API Select_Chooser Set_Select_Chooser(Select_Chooser chooser);

/// Lets the user choose an item of a select list. @return its index, or -1
int Choose_Item(const Selects& select);

}
