// Where the program puts the files that it makes without being asked where.
#pragma once

#include <string>

#include "session/session.h"
#include "store/new_file.h"

namespace merlu {

// Folder of the default inventory: beside the program, or the user's own data folder (made when missing) where the
// program is installed or nothing can be written beside it. Ends in a separator.
std::string OwnFilesFolder(Session& s);

// Where the notes of unfinished files are; empty when the user has no folder for data.
std::string NotesFolder(Host& host);
// What writers of files have to know of this run.
OwnFiles OwnFilesOf(Session& s);

}  // namespace merlu
