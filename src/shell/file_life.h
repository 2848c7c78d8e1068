// Choosing another database, and making an empty one.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Makes the file the one that later starts open. False, after a message and without any change, for a file of the
// earlier version.
bool TakeDatabase(Session& s, const std::string& path);

// Asks for a database file and restarts the program on it. A file of the earlier version is refused, and
// nothing changes.
void LocateDatabase(Session& s);
// The question alone: true when the next start leads to the file that was chosen.
bool ChooseDatabase(Session& s);
// Restarts the program on the file, in the same way.
void OpenDatabaseFile(Session& s, const std::string& path);

// Copies the template into a folder of the user's choice. The open database stays open.
void CreateNewDatabase(Session& s);

}  // namespace merlu
