#include "exchange/compact.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "base/fault.h"
#include "store/files.h"
#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class CompactingAFile : public testing::Test {
 protected:
  // A database file that was larger than its rows are now.
  CompactingAFile() : source_(CopyTemplate(folder_, "export.mdb")) {
    std::vector<std::string> statements = {"INSERT INTO CO_COMPANY (RIMA_CO_NUM, CO_NAME) VALUES ('1', 'kept')"};
    for (int i = 0; i < 300; ++i)
      statements.push_back("INSERT INTO QC (FieldID, [Desc]) VALUES ('x', hex(randomblob(2000)))");
    statements.push_back("DELETE FROM QC");
    Raw(source_, statements);
    size_ = FileSize(source_);
  }
  Compaction Compact(std::uint64_t free_bytes = 1U << 30U) {
    Database db;
    db.Open(source_);
    return WriteCompact({"", folder_.path("notes")}, db, source_, free_bytes);
  }
  void ExpectUnchanged() {
    EXPECT_EQ(FileSize(source_), size_);
    EXPECT_TRUE(RowsAreThere());
    EXPECT_EQ(Files(), 1);
  }
  bool RowsAreThere() { return NullToEmpty(RawValue(source_, "SELECT CO_NAME FROM CO_COMPANY")) == "kept"; }
  long Files() { return std::distance(fs::directory_iterator(folder_.path()), {}); }

  TemporaryFolder folder_;
  std::string source_;
  std::uint64_t size_ = 0;
};

TEST_F(CompactingAFile, makes_it_as_small_as_its_rows_and_leaves_no_other) {
  EXPECT_EQ(Compact(), Compaction::kDone);
  EXPECT_LT(FileSize(source_), size_ / 2);
  EXPECT_TRUE(RowsAreThere());
  EXPECT_EQ(Files(), 1);
  EXPECT_EQ(ToInteger(RawValue(source_, "PRAGMA application_id")),
            ToInteger(RawValue(TemplatePath(), "PRAGMA application_id")));
  EXPECT_EQ(NullToEmpty(RawValue(source_, "PRAGMA integrity_check")), "ok");
}

TEST_F(CompactingAFile, needs_room_for_all_of_it) {
  EXPECT_EQ(Compact(size_ - 1), Compaction::kNoRoom);
  ExpectUnchanged();
  EXPECT_EQ(Compact(size_), Compaction::kDone);
}

TEST_F(CompactingAFile, with_damaged_pages_leaves_it_alone) {
  Database db;
  db.Open(source_);
  std::fstream file(source_, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(4096);
  file << std::string(16 * 4096, '?');
  file.close();
  EXPECT_EQ(WriteCompact({"", folder_.path("notes")}, db, source_, size_), Compaction::kNotCompacted);
  EXPECT_EQ(FileSize(source_), size_);
  EXPECT_EQ(Files(), 1);
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

TEST_F(CompactingAFile, in_a_folder_without_write_permission_changes_nothing) {
  fs::permissions(folder_.path(),
                  fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(source_, fs::perms::others_read | fs::perms::others_write, fs::perm_options::add);
  EXPECT_EQ(AsNobody([&] { return Compact() == Compaction::kNotCompacted; }), 0);
  ExpectUnchanged();
}

// What the export keeps of the database: its layout, to the size of its pages, and what other programs put into it.
TEST_F(CompactingAFile, from_a_copy_in_memory_keeps_all_that_is_in_it) {
  Raw(source_, {"PRAGMA page_size=1024", "VACUUM", "CREATE TABLE theirs (a TEXT PRIMARY KEY, b) WITHOUT ROWID",
                "INSERT INTO theirs VALUES ('x', 1)", "CREATE INDEX their_index ON QC ([Desc])",
                "CREATE VIEW their_view AS SELECT a FROM theirs", "ALTER TABLE QC ADD COLUMN their_column INTEGER",
                "PRAGMA user_version=7"});
  const std::string layout = "SELECT group_concat(sql, ';') FROM (SELECT sql FROM sqlite_schema ORDER BY type,name)";
  const std::string before = NullToEmpty(RawValue(source_, layout));
  Database source, copy;
  source.Open(source_);
  copy.OpenCopyOf(source);
  const std::string target = folder_.path("target.mdb");
  std::ofstream(target).close();
  EXPECT_EQ(WriteCompact({"", folder_.path("notes")}, copy, target, 1U << 30U), Compaction::kDone);
  EXPECT_EQ(NullToEmpty(RawValue(target, layout)), before);
  EXPECT_EQ(ToInteger(RawValue(target, "PRAGMA page_size")), 1024);
  EXPECT_EQ(ToInteger(RawValue(target, "PRAGMA user_version")), 7);
  EXPECT_EQ(ToInteger(RawValue(target, "SELECT b FROM theirs")), 1);
  EXPECT_EQ(NullToEmpty(RawValue(target, "PRAGMA journal_mode")), "delete");
}

TEST_F(CompactingAFile, that_another_program_holds_changes_nothing) {
  Database db, holder;
  db.Open(source_);
  holder.Open(source_);
  holder.Execute("PRAGMA locking_mode=EXCLUSIVE");
  holder.Execute("BEGIN EXCLUSIVE");
  const WithoutPauses without_pauses;
  EXPECT_EQ(WriteCompact({"", folder_.path("notes")}, db, source_, size_), Compaction::kNotCompacted);
  holder.Close();
  ExpectUnchanged();
}

TEST_F(CompactingAFile, that_failed_is_told_in_words_and_one_that_did_not_is_not) {
  EXPECT_EQ(CompactionMessage(Compaction::kDone), "");
  EXPECT_EQ(CompactionMessage(Compaction::kNoRoom), "Not enough disk space to compact database!");
  EXPECT_EQ(CompactionMessage(Compaction::kNotCompacted),
            "Could not compact exported database. Check available disk space.");
  EXPECT_EQ(CompactionMessage(Compaction::kNotReplaced), "Could not compact database.");
}

}  // namespace
}  // namespace merlu::test
