// The menu items of the exploration views. In the desktop application each opens or drives its
// view; from the command line they can only say where that view is.
#pragma once

#include "core/contexte.hpp"

namespace telvoris {

void OperationVueExploration(Contexte& contexte);

}  // namespace telvoris
