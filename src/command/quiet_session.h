// A session of the command line: an inventory opened for the work of one command, without a window.
#pragma once

#include <string>

#include "command/quiet.h"
#include "session/session.h"

namespace merlu {

class QuietSession {
 public:
  Quiet quiet;
  Session s{quiet, quiet, quiet};

  // The file as it is now, in memory; nothing is ever written to it. The faults of OpenUntouched.
  void OpenCopy(const std::string& path);
  // The file itself, with its companion; kInUse when it cannot be had.
  void OpenFile(const std::string& path);
  ~QuietSession();
};

}  // namespace merlu
