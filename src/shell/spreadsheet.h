// The menu command that writes the descriptions of operator, structures and equipment to a workbook.
#pragma once

#include "session/session.h"

namespace merlu {

// Announces the export, asks for the file and writes it: .xlsx when its name ends in that, otherwise .xls. The
// inventory is not changed. A fault is shown, and an older file of that name stays as it was.
void ExportSpreadsheet(Session& s);

}  // namespace merlu
