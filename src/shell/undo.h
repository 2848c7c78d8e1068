// Undo and redo of the acts of a user.
#pragma once

#include <optional>
#include <string>

#include "session/session.h"

namespace merlu {

void UndoLast(Session& s);
void RedoLast(Session& s);
// Undoes this step and all newer ones. False, after a message, when a row has been changed since.
bool UndoBackTo(Session& s, const HistoryStep& step);

// Rebuilds the tree and shows the present place again; the operator when that place no longer exists.
void ShowPlaceAgain(Session& s, const std::string& packed_location);

}  // namespace merlu
