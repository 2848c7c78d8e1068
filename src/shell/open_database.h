// Opening the database of a run.
#pragma once

#include "session/session.h"

namespace merlu {

// Opens the file at the session's path with all its cursors. A file of an operator that is not known yet
// asks for it first. A failure is told with Retry and Cancel; false after Cancel, or when the first run was
// cancelled.
bool OpenDatabaseAndCursors(Session& s);

// Once per file, marked by the table QC_XREF: removes the findings of equipment that does not exist, which
// earlier programs left behind. Only a file of this layout is touched.
void RepairOnFirstOpen(Session& s);

}  // namespace merlu
