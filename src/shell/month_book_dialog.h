// The month workbook: made for the month that the tree shows, and read again.
#pragma once

#include "session/session.h"

namespace merlu {

// Menu commands.
void MakeWorkbookOfMonth(Session& s);
void ReadWorkbookOfMonth(Session& s);

// Makes the dialog that shows what a workbook would change, with nothing in it.
void MakeReadPlanDialog(Session& s);

}  // namespace merlu
