// What a typed name of a database file becomes.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// The path that a typed name stands for: without blanks and quotes around it, with ".mdb" when it has no
// such extension. Empty after a message: a name that is empty, or that is only a folder.
std::string DatabaseFileName(Session& s, const std::string& typed);

// The same for a file that is to be written. For one that exists the user is asked; it stays until the new file takes
// its place. Empty when the user declined, or after a message: what TargetPath refuses.
std::string NewDatabaseFileName(Session& s, const std::string& typed);

}  // namespace merlu
