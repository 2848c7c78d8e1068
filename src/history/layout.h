// The tables of the companion.
#pragma once

#include <vector>

#include "store/database.h"

namespace merlu {

// States of a step: done; undone; the mark of a restored backup, which ends undo; undone, and then superseded by a
// newer step, so that it cannot be redone.
namespace step_state {
inline constexpr int kDone = 0, kUndone = 1, kEndsUndo = 2, kEnded = 3;
}

void MakeLayout(Database& db);
// Whether the attached file holds these tables and nothing else.
bool HasLayout(Database& db);

// The tables whose rows belong to a step as the inventory's do: an undo takes them back too.
std::vector<RecordedTable> RecordedCompanionTables();

}  // namespace merlu
