// Copies of a small inventory with bytes changed, and the program working with them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/test_run.h"

namespace merlu::test {

class MutatedFile {
 public:
  MutatedFile();

  // Makes a fresh copy and changes it: eight bytes a change - page, place in the page, count, three values.
  void Mutate(const std::vector<std::uint8_t>& changes);

  // Starts the program on it and uses what shows: nodes, edits, saves, a run of QC, a month.
  void UseAsWorkingFile();
  // Imports all its structures into a sound inventory; false when that inventory is not sound afterwards.
  bool ImportLeavesASoundFile();

 private:
  TemporaryFolder folder_;
  std::string base_;  // the bytes of the unchanged file
  const std::string sound_, path_;
};

}  // namespace merlu::test
