#include "command/console.h"

namespace merlu {

void Complain(Console& console, const std::string& command, const std::string& file, const std::string& why) {
  console.err << "merlu " << command << ": " << (file.empty() ? "" : file + ": ") << why << "\n";
}

}  // namespace merlu
