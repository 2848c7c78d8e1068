// A tampered history file beside an inventory: bytes changed anywhere, or steps and drafts that no program has written.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/test_run.h"

namespace merlu::test {

class HostileCompanion {
 public:
  HostileCompanion();

  // Eight bytes a change - page, place in the page, count, three values - of the file itself.
  void ChangeBytes(const std::vector<std::uint8_t>& changes);
  // The same of the newest step's rows (place in two bytes, count, values), its mark aside.
  void ChangeStep(const std::vector<std::uint8_t>& changes);
  // A draft with this location, and this text typed into the control.
  void PutDraft(const std::string& at, const std::string& control, const std::string& text);

  // Starts the program, takes up the draft, looks through the history, undoes and redoes, saves. False when the
  // inventory is not sound afterwards.
  bool UseLeavesASoundFile();
  // Reads all of the history, undoes and redoes, without a program around it: a fraction of the time.
  bool ReadingLeavesASoundFile();

 private:
  void Fresh();

  TemporaryFolder folder_;
  const std::string path_;
  std::string inventory_, companion_;  // the bytes of both files, unchanged
};

}  // namespace merlu::test
