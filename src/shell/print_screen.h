// Printing the screen.
#pragma once

#include "session/session.h"

namespace merlu {

// Prints the form that shows the current sheet: the equipment's own, above that the main window.
void PrintScreen(Session& s);

}  // namespace merlu
