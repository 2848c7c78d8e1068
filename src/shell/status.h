// The texts of the status bar: on the record that is shown, and on the last act.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Sets the message of the last act.
void Say(Session& s, const std::string& message);
// What stands behind the message of an act that said `before` when it began: why nothing is being kept, when that came
// out meanwhile.
std::string NewsSince(const Session& s, const std::string& before);

// How many findings there are at the place and below it, how many of them without a comment, and whether it was checked
// since its last save. Asks the store only when it has changed, or the place.
void UpdateStatus(Session& s);
// False when they could not be counted; the next act tries again.
bool IsStatusKnown(const Session& s);

}  // namespace merlu
