#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <thread>

#include "base/fault.h"
#include "command/commands.h"
#include "history/backups.h"
#include "session/act.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

TEST(BackupCommand, makes_a_backup_while_a_window_has_the_file_open_and_tells_its_name) {
  TestRun run;
  run.StartWithStructure();
  std::ostringstream out, err;
  Console console{out, err};
  EXPECT_EQ(RunCommand(*FindCommand("backup"), {run.s.path}, console), Status::kWell) << err.str();
  const auto backups = Backups(run.s.path);
  ASSERT_FALSE(backups.empty());
  EXPECT_EQ(out.str(), backups[0].path + "\n");
  EXPECT_EQ(backups[0].why, "by hand");
  EXPECT_EQ(RawValue(backups[0].path, "SELECT COUNT(*) FROM PD_PLATFORM_DESC"), Value(std::int64_t{1}));
}

// Copies of an inventory as backups of the last day that there is, which is later than any clock says.
void MakeLaterBackups(const std::string& inventory, int count) {
  fs::create_directory(BackupFolder(inventory));
  for (int i = 0; i < count; ++i)
    fs::copy_file(inventory, BackupFolder(inventory) + "/9999-12-31 2359" + std::to_string(10 + i) + " by hand.mdb");
}

TEST(BackupCommand, tells_its_own_name_where_another_backup_is_of_a_later_time) {
  TestRun run;
  run.StartWithStructure();
  MakeLaterBackups(run.s.path, 1);
  std::ostringstream out, err;
  Console console{out, err};
  EXPECT_EQ(RunCommand(*FindCommand("backup"), {run.s.path}, console), Status::kWell) << err.str();
  const auto backups = Backups(run.s.path);
  ASSERT_GE(backups.size(), 2U);
  EXPECT_EQ(out.str(), backups[1].path + "\n");
}

TEST(BackupCommand, leaves_the_new_one_where_many_are_of_a_later_time_of_the_day) {
  TestRun run;
  run.StartWithStructure();
  MakeLaterBackups(run.s.path, 12);
  Database db;
  db.Open(run.s.path);
  const DateTime now{9999, 12, 31, 8, 0, 0};
  const std::string made = MakeBackup(db, {run.s.path, ""}, now, backup_reason::kByHand, std::uint64_t{1} << 40U);
  EXPECT_TRUE(fs::exists(made)) << made;
  EXPECT_EQ(Backups(run.s.path).size(), 11U);
}

TEST(BackupCommand, is_not_made_again_before_each_write_where_another_is_of_a_later_day) {
  TestRun run;
  run.StartWithStructure();
  MakeLaterBackups(run.s.path, 1);
  const std::size_t before = Backups(run.s.path).size();
  for (int start = 0; start < 3; ++start) {
    run.s.unbacked_day.clear();
    EXPECT_TRUE(BackUpOnceADay(run.s));
  }
  EXPECT_EQ(Backups(run.s.path).size(), before);
}

TEST(BackupCommand, tells_why_its_folder_cannot_be_made) {
  TestRun run;
  run.Start();
  CloseDatabase(run.s);
  fs::remove_all(BackupFolder(run.s.path));
  std::ofstream(BackupFolder(run.s.path)) << "no folder";
  std::ostringstream out, err;
  Console console{out, err};
  EXPECT_EQ(RunCommand(*FindCommand("backup"), {run.s.path}, console), Status::kFile);
  EXPECT_NE(err.str().find(": Cannot write the file " + BackupFolder(run.s.path) + ": "), std::string::npos)
      << err.str();
}

TEST(BackupCommand, made_several_at_the_same_time_are_all_there) {
  TestRun run;
  run.StartWithStructure();
  constexpr std::size_t kTogether = 6;
  std::vector<std::string> made(kTogether);
  std::vector<std::thread> threads;
  for (std::string& name : made)
    threads.emplace_back([&] {
      try {
        Database db;
        db.Open(run.s.path);
        name =
            MakeBackup(db, {run.s.path, ""}, {2017, 3, 5, 14, 2, 7}, backup_reason::kByHand, std::uint64_t{1} << 40U);
      } catch (const Fault& fault) {
        name = fault.description;
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(std::set<std::string>(made.begin(), made.end()).size(), kTogether);
  for (const std::string& name : made) EXPECT_TRUE(fs::exists(name)) << name;
}

TEST(BackupCommand, refuses_what_is_no_inventory) {
  const TemporaryFolder folder;
  std::ofstream(folder.path("text.mdb")) << "no inventory";
  std::ostringstream out, err;
  Console console{out, err};
  EXPECT_EQ(RunCommand(*FindCommand("backup"), {folder.path("text.mdb")}, console), Status::kFile);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace merlu::test
