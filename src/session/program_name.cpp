#include "session/program_name.h"

namespace merlu {

std::string ProgramName() {
  return "MERLU-2017 " MERLU_VERSION;
}

}  // namespace merlu
