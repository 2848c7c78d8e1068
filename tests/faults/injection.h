// Plays one operation repeatedly on fresh files, each time with another call of the file layer failing, until the
// operation no longer reaches the fault; and checks the messages and the files.
#pragma once

#include <functional>
#include <string>

#include "inventory.h"
#include "support/test_run.h"

namespace merlu::test {

struct FaultyOperation {
  const char* name;
  InventoryPlan plan;
  // From the start of the program to the moment before the act.
  std::function<void(TestRun&)> prepare;
  std::function<void(TestRun&)> act;
  // Whether the act's outcome is on the disk, asked of the file at that path by a connection of its own.
  std::function<bool(TestRun&, const std::string& path)> is_done;
  // What must hold on the screen when the act was not done.
  std::function<void(TestRun&)> when_failed = [](TestRun&) {};
  // Makes the act possible once more after a failure; the default prepares anew where the user stands.
  std::function<void(TestRun&)> again = [](TestRun&) {};
  // Whether the backup of the day is there, so that the act begins with its own work.
  bool backed_up = true;
};

// Runs it through every kind of fault; fails the running test with what does not hold.
void ExpectToSurviveFaults(const FaultyOperation& operation);

// The box of a fault contains its number; other boxes show results.
bool TellsOfAFault(const std::string& text);

}  // namespace merlu::test
