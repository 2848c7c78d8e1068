// Inventories for the windows, made by the example scripts.
#pragma once

#include <fstream>
#include <sstream>
#include <string>

#include "script/player.h"
#include "support/test_run.h"

namespace merlu::test {

// Plays the lines of a script, and leaves the database that they made.
inline void Prepare(const TemporaryFolder& folder, const std::string& lines) {
  std::istringstream in("start " + folder.path("inventory.mdb") + "\n" + lines);
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = folder.path("prepare.ini");
  options.clock = DateTime{2017, 3, 5, 14, 2, 0};
  if (Player(in, out, options).Run() != 0) qWarning("%s", out.str().c_str());
}

inline std::string ReadExample(const char* name) {
  std::ifstream in(std::string(MERLU_SOURCE_FOLDER) + "/examples/" + name);
  std::stringstream text;
  text << in.rdbuf();
  std::string lines = text.str();
  const std::string start = "start inventory.mdb\n";
  return lines.erase(lines.find(start), start.size());
}

}  // namespace merlu::test
