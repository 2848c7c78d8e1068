// What a typed name of a database file becomes.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// The path for a typed name: without blanks and quotes around it, and with ".mdb" when it has no such extension. Empty,
// after a message, for an empty name or a folder.
std::string DatabaseFileName(Session& s, const std::string& typed);

// The same for a file that is to be written. For one that exists the user is asked; it stays until the new file takes
// its place. Empty when the user declined, or after a message: what TargetPath refuses.
std::string NewDatabaseFileName(Session& s, const std::string& typed);

}  // namespace merlu
