// Inventories in places and forms that the program has not made itself: a write-ahead log, a folder or a file that
// cannot be written, names that are no text.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sqlite3.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

#include "forms/list_model.h"
#include "history/backups.h"
#include "history/companion.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

bool IsToldOf(const Texts& boxes, const std::string& part) {
  return std::any_of(boxes.begin(), boxes.end(),
                     [&part](const std::string& box) { return box.find(part) != std::string::npos; });
}

// A connection of another program.
class Other {
 public:
  explicit Other(const std::string& path) { sqlite3_open(path.c_str(), &db_); }
  ~Other() { sqlite3_close(db_); }
  Other(const Other&) = delete;
  Other& operator=(const Other&) = delete;

  void Run(const char* sql) { EXPECT_EQ(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql; }
  // Ends as if it had been killed: what is in the log stays there.
  void LeaveLog() { sqlite3_db_config(db_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr); }

 private:
  sqlite3* db_ = nullptr;
};

class StrangeFile : public testing::Test {
 protected:
  StrangeFile() {
    run.StartWith("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Keep({{"txtFLA_HrsOperated", "100"}});
    path = run.s.path;
    key = run.Key("FLA", "F1", 1);
    run.TakeBoxes();
  }
  std::string Mode() { return NullToEmpty(RawValue(path, "PRAGMA journal_mode")); }
  double Hours(const std::string& file) { return ToNumber(RawValue(file, "SELECT OP_HR FROM EA_FLA")); }

  TestRun run;
  std::string path, key;
};

TEST_F(StrangeFile, with_a_write_ahead_log_comes_back_to_one_file_with_all_that_the_log_holds) {
  CloseDatabase(run.s);
  {
    Other other(path);
    other.Run("PRAGMA journal_mode=WAL; UPDATE EA_FLA SET OP_HR=200");
    other.LeaveLog();
  }
  ASSERT_TRUE(fs::exists(path + "-wal"));
  run.Start(path);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_FALSE(fs::exists(path + "-wal"));
  EXPECT_EQ(Mode(), "delete");
  run.Select(key);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "200");
  run.Keep({{"txtFLA_VolFlared", "5"}});
  const std::string target = run.folder.path("out.mdb");
  run.dialogs.push_back([&](Form&) { run.Set("txtExportFilename", target), run.Click("cmdOK"); });
  run.Click("mnuFExportInventory");
  EXPECT_EQ(Hours(target), 200);
}

TEST_F(StrangeFile, with_a_write_ahead_log_that_somebody_uses_is_refused_in_words_until_it_is_free) {
  CloseDatabase(run.s);
  {
    Other other(path);
    other.Run("PRAGMA journal_mode=WAL; UPDATE EA_FLA SET OP_HR=200");
    run.answers = {Button::kCancel};
    run.Start(path);
    EXPECT_TRUE(IsToldOf(run.TakeBoxes(),
                         "Another program has the database open and keeps what it writes in a file beside it."));
    EXPECT_FALSE(run.s.db.IsOpen());
    EXPECT_TRUE(fs::exists(path + "-wal"));
  }
  run.Start(path);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(Mode(), "delete");
  EXPECT_EQ(Hours(path), 200);
}

TEST_F(StrangeFile, whose_history_has_a_write_ahead_log_is_written_with_its_history_again) {
  CloseDatabase(run.s);
  {
    Other other(path + kCompanionExtension);
    other.Run("PRAGMA journal_mode=WAL; UPDATE step SET who='somebody'");
    other.LeaveLog();
  }
  run.Start(path);
  EXPECT_EQ(run.s.companion.why_not(), "");
  EXPECT_FALSE(fs::exists(path + ".history-wal"));
  EXPECT_EQ(run.At("mnuEUndo").caption, "Undo Save");
  run.Click("mnuEUndo");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(IsNull(RawValue(path, "SELECT OP_HR FROM EA_FLA")));
}

// Marked so that nobody can change it, where the machine lets that be done.
class Frozen {
 public:
  explicit Frozen(const std::string& path) : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    frozen_ = file_ >= 0 && ::ioctl(file_, FS_IOC_GETFLAGS, &flags_) == 0 && Set(flags_ | FS_IMMUTABLE_FL);
  }
  ~Frozen() {
    if (frozen_) Set(flags_);
    if (file_ >= 0) ::close(file_);
  }
  Frozen(const Frozen&) = delete;
  Frozen& operator=(const Frozen&) = delete;
  bool IsFrozen() const { return frozen_; }

