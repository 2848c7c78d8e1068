// An edit, from the first click to the database.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace merlu {

void BeginEdit(Session& s);  // cmdEdit
void SaveEdits(Session& s);  // cmdSaveEdits: saves and stays in the edit
void SaveExit(Session& s);   // cmdSaveExit: runs QC, saves and ends the edit
// The same without a box for the findings; returns what the sheet would have shown in boxes.
std::vector<std::string> SaveExitWithoutBox(Session& s);
void CancelEdit(Session& s);  // cmdCANCEL: drops what was not saved
void RunQCHere(Session& s);   // at the current location

}  // namespace merlu
