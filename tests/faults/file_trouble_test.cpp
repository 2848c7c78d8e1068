// What happens to the file from outside while the program has it open.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/mount.h>

#include <fstream>

#include "faults/injection.h"
#include "history/backups.h"
#include "shell/program_end.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

class FileTrouble : public testing::Test {
 protected:
  void SetUp() override {
    run.StartWith("FLA", "F1");
    path = run.folder.path("inventory.mdb");
  }

  void Edit() {
    run.Click("cmdEdit");
    run.Set("txtFLA_ConcH2S", "41");
  }

  bool IsSaved() { return ToInteger(RawValue(path, "SELECT CONC_H2S FROM ED_FLA")) == 41; }

  TestRun run;
  std::string path;
};

TEST_F(FileTrouble, ASaveIntoAFileThatWasDeletedTellsItAndKeepsTheEdit) {
  Edit();
  fs::remove(path);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3024 The database file has been moved or deleted."});
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "41");
}

TEST_F(FileTrouble, ASaveIntoAFileThatWasMovedWorksAgainOnceItIsBack) {
  Edit();
  fs::rename(path, path + ".away");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3024 The database file has been moved or deleted."});
  fs::rename(path + ".away", path);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(IsSaved());
}

TEST_F(FileTrouble, ADiskThatWasTakenOutGetsNoFolderInItsPlace) {
  CloseDatabase(run.s);
  const std::string stick = run.folder.path("stick");
  fs::create_directory(stick);
  fs::copy_file(path, stick + "/inventory.mdb");
  run.Start(stick + "/inventory.mdb");
  run.GoTo("FLA", "F1", Mode::kDesc);
  run.TakeBoxes();
  Edit();
  fs::rename(stick, stick + " away");
  run.clock.day += 1;
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3024 The database file has been moved or deleted."}) << "nothing about a backup";
  EXPECT_FALSE(fs::exists(stick));
  fs::rename(stick + " away", stick);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(std::distance(fs::directory_iterator(BackupFolder(run.s.path)), {}), 1);
  run.Click("cmdCANCEL");
  fs::rename(stick, stick + " away");
  run.dialogs.push_back([&](Form&) { run.Click("cmdBAK_Make"); });
  run.Click("mnuFBackups");
  EXPECT_EQ(run.TakeBoxes(), Texts{"The database file has been moved or deleted. 3024"});
  EXPECT_FALSE(fs::exists(stick));
}

TEST_F(FileTrouble, AFileThatWasReplacedUnderTheProgramIsNotWrittenInto) {
  Edit();
  fs::rename(path, path + ".away");
  fs::copy_file(path + ".away", path);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3024 The database file has been moved or deleted."});
  EXPECT_FALSE(IsSaved());
}

TEST_F(FileTrouble, AnotherProgramsLockDelaysTheSaveAndLosesNothing) {
  Edit();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  for (const char* lock : {"BEGIN EXCLUSIVE", "BEGIN IMMEDIATE", "BEGIN; SELECT COUNT(*) FROM SYS_CONFIG"}) {
    ASSERT_EQ(sqlite3_exec(other, lock, nullptr, nullptr, nullptr), SQLITE_OK);
    run.Click("cmdSaveEdits");
    EXPECT_EQ(run.TakeBoxes(), Texts{"3261 The database is locked by another program."}) << lock;
    EXPECT_TRUE(run.s.editing);
    EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "41");
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  sqlite3_close(other);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(IsSaved());
}

TEST_F(FileTrouble, TheFirstSaveOfADayIntoALockedFileAsksNothingAboutABackup) {
  Edit();
  run.clock.day += 1;
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3261 The database is locked by another program."});
  EXPECT_TRUE(run.s.editing);
  sqlite3_close(other);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(IsSaved());
  EXPECT_EQ(std::distance(fs::directory_iterator(BackupFolder(path)), {}), 2) << "one of each day";
}

// Another program that has written a part of its changes into the file when an export wants to copy it, and takes
// them back while the user is asked whether to try again.
class InterruptedRun : public TestRun {
 public:
  Button Ask(const Box& box) override {
    TestRun::Ask(box);
    if (box.buttons.front() != Button::kRetry) return box.buttons.front();
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    return Button::kRetry;
  }
  sqlite3* other = nullptr;
};

