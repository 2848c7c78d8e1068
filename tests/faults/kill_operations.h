// What the kill harness interrupts: scripts that a user might play, and what must hold of the files whenever the
// program dies in the middle of one.
#pragma once

#include <string>
#include <vector>

#include "faults/inventory_checks.h"
#include "store/database.h"

namespace merlu::test {

// The files of one play, in a folder of its own.
struct KillFiles {
  std::string folder;
  std::string work() const { return folder + "/inventory.mdb"; }
  std::string other() const { return folder + "/other.mdb"; }    // the file that an import reads
  std::string target() const { return folder + "/target.mdb"; }  // the file that an export writes
  std::string older() const { return folder + "/older.mdb"; }    // a copy of what is under that name before, if any
  std::string report() const { return folder + "/summary.pdf"; }
};

struct KillStep {
  std::string line;
  int act = 0;  // counts the acts whose outcome is checked; 0: not one of them
};

struct KillScript {
  std::vector<KillStep> opening, body;  // the kill falls into the body
};

struct KillOperation {
  const char* name;
  void (*make)(const KillFiles& files);  // the files before the play
  // The script for the working database in its present state.
  KillScript (*script)(const KillFiles& files, Database& db);
  // What is to be kept for the check, read before the play.
  std::string (*before)(const KillFiles& files, Database& db);
  // What is wrong after acts up to `done` were answered with ok; empty when nothing is. The act after `done` may
  // or may not have been carried through.
  std::string (*check)(const KillFiles& files, Database& db, const std::string& before, int done);
  bool never_opened = false;  // by the program, before the play
  bool takes_long = false;    // played when it is asked for by its name
};

const std::vector<KillOperation>& KillOperations();
// Those of them that read or write another file: exports and imports, also of 16 MB.
std::vector<KillOperation> ExchangeKillOperations();
// Those of them that take both files along: undo and redo, the grid, a restored backup.
std::vector<KillOperation> HistoryKillOperations();

}  // namespace merlu::test
