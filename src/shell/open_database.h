// Opening the database of a run.
#pragma once

#include "session/session.h"

namespace merlu {

// Opens the file at the session's path with all its cursors, and nothing more: a file without an operator is open,
// too. A failure is told with Retry and Cancel; false after Cancel. `repair`: of what an earlier version left in the
// file; one that was open in this run has it behind it.
bool OpenDatabaseAndCursors(Session& s, bool repair = true);

// Once per file, marked by the table QC_XREF: removes the findings of equipment that does not exist, which
// earlier programs left behind. Only a file of this layout is touched.
void RepairOnFirstOpen(Session& s);

}  // namespace merlu
