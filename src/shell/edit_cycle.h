// An edit, from the first click to the database.
#pragma once

#include "session/session.h"

namespace merlu {

void BeginEdit(Session& s);           // cmdEdit
void SaveEdits(Session& s);           // cmdSaveEdits: saves and stays in the edit
void SaveExit(Session& s);            // cmdSaveExit: runs QC, saves and ends the edit
void SaveExitWithoutBox(Session& s);  // the same, with the number of findings told elsewhere
void CancelEdit(Session& s);          // cmdCANCEL: drops what was not saved
void RunQCHere(Session& s);           // at the current location

}  // namespace merlu
