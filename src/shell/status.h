// What the status bar says: of the record that shows, and of the last act.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// The last thing said of an act.
void Say(Session& s, const std::string& message);

// How many findings the place has, how many of them without a comment, and whether it was checked since its last save.
// What cannot be read now stays as it was.
void UpdateStatus(Session& s);

}  // namespace merlu
