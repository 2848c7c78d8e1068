// Undo and redo of the acts of a user.
#pragma once

#include <optional>
#include <string>

#include "session/session.h"

namespace merlu {

void UndoLast(Session& s);
void RedoLast(Session& s);
// Takes this step and all newer ones back. False, after a message, when a row stands in the way.
bool UndoBackTo(Session& s, const HistoryStep& step);

// The tree anew, and the place with what shows there; the operator when the place is gone.
void ShowPlaceAgain(Session& s, const std::string& packed_location);

}  // namespace merlu
