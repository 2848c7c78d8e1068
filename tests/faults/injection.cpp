#include "faults/injection.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <regex>

#include "base/fault.h"
#include "faults/faulty_files.h"
#include "faults/kill_operations.h"
#include "forms/desk.h"
#include "history/backups.h"
#include "session/act.h"

namespace merlu::test {
namespace {

constexpr int kMostBoxes = 60;  // a failing disk is reported once, not for every row

struct Kind {
  FileAct act;
  int code;
  bool lasting;
};

constexpr Kind kKinds[] = {
    {FileAct::kOpen, SQLITE_CANTOPEN, false},
    {FileAct::kOpen, SQLITE_CANTOPEN, true},
    {FileAct::kRead, SQLITE_IOERR_READ, false},
    {FileAct::kRead, SQLITE_IOERR_READ, true},
    {FileAct::kWrite, SQLITE_FULL, false},
    {FileAct::kWrite, SQLITE_FULL, true},
    {FileAct::kWrite, SQLITE_IOERR_WRITE, false},
    {FileAct::kWrite, SQLITE_IOERR_WRITE, true},
    {FileAct::kSync, SQLITE_IOERR_FSYNC, false},
    {FileAct::kSync, SQLITE_IOERR_FSYNC, true},
    {FileAct::kTruncate, SQLITE_IOERR_TRUNCATE, false},
    {FileAct::kDelete, SQLITE_IOERR_DELETE, false},
    {FileAct::kDelete, SQLITE_IOERR_DELETE, true},
    {FileAct::kLock, SQLITE_IOERR_LOCK, false},
    {FileAct::kLock, SQLITE_IOERR_LOCK, true},
    {FileAct::kLock, SQLITE_BUSY, true},
};

// Every call with MERLU_FAULT_STRIDE=1; otherwise the first ones and then ever fewer.
int NextCall(int nth) {
  static const char* const stride = std::getenv("MERLU_FAULT_STRIDE");
  if (stride != nullptr) return nth + std::max(1, std::atoi(stride));
  return nth < 3 ? nth + 1 : nth * 2;
}

std::string Described(const FaultyOperation& operation, const Kind& kind, int nth) {
  return std::string(operation.name) + ": " + FileActName(kind.act) + " " + std::to_string(nth) +
         (kind.lasting ? " and all after it" : "") + " fail with " + sqlite3_errstr(kind.code);
}

std::string AllTold(const TestRun& run) {
  std::string text;
  for (const Box& box : run.boxes) text += "\n  [" + box.text + "]";
  return text;
}

bool WasTold(const TestRun& run) {
  for (const Box& box : run.boxes)
    if (box.title == "Error" || TellsOfAFault(box.text)) return true;
  return false;
}

std::string Unsound(const std::string& path) {
  try {
    Database db;
    db.Open(path);
    return WhatIsUnsound(db);
  } catch (const Fault& fault) {
    return fault.description;
  }
}

void ExpectSound(const FaultyOperation& operation, TestRun& run, const std::string& path, bool sure) {
  EXPECT_EQ(Unsound(path), "");
  const bool done = operation.is_done(run, path);
  EXPECT_TRUE(done || !sure) << "the act is not on the disk" << AllTold(run);
  if (done) return;
  EXPECT_TRUE(WasTold(run)) << "a failure was not told" << AllTold(run);
  operation.when_failed(run);
}

void GoOn(const FaultyOperation& operation, TestRun& run, const std::string& path) {
  if (operation.is_done(run, path)) return;
  run.TakeBoxes();
  operation.again(run);
  operation.act(run);
  EXPECT_FALSE(WasTold(run)) << "going on" << AllTold(run);
  EXPECT_TRUE(operation.is_done(run, path)) << "going on did not do it" << AllTold(run);
  EXPECT_EQ(Unsound(path), "") << "after going on";
}

// When no backup can be made the user continues without one: the fault is meant for the act itself.
class GoingOnRun : public TestRun {
 public:
  Button Ask(const Box& box) override {
    if (box.text != "Go on without a backup?") return TestRun::Ask(box);
    boxes.push_back(box);
    return Button::kYes;
  }
};

class Injection {
 public:
  explicit Injection(const FaultyOperation& operation) : operation_(operation) {
    MakeInventory(TemplatePath(), made_.path("inventory.mdb"), operation.plan);
  }

  // False when the operation no longer reaches the fault.
  bool RunWith(const Kind& kind, int nth) {
    SCOPED_TRACE(Described(operation_, kind, nth));
    GoingOnRun run;
    const std::string path = run.folder.path("inventory.mdb");
    fs::copy_file(made_.path("inventory.mdb"), path);
    fs::copy_file(TemplatePath(), run.folder.path("mr.dbt"));
    run.program_folder = run.folder.path();
    run.Start(path);
    operation_.prepare(run);
    if (operation_.backed_up && run.s.db.IsOpen()) BackUp(run.s, backup_reason::kDay);
    run.TakeBoxes();
    ArmFault({kind.act, nth, kind.code, kind.lasting});
    operation_.act(run);
    const bool met = LiftFault();
    EXPECT_LE(run.boxes.size(), kMostBoxes) << AllTold(run).substr(0, 1000);
    ExpectSound(operation_, run, path, !met);
    if (met) GoOn(operation_, run, path);
    return met;
  }

 private:
  const FaultyOperation& operation_;
  TemporaryFolder made_;
};

}  // namespace

bool TellsOfAFault(const std::string& text) {
  // the number of a fault in front of its description or behind it, or one of the texts for a step that failed
  static const std::regex kNumber("^[0-9]{2,5}:? [^m]|[^0-9/:] [0-9]{2,5}$");
  if (std::regex_search(text, kNumber)) return true;
  for (const char* part : {"Error #", "rror displaying report", "errors during export", "Failed to", "Could not",
                           "Invalid Import file", "could not be deleted", "error saving the report"})
    if (text.find(part) != std::string::npos) return true;
  return false;
}

void ExpectToSurviveFaults(const FaultyOperation& operation) {
  const FaultyFiles faulty;
  Injection injection(operation);
  int runs = 0;
  for (const Kind& kind : kKinds) {
    int nth = 1;
    for (; injection.RunWith(kind, nth); nth = NextCall(nth)) {
      ++runs;
      if (testing::Test::HasFailure()) return;  // the first one is enough
    }
  }
  testing::Test::RecordProperty("runs", runs);
  std::printf("%s: %d faults met\n", operation.name, runs);
}

}  // namespace merlu::test
