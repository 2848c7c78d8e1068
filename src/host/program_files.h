// Where the program's own files lie, and where the user's data belong.
#pragma once

#include <string>

namespace merlu {

struct ProgramFolders {
  std::string folder;      // with the template, the help and the icons
  bool installed = false;  // the share folder of an installation; otherwise the program's own folder
};

// Looks for the template beside the executable in that folder first, so that a build can be run in place, then in the
// share folder of an installation. Without a template anywhere it is the executable's folder.
ProgramFolders FindProgramFiles(const std::string& executable_folder);

// Those of this program.
ProgramFolders ProgramFiles();
std::string UserDataFolder();

}  // namespace merlu
