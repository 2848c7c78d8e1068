// Opening the database of a run.
#pragma once

#include "session/session.h"

namespace merlu {

// Opens the file at the session's path with all its cursors, and does nothing more: a file without an operator is
// opened too. A failure is shown with Retry and Cancel; false after Cancel. `repair` removes leftovers of earlier
// versions from the file; not needed for a file that this run has had open before.
bool OpenDatabaseAndCursors(Session& s, bool repair = true);

// Once per file, marked by the table QC_XREF: removes findings of equipment that does not exist, which earlier programs
// have left. Only a file of this layout is touched.
void RepairOnFirstOpen(Session& s);

}  // namespace merlu
