// What a typed name of a database file becomes.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// The path that a typed name stands for: without blanks and quotes around it, with ".mdb" when it has no
// such extension. Empty after a message: a name that is empty, or that is only a folder.
std::string DatabaseFileName(Session& s, const std::string& typed);

// The same for a file that is to be written. A file that exists is deleted after a question; neither the
// working database nor the file that exports are compacted through may be overwritten. Empty when the user
// declined, or after a message.
std::string NewDatabaseFileName(Session& s, const std::string& typed);

// Where an export is compacted through: beside the program, or, when nothing can be written there, with the
// user's own data.
std::string CompactionFile(Session& s);

}  // namespace merlu
