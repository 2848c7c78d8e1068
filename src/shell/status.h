// What the status bar says: of the record that shows, and of the last act.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// The last thing said of an act.
void Say(Session& s, const std::string& message);

// How many findings there are at the place and below it, how many of them without a comment, and whether it was checked
// since its last save. Asks the store only when it has changed, or the place.
void UpdateStatus(Session& s);
// False when they could not be counted; the next act tries again.
bool IsStatusKnown(const Session& s);

}  // namespace merlu
