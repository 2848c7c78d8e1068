// The ends of a run that other units of the shell need.
#pragma once

#include "session/session.h"

namespace merlu {

// Unloads every form, the last one first, and closes the database.
void EndProgram(Session& s);

// Drops the cursors and closes the database; never fails.
void CloseDatabase(Session& s);

// Closes the database, opens it again, builds the tree of the mode and selects the node that was selected, without
// clicking it. False when the user gave up: the window is then as after a cancelled start.
bool ReopenDatabase(Session& s);

// The first-run dialog. True unless the user cancelled; then the farewell is shown and the program ends.
bool ShowNewOperator(Session& s, const char* farewell);

}  // namespace merlu