TEST(FileInUse, IsNotExportedInTheMiddleOfAnotherProgramsChanges) {
  InterruptedRun run;
  run.StartWith("FLA", "F1");
  const std::string path = run.folder.path("inventory.mdb"), target = run.folder.path("all.mdb");
  run.Start(path);
  run.TakeBoxes();
  run.dialogs.push_back([&](Form&) {
    ASSERT_EQ(sqlite3_open(path.c_str(), &run.other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(run.other,
                           "PRAGMA cache_size=1; BEGIN EXCLUSIVE; CREATE TABLE half (x); WITH RECURSIVE n(i) AS "
                           "(SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000) INSERT INTO half SELECT "
                           "hex(zeroblob(200)) FROM n",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    run.Set("txtExportFilename", target);
    run.Click("cmdOK");
  });
  run.Click("mnuFExportInventory");
  sqlite3_close(run.other);
  // the file is opened again behind the dialog, while the other program still holds it
  EXPECT_EQ(
      run.TakeBoxes(),
      (Texts{"Failed to create export database",
             "Database may be in use.  Please close the database.\n\nError # 3356 was generated by MERLU store\n\n"
             "The database is locked by another program."}));
  EXPECT_FALSE(fs::exists(target));
  EXPECT_TRUE(run.s.db.IsOpen());
}

TEST_F(FileTrouble, AFileThatBecameReadOnlyIsToldAtTheNextOpen) {
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  run.Start(path);
  const Texts boxes = run.TakeBoxes();
  fs::permissions(path, fs::perms::owner_all);
  ASSERT_FALSE(boxes.empty());
  EXPECT_NE(boxes.back().find("Error # 3051"), std::string::npos) << boxes.back();
  EXPECT_FALSE(run.s.db.IsOpen());
}

// A file system of a few KB, where the machine lets one be made.
class SmallDisk {
 public:
  SmallDisk(const std::string& at, int kilobytes) : at_(at) {
    fs::create_directory(at);
    const std::string size = "size=" + std::to_string(kilobytes) + "k";
    mounted_ = ::mount("tmpfs", at.c_str(), "tmpfs", 0, size.c_str()) == 0;
  }
  ~SmallDisk() {
    if (mounted_) ::umount2(at_.c_str(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  bool IsThere() const { return mounted_; }

 private:
  std::string at_;
  bool mounted_;
};

TEST_F(FileTrouble, AnExportToAFullDiskTellsAndLeavesNoHalfFile) {
  const SmallDisk disk(run.folder.path("small"), 256);
  if (!disk.IsThere()) GTEST_SKIP() << "no file system can be mounted here";
  run.Start(path);
  run.TakeBoxes();
  const std::string target = run.folder.path("small/all.mdb");
  run.dialogs.push_back([&](Form&) {
    run.Set("txtExportFilename", target);
    run.Click("cmdOK");
  });
  run.Click("mnuFExportInventory");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Failed to create export database"});
  EXPECT_TRUE(fs::is_empty(run.folder.path("small")));
  EXPECT_TRUE(run.s.db.IsOpen());
}

TEST_F(FileTrouble, AReportOnAFullDiskTellsAndLeavesNoHalfFile) {
  const SmallDisk disk(run.folder.path("small"), 256);
  if (!disk.IsThere()) GTEST_SKIP() << "no file system can be mounted here";
  // what is left is less than any report
  std::ofstream(run.folder.path("small/filler")) << std::string(250 * 1024, '.');
  run.Start(path);
  run.TakeBoxes();
  run.answers = {Button::kYes};
  run.files = {run.folder.path("small/summary.pdf")};
  run.Click("frmInvQCPrint");
  const Texts boxes = run.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_TRUE(boxes.back().starts_with("61 Cannot write the file")) << boxes.back();
  EXPECT_EQ(std::distance(fs::directory_iterator(run.folder.path("small")), {}), 1) << "the filler alone";
}

TEST_F(FileTrouble, AWorkingFileOnAFullDiskKeepsWhatWasSavedAndTheEdit) {
  const SmallDisk disk(run.folder.path("small"), 1024);
  if (!disk.IsThere()) GTEST_SKIP() << "no file system can be mounted here";
  run.s.db.Close();
  fs::copy_file(path, run.folder.path("small/inventory.mdb"));
  path = run.folder.path("small/inventory.mdb");
  run.Start(path);
  run.GoTo("FLA", "F1", Mode::kDesc);
  run.TakeBoxes();
  Edit();
  const std::string filler = run.folder.path("small/filler");
  std::ofstream(filler) << std::string(1024 * 1024, '.');
  run.answers = {Button::kYes};
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(),
            (Texts{"No backup could be made: There is not enough room on the disk for the database.",
                   "Go on without a backup?", "3026 There is not enough room on the disk for the database."}));
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "41");
  fs::remove(filler);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(IsSaved());
}

}  // namespace
}  // namespace merlu::test
