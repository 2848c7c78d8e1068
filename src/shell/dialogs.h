// What the dialogs of the shell do when they are opened and when OK is pressed.
#pragma once

#include "session/session.h"

namespace merlu {

void OpenNewStructure(Session& s);
void OpenNewEquipment(Session& s);
// Asks, and deletes the current structure or equipment.
void DeleteCurrent(Session& s);
// Adds the next month and rebuilds the tree.
void AddNextMonth(Session& s);
// Makes the dialogs above and that of the first run, with nothing in their fields; none may be showing.
void MakeDialogs(Session& s);
// The About box; the splash of the start is the same form, not as a dialog.
void OpenAbout(Session& s);
void ShowSplash(Session& s);
void CloseSplash(Session& s);

}  // namespace merlu
