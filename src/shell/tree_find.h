// Finding nodes of the tree by their text, and the nodes before and after one.
#pragma once

#include <string_view>

#include "session/session.h"

namespace merlu {

// Hides the nodes that do not hold every word of the find line above the tree, unless they hold a node that does. An
// empty line shows all.
void FilterTree(Session& s);

// The next node after `from` in the order of the tree, wrapping around at the end, whose text or ID begins with what
// was typed: "F1" as well as "combustion". -1 without one; hidden nodes do not count.
int FindByTyping(const Tree& tree, int from, std::string_view typed);

// The node before or after one in the order of the tree, collapsed ones included; -1 at the ends.
int Neighbour(const Tree& tree, int node, int step);

}  // namespace merlu
