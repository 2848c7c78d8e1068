// The forms beside the sheet: each is shown and hidden by its menu command, which is checked while it shows.
#pragma once

#include "session/session.h"

namespace merlu {

// Shows the dock, or hides it, and keeps that for the next start.
void ShowDock(Session& s, Form& dock, bool show);
// What its menu command does.
void ToggleDock(Session& s, Form& dock);
// What a dock shows besides its rows (a count, the items of a list) is brought up to date by this event of its own
// label, which every front end raises after each act. A dock that was shown in the act is read then, and its label says
// so until it is.
inline constexpr Event kRefreshDock = Event::kMoved;
inline constexpr const char* kNotReadYet = "Reading...";
void RefreshDocks(Session& s);
// Checks the menu commands of the docks that show and of no others.
void CheckDockCommands(Session& s);
// Gives the commands of the docks that showed when the program ended last; they make and show them.
void ReopenDocks(Session& s);

}  // namespace merlu
