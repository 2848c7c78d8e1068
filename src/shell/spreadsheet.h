// The menu command that writes the descriptions of operator, structures and equipment to a workbook.
#pragma once

#include "session/session.h"

namespace merlu {

// Says what comes, asks for the file and writes it: .xlsx when its name ends so, otherwise .xls. Nothing of the
// inventory changes. A fault is told, and the file stays as far as it got, which no program takes for a whole one.
void ExportSpreadsheet(Session& s);

}  // namespace merlu
