// Looks at what the program wrote with programs that did not.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace merlu::test {

struct Finished {
  int status = -1;
  std::string output;
};

inline Finished RunCommand(const std::string& command) {
  Finished finished;
  FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return finished;
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe))
    finished.output.append(part.data(), count);
  finished.status = ::pclose(pipe);
  return finished;
}

// Debian's own interpreter: the readers are installed for it.
inline Finished Python(const std::string& words) {
  return RunCommand("/usr/bin/python3 " + words);
}

// Every cell of the workbook against the database; the reader's report.
inline Finished CheckWorkbook(const std::string& database, const std::string& workbook) {
  return Python(std::string(MERLU_SOURCE_FOLDER) + "/tests/exchange/check_workbook.py '" + database + "' '" + workbook +
                "'");
}

}  // namespace merlu::test
