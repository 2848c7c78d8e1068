#include "command/out_file.h"

#include "base/fault.h"
#include "command/quiet.h"
#include "session/folders.h"
#include "store/engine.h"
#include "store/files.h"

namespace merlu {

OwnFiles OwnFilesOf(const Request& request) {
  Quiet quiet;
  return {request.words.front(), NotesFolder(quiet)};
}

void WriteOut(const Request& request, const std::function<void(const std::string& path)>& write) {
  const std::string out = request.Text("-o");
  const std::string target = TargetPath(OwnFilesOf(request), out);
  if (FileExists(target) && !request.Has("--force"))
    throw Fault(fault_number::kFileAccess, kStoreSource, "The file " + out + " exists; --force replaces it.");
  if (request.Has("--force"))
    WriteNewFile(OwnFilesOf(request), target, write);
  else
    MakeFile(OwnFilesOf(request), target, write);
}

std::uint64_t FreeBytesFor(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  return Quiet().FreeBytes(slash == std::string::npos ? "." : path.substr(0, slash + 1));
}

}  // namespace merlu
