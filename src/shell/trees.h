// Building the navigation tree of each mode, and moving in it.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Rebuild the tree of activity, or of descriptions, from the tables and select a node: the root, or, after a change of
// mode, the node that was selected. A fault in the first is shown under the title "Error"; the second ends silently,
// unless it has no room for all nodes: this is shown, and the build ends there.
void RefreshTree(Session& s);
void RefreshDescTree(Session& s);
// Rebuilds the tree of the mode and selects the node that was selected, without clicking it.
void RebuildTree(Session& s);

// Whether the trees have room for one more structure and its months; otherwise a Fault (kSubscript).
void RequireRoomForStructure(Session& s);

// Remembers every node's expanded state by its index, and puts it back while the nodes are the same.
void SaveTreeExpansion(Session& s);
void RestoreTreeExpansion(Session& s);

// Finds the node of the current location again, expands what leads to it, and clicks it. False when there is none.
bool ReselectLocation(Session& s);
// Expands the first root, selects and clicks it. Nothing in an empty tree.
void SelectRoot(Session& s);

// Adds a node under its parent, sorts, and selects and clicks it. Faults are passed on.
void AddAndSelect(Session& s, const std::string& parent_key, const std::string& key, const std::string& text);

std::string SurveyText(int year, int month);

}  // namespace merlu
