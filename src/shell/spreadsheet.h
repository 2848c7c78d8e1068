// The menu command that writes the descriptions of operator, structures and equipment to a workbook.
#pragma once

#include "session/session.h"

namespace merlu {

// Says what comes, asks for the file and writes it: .xlsx when its name ends so, otherwise .xls. Nothing of the
// inventory changes. After a fault, which is told, an older file of that name is as it was.
void ExportSpreadsheet(Session& s);

}  // namespace merlu
