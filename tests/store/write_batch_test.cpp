#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "base/fault.h"
#include "store/database.h"
#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class Batch : public testing::Test {
 protected:
  Batch() { db.Open(path); }
  void Add(int year) { db.Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (?)", {std::int64_t{year}}); }
  // What another connection sees.
  std::int64_t Committed() { return ToInteger(RawValue(path, "SELECT COUNT(*) FROM SYS_CONFIG")); }

  TemporaryFolder folder;
  std::string path = CopyTemplate(folder);
  Database db;
};

TEST_F(Batch, keeps_its_writes_to_itself_until_it_commits) {
  WriteBatch batch(db);
  Add(1);
  Add(2);
  EXPECT_EQ(Committed(), 0);
  batch.Commit();
  EXPECT_EQ(Committed(), 2);
}

TEST_F(Batch, commits_when_it_goes_out_of_scope) {
  {
    const WriteBatch batch(db);
    Add(1);
  }
  EXPECT_EQ(Committed(), 1);
}

TEST_F(Batch, commits_the_work_that_was_done_before_a_fault) {
  EXPECT_THROW(
      {
        const WriteBatch batch(db);
        Add(1);
        Add(2);
        db.Execute("INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK) VALUES (1,99)");
      },
      Fault);
  EXPECT_EQ(Committed(), 2);
}

TEST_F(Batch, inside_another_one_leaves_the_commit_to_the_outer) {
  WriteBatch outer(db);
  Add(1);
  {
    WriteBatch inner(db);
    Add(2);
    inner.Commit();
  }
  EXPECT_EQ(Committed(), 0);
  outer.Commit();
  EXPECT_EQ(Committed(), 2);
}

TEST_F(Batch, goes_on_after_a_fault_in_an_inner_one) {
  {
    WriteBatch outer(db);
    Add(1);
    EXPECT_THROW(
        {
          const WriteBatch inner(db);
          Add(2);
          db.Execute("SELECT NO_SUCH FROM QC");
        },
        Fault);
    Add(3);
    EXPECT_EQ(Committed(), 0);
  }
  EXPECT_EQ(Committed(), 3);
}

TEST_F(Batch, can_be_committed_twice_and_followed_by_another_one) {
  WriteBatch first(db);
  Add(1);
  first.Commit();
  first.Commit();
  EXPECT_EQ(Committed(), 1);
  WriteBatch second(db);
  Add(2);
  EXPECT_EQ(Committed(), 1);
  second.Commit();
  EXPECT_EQ(Committed(), 2);
}

TEST_F(Batch, that_is_open_when_the_database_closes_is_committed) {
  const WriteBatch batch(db);
  Add(1);
  db.Close();
  EXPECT_EQ(Committed(), 1);
}

TEST_F(Batch, on_a_file_that_another_connection_writes_to_is_in_use_and_can_be_begun_later) {
  Database other;
  other.Open(path);
  int number = 0;
  {
    const WriteBatch theirs(other);
    const WithoutPauses without_pauses;
    try {
      const WriteBatch ours(db);
    } catch (const Fault& fault) {
      number = fault.number;
    }
  }
  EXPECT_EQ(number, 3261);
  WriteBatch ours(db);
  Add(1);
  EXPECT_EQ(Committed(), 0);
  ours.Commit();
  EXPECT_EQ(Committed(), 1);
}

TEST_F(Batch, that_cannot_commit_tells_it_and_leaves_the_database_usable) {
  sqlite3* reader = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &reader), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT COUNT(*) FROM SYS_CONFIG", nullptr, nullptr, nullptr), SQLITE_OK);
  {
    WriteBatch batch(db);
    Add(1);
    const WithoutPauses without_pauses;
    int number = 0;
    try {
      batch.Commit();
    } catch (const Fault& fault) {
      number = fault.number;
    }
    EXPECT_EQ(number, 3261);
  }
  sqlite3_close(reader);
  EXPECT_EQ(Committed(), 0);
  Add(2);
  EXPECT_EQ(Committed(), 1);
  {
    const WriteBatch batch(db);
    Add(3);
    EXPECT_EQ(Committed(), 1);
  }
  EXPECT_EQ(Committed(), 2);
}

TEST_F(Batch, of_a_program_that_is_killed_leaves_the_file_as_it_was) {
  Add(1);
  db.Close();
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Database theirs;
    theirs.Open(path);
    const WriteBatch batch(theirs);
    theirs.Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<20000) "
        "INSERT INTO QC (UserID,FieldID) SELECT '12345',hex(randomblob(200)) FROM n");
    if (write(ready[1], "y", 1) != 1) _exit(1);
    pause();
    _exit(1);
  }
  char letter = 0;
  ASSERT_EQ(read(ready[0], &letter, 1), 1);
  ASSERT_EQ(kill(child, SIGKILL), 0);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  close(ready[0]);
  close(ready[1]);
  db.Open(path);
  EXPECT_EQ(NullToEmpty(db.Single("PRAGMA integrity_check")), "ok");
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM QC")), 0);
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM SYS_CONFIG")), 1);
}

}  // namespace
}  // namespace merlu::test
