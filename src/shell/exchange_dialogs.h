// The dialogs that hand data out and take structures in.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Copies the working database to a path that does not exist yet, and opens the copy as the session's exchange
// database. The working database is closed meanwhile and open again afterwards. False after a fault.
bool CreateExportDatabase(Session& s, const std::string& target);

// Makes the dialogs below, with nothing in their fields; none may be showing.
void MakeExchangeDialogs(Session& s);

// Menu commands. The first two leave the program in activity mode at the root of a fresh tree.
void ExportSurvey(Session& s);
void ExportInventory(Session& s);
void ExportStructures(Session& s);
// Goes to the root of the description tree first.
void ImportStructuresFrom(Session& s);

}  // namespace merlu
