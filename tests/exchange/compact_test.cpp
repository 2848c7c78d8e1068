#include "exchange/compact.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "base/fault.h"
#include "store/files.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kFirst = "Could not compact exported database. Check available disk space.";

void FailMove(const std::string&, const std::string&) {
  throw Fault(fault_number::kFileAccess, "test", "no");
}
void FailRemove(const std::string&) {
  throw Fault(fault_number::kFileAccess, "test", "no");
}

class Compaction : public testing::Test {
 protected:
  // A database file that was larger than its rows are now.
  Compaction() : source_(CopyTemplate(run_.folder, "export.mdb")), temporary_(run_.folder.path("temp.mdb")) {
    std::vector<std::string> statements = {"INSERT INTO CO_COMPANY (RIMA_CO_NUM, CO_NAME) VALUES ('1', 'kept')"};
    for (int i = 0; i < 300; ++i)
      statements.push_back("INSERT INTO QC (FieldID, [Desc]) VALUES ('x', hex(randomblob(2000)))");
    statements.push_back("DELETE FROM QC");
    Raw(source_, statements);
    size_ = FileSize(source_);
  }
  bool RowsAreThere(const std::string& path) {
    return NullToEmpty(RawValue(path, "SELECT CO_NAME FROM CO_COMPANY")) == "kept";
  }

  TestRun run_;
  std::string source_, temporary_;
  std::uint64_t size_ = 0;
};

TEST_F(Compaction, makes_the_file_as_small_as_its_rows_and_leaves_no_other) {
  EXPECT_TRUE(CompactDatabaseFile(run_.s, source_, temporary_));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{});
  EXPECT_LT(FileSize(source_), size_ / 2);
  EXPECT_TRUE(RowsAreThere(source_));
  EXPECT_FALSE(FileExists(temporary_));
  EXPECT_EQ(ToInteger(RawValue(source_, "PRAGMA application_id")),
            ToInteger(RawValue(TemplatePath(), "PRAGMA application_id")));
  EXPECT_EQ(NullToEmpty(RawValue(source_, "PRAGMA integrity_check")), "ok");
}

TEST_F(Compaction, needs_room_for_the_whole_file_on_the_root_file_system) {
  run_.free_bytes = size_ - 1;
  EXPECT_FALSE(CompactDatabaseFile(run_.s, source_, temporary_));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{"Not enough disk space to compact database!"});
  EXPECT_EQ(FileSize(source_), size_);
  run_.free_bytes = size_;
  EXPECT_TRUE(CompactDatabaseFile(run_.s, source_, temporary_));
}

TEST_F(Compaction, fails_on_a_temporary_file_that_was_left_and_deletes_it_so_that_the_next_works) {
  std::ofstream(temporary_) << "left from an earlier failure";
  EXPECT_FALSE(CompactDatabaseFile(run_.s, source_, temporary_));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{kFirst});
  EXPECT_FALSE(FileExists(temporary_));
  EXPECT_EQ(FileSize(source_), size_);
  EXPECT_TRUE(CompactDatabaseFile(run_.s, source_, temporary_));
}

TEST_F(Compaction, of_a_file_that_cannot_be_read_leaves_it_alone) {
  std::ofstream(source_, std::ios::trunc) << "no database at all, but long enough to look like one";
  const std::uint64_t size = FileSize(source_);
  EXPECT_FALSE(CompactDatabaseFile(run_.s, source_, temporary_));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{kFirst});
  EXPECT_EQ(FileSize(source_), size);
}

TEST_F(Compaction, that_cannot_delete_the_source_keeps_it_and_deletes_the_temporary) {
  FileSteps steps = RealFileSteps();
  static std::string kept;
  kept = source_;
  steps.remove = [](const std::string& path) { path == kept ? FailRemove(path) : RemoveFile(path); };
  EXPECT_FALSE(CompactDatabaseFile(run_.s, source_, temporary_, steps));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{"Could not compact database."});
  EXPECT_TRUE(RowsAreThere(source_));
  EXPECT_FALSE(FileExists(temporary_));
}

TEST_F(Compaction, that_fails_on_the_way_back_restores_the_rows) {
  FileSteps steps = RealFileSteps();
  steps.copy = FailMove;
  EXPECT_FALSE(CompactDatabaseFile(run_.s, source_, temporary_, steps));
  EXPECT_EQ(run_.TakeBoxes(),
            std::vector<std::string>{"Could not compact exported database. Restoring original file."});
  EXPECT_TRUE(RowsAreThere(source_));
  EXPECT_FALSE(FileExists(temporary_));
}

TEST_F(Compaction, that_cannot_delete_the_temporary_is_done_and_says_so) {
  FileSteps steps = RealFileSteps();
  static std::string kept;
  kept = temporary_;
  steps.remove = [](const std::string& path) { path == kept ? FailRemove(path) : RemoveFile(path); };
  EXPECT_TRUE(CompactDatabaseFile(run_.s, source_, temporary_, steps));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{"Temp file could not be deleted - Check disk."});
  EXPECT_LT(FileSize(source_), size_ / 2);
}

// Runs the work in a process without the superuser's rights; 0 when it returned true.
int AsNobody(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(3);
    _exit(work() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Compaction, in_a_folder_without_write_permission_changes_nothing) {
  fs::permissions(run_.folder.path(),
                  fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(source_, fs::perms::others_read | fs::perms::others_write, fs::perm_options::add);
  EXPECT_EQ(AsNobody([&] {
              return !CompactDatabaseFile(run_.s, source_, temporary_) &&
                     run_.TakeBoxes() == std::vector<std::string>{kFirst};
            }),
            0);
  EXPECT_EQ(FileSize(source_), size_);
  EXPECT_TRUE(RowsAreThere(source_));
}

TEST_F(Compaction, of_a_file_that_another_process_holds_fails_and_changes_nothing) {
  Database holder;
  holder.Open(source_);
  holder.Execute("PRAGMA locking_mode=EXCLUSIVE");
  holder.Execute("BEGIN EXCLUSIVE");
  EXPECT_FALSE(CompactDatabaseFile(run_.s, source_, temporary_));
  EXPECT_EQ(run_.TakeBoxes(), std::vector<std::string>{kFirst});
  holder.Close();
  EXPECT_EQ(FileSize(source_), size_);
}

}  // namespace
}  // namespace merlu::test
