// Choosing another database, and making an empty one.
#pragma once

#include "session/session.h"

namespace merlu {

// Asks for a database file and restarts the program on it. A file of the earlier version is refused, and
// nothing changes.
void LocateDatabase(Session& s);

// Copies the template into a folder of the user's choice. The open database stays open.
void CreateNewDatabase(Session& s);

}  // namespace merlu
