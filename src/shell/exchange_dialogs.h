// The dialogs that hand data out and take structures in.
#pragma once

#include "session/session.h"

namespace merlu {

// Makes the dialogs below, with nothing in their fields; none may be showing.
void MakeExchangeDialogs(Session& s);

// Menu commands. The first two leave the program in activity mode at the root of a fresh tree.
void ExportSurvey(Session& s);
// With the survey of that month picked.
void ExportSurveyOf(Session& s, int month);
void ExportInventory(Session& s);
void ExportStructures(Session& s);
// Goes to the root of the description tree first.
void ImportStructuresFrom(Session& s);

}  // namespace merlu
