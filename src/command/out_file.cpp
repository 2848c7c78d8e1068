#include "command/out_file.h"

#include "base/fault.h"
#include "store/files.h"
#include "store/new_file.h"

namespace merlu {

void WriteOut(const Request& request, const std::function<void(const std::string& path)>& write) {
  const std::string out = request.Text("-o");
  const OwnFiles own{request.words.front(), ""};
  const std::string target = TargetPath(own, out);
  if (request.Has("--force")) return WriteNewFile(own, out, write);
  if (FileExists(target))
    throw Fault(fault_number::kFileAccess, "MERLU store", "The file " + out + " exists; --force replaces it.");
  MakeFile(own, target, write);
}

}  // namespace merlu
