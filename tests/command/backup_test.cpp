#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "command/commands.h"
#include "history/backups.h"
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
