// The commands of the main window: whether each is shown, enabled and checked, as one function of the user's place and
// of what is being done. Nothing else sets these flags.
#pragma once

#include "session/session.h"

namespace merlu {

// Brings all of them to what holds now. Without an inventory those that need one are disabled, and the others stay.
void UpdateCommands(Session& s);

}  // namespace merlu
