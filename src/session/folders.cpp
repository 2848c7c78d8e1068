#include "session/folders.h"

#include "store/files.h"

namespace merlu {

std::string OwnFilesFolder(Session& s) {
  const std::string program = s.host.ProgramFolder();
  // an installation belongs to the system, also where the user happens to be able to write
  if (!s.host.IsInstalled() && CanWriteFolder(program)) return WithSeparator(program);
  const std::string own = s.host.DataFolder();
  MakeFolder(own);
  return WithSeparator(own);
}

std::string NotesFolder(Host& host) {
  const std::string folder = host.DataFolder();
  return folder.empty() ? "" : WithSeparator(folder) + "unfinished";
}

OwnFiles OwnFilesOf(Session& s) {
  return {s.path, NotesFolder(s.host)};
}

}  // namespace merlu
