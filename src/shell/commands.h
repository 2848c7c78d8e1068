// What the commands of the main window are: shown, enabled, called. One function of where the user stands and what he
// is doing; nothing else sets them.
#pragma once

#include "session/session.h"

namespace merlu {

// Brings all of them to what holds now. Nothing changes while no inventory is open.
void UpdateCommands(Session& s);

}  // namespace merlu
