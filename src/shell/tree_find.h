// Finding nodes of the tree by their text, and the nodes before and after one.
#pragma once

#include <string_view>

#include "session/session.h"

namespace merlu {

// Hides the nodes that do not hold every word of the find line above the tree, unless they hold a node that does. An
// empty line shows all.
void FilterTree(Session& s);

}  // namespace merlu
