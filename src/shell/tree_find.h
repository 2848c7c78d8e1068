// Finding a node by what it says, and stepping from node to node.
#pragma once

#include <string_view>

#include "session/session.h"

namespace merlu {

// Hides the nodes that do not hold every word of the find line above the tree, unless they hold a node that does. An
// empty line shows all.
void FilterTree(Session& s);

// The next node behind `from`, in the order of the tree and from its end on from its beginning, whose text begins with
// what was typed, or whose ID does: "F1" as well as "combustion". -1 without one; nodes out of sight do not count.
int FindByTyping(const Tree& tree, int from, std::string_view typed);

// The node before or behind one in the order of the tree, also below a collapsed one; -1 at the ends.
int Neighbour(const Tree& tree, int node, int step);

}  // namespace merlu