 private:
  bool Set(int flags) const { return ::ioctl(file_, FS_IOC_SETFLAGS, &flags) == 0; }
  int file_;
  int flags_ = 0;
  bool frozen_ = false;
};

TEST_F(StrangeFile, in_a_folder_that_cannot_be_written_can_be_looked_at) {
  CloseDatabase(run.s);
  const Frozen folder(run.folder.path());
  if (!folder.IsFrozen()) GTEST_SKIP() << "no folder can be protected here";
  run.Start(path);
  EXPECT_TRUE(IsToldOf(run.TakeBoxes(), "The folder of the inventory cannot be written to:"));
  EXPECT_EQ(run.s.message,
            "No history is being kept: inventory.mdb.history lies in a folder that cannot be written to.");
  EXPECT_EQ(run.At("mnuEUndo").caption, "Undo");
  run.Select(key);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "100");
  run.dialogs.push_back([](Form& form) { EXPECT_EQ(form.At("lvwHIS_Steps").model->RowCount(), 0); });
  run.Click("mnuRHistory");
  run.dialogs.push_back([](Form& form) { EXPECT_EQ(form.At("lvwBAK_List").model->RowCount(), 1); });
  run.Click("mnuFBackups");
  run.Click("mnuRFindings");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "300");
  run.Click("cmdSaveEdits");
  const Texts boxes = run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(IsToldOf(boxes, "The folder of the database cannot be written to")) << boxes[0];
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "300");
  EXPECT_EQ(Hours(path), 100);
}

TEST_F(StrangeFile, that_is_immutable_is_refused_as_read_only) {
  CloseDatabase(run.s);
  const Frozen file(path);
  if (!file.IsFrozen()) GTEST_SKIP() << "no file can be protected here";
  run.answers = {Button::kCancel};
  run.Start(path);
  EXPECT_TRUE(IsToldOf(run.TakeBoxes(), "The database file is read-only."));
  EXPECT_FALSE(run.s.db.IsOpen());
}

TEST_F(StrangeFile, that_is_made_immutable_meanwhile_loses_nothing_that_was_typed) {
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "300");
  {
    const Frozen file(path);
    if (!file.IsFrozen()) GTEST_SKIP() << "no file can be protected here";
    run.Click("cmdSaveEdits");
  }
  // a file that is open already can still be written; either way nothing is lost silently
  const Texts boxes = run.TakeBoxes();
  if (Hours(path) != 300) {
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].find("written"), std::string::npos) << boxes[0];
    EXPECT_TRUE(run.s.editing);
    EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "300");
  }
}

TEST_F(StrangeFile, can_have_a_name_that_is_no_text) {
  CloseDatabase(run.s);
  const std::string odd = run.folder.path("odd\xff\xfe name.mdb"), target = run.folder.path("out\xc3.mdb");
  fs::copy_file(path, odd);
  run.Start(odd);
  run.Select(key);
  run.Keep({{"txtFLA_HrsOperated", "300"}});
  EXPECT_EQ(Hours(odd), 300);
  EXPECT_TRUE(fs::exists(odd + kCompanionExtension));
  EXPECT_EQ(Backups(odd).size(), 1U);
  run.Click("mnuEUndo");
  EXPECT_EQ(Hours(odd), 100);
  run.dialogs.push_back([&](Form&) { run.Set("txtExportFilename", target), run.Click("cmdOK"); });
  run.Click("mnuFExportInventory");
  EXPECT_EQ(Hours(target), 100);
  run.files = {run.folder.path("list\xff.csv")};
  run.dialogs.push_back([&](Form&) { run.Click("cmdHIS_Export"); });
  run.Click("mnuRHistory");
  EXPECT_TRUE(fs::exists(run.folder.path("list\xff.csv")));
  for (const Box& box : run.boxes) EXPECT_EQ(box.text.find("Cannot"), std::string::npos) << box.text;
}

}  // namespace
}  // namespace merlu::test
