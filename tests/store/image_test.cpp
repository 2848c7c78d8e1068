// A file that is read without a trace: also in the middle of another program's write, with a journal that a cut
// left, and with a write-ahead log.
#include "store/image.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <map>

#include "base/fault.h"
#include "store/database.h"
#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::string Bytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Everything in the folder: names, bytes and times of change.
std::map<std::string, std::pair<std::string, fs::file_time_type>> Everything(const TemporaryFolder& folder) {
  std::map<std::string, std::pair<std::string, fs::file_time_type>> files;
  for (const auto& entry : fs::directory_iterator(folder.path()))
    files[entry.path().filename().string()] = {Bytes(entry.path()), fs::last_write_time(entry.path())};
  return files;
}

// Another program: runs the statements on the file, and ends without a goodbye.
void CutOff(const std::string& path, const std::string& statements) {
  const pid_t child = fork();
  if (child == 0) {
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    _exit(sqlite3_exec(db, statements.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK ? 0 : 1);
  }
  int status = 1;
  waitpid(child, &status, 0);
  ASSERT_EQ(status, 0);
}

class ImageOfFile : public testing::Test {
 protected:
  ImageOfFile() {
    Raw(path, {"CREATE TABLE filler (text TEXT)",
               "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<300) "
               "INSERT INTO filler SELECT 'old' || hex(zeroblob(200)) FROM n"});
  }
  // How many rows of the image begin with the word.
  std::int64_t Count(const std::string& word) {
    Database db;
    db.OpenImage(ReadImage(path), Database::Use::kRead);
    EXPECT_EQ(db.Single("PRAGMA integrity_check"), Value("ok"));
    return ToInteger(db.Single("SELECT COUNT(*) FROM filler WHERE text LIKE ?", {word + "%"}));
  }
  // Rows are changed beyond what a cache holds, so that the file itself is changed before the commit.
  const std::string half_a_change = "PRAGMA cache_size=10; BEGIN; UPDATE filler SET text='new' || substr(text,4)";

  TemporaryFolder folder;
  std::string path = CopyTemplate(folder);
};

TEST_F(ImageOfFile, holds_what_the_file_holds_and_leaves_no_trace) {
  const auto before = Everything(folder);
  EXPECT_EQ(Count("old"), 300);
  EXPECT_EQ(Everything(folder), before);
}

TEST_F(ImageOfFile, takes_back_what_a_cut_left_half_done_in_a_copy_only) {
  CutOff(path, half_a_change);
  const auto before = Everything(folder);
  ASSERT_TRUE(before.contains("inventory.mdb-journal"));
  ASSERT_NE(before.at("inventory.mdb").first.find("new0000"), std::string::npos) << "the file itself is changed";
  EXPECT_EQ(Count("old"), 300);
  EXPECT_EQ(Count("new"), 0);
  EXPECT_EQ(Everything(folder), before);
  // the journal still does its work
  EXPECT_EQ(ToInteger(RawValue(path, "SELECT COUNT(*) FROM filler WHERE text LIKE 'old%'")), 300);
}

TEST_F(ImageOfFile, does_so_in_a_folder_that_cannot_be_written) {
  CutOff(path, half_a_change);
  const auto before = Everything(folder);
  fs::permissions(path, fs::perms::owner_read);
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(Count("old"), 300);
  EXPECT_EQ(Everything(folder), before);
  fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST_F(ImageOfFile, shows_the_last_commit_while_another_program_is_writing) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE; DELETE FROM filler", nullptr, nullptr, nullptr), SQLITE_OK);
  const auto before = Everything(folder);
  ASSERT_TRUE(before.contains("inventory.mdb-journal"));
  EXPECT_EQ(Count("old"), 300);
  EXPECT_EQ(Everything(folder), before);
  EXPECT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK) << "the reader holds nothing";
  EXPECT_EQ(Count("old"), 0);
  sqlite3_close(other);
}

TEST_F(ImageOfFile, waits_five_seconds_for_a_file_that_is_held) {
  Database other;
  other.Open(path);
  other.Execute("BEGIN EXCLUSIVE");
  {
    const WithoutPauses counted;
    try {
      ReadImage(path);
      ADD_FAILURE() << "read while it was held";
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.number, fault_number::kInUse);
    }
    EXPECT_EQ(counted.milliseconds(), 5000);
  }
  const WithoutPauses instead([&](int milliseconds) {
    if (milliseconds == 4900) other.Execute("COMMIT");
  });
  EXPECT_EQ(Count("old"), 300);
  EXPECT_EQ(instead.milliseconds(), 4910);
}

TEST_F(ImageOfFile, takes_a_write_ahead_log_in) {
  CutOff(path, "PRAGMA journal_mode=WAL; UPDATE filler SET text='new' || substr(text,4)");
  const auto before = Everything(folder);
  ASSERT_TRUE(before.contains("inventory.mdb-wal"));
  EXPECT_EQ(Count("new"), 300);
  EXPECT_EQ(Everything(folder), before);
}

TEST_F(ImageOfFile, goes_by_the_name_behind_a_link) {
  CutOff(path, half_a_change);
  const TemporaryFolder elsewhere;
  fs::create_symlink(path, elsewhere.path("link.mdb"));
  path = elsewhere.path("link.mdb");
  EXPECT_EQ(Count("old"), 300);
}

TEST_F(ImageOfFile, refuses_what_is_no_database) {
  const auto number = [&](const std::string& file) {
    try {
      ReadImage(file);
    } catch (const Fault& fault) {
      return fault.number;
    }
    return 0;
  };
  std::ofstream(folder.path("text.mdb"))
      << "not a database, however long the text is, and it is longer than a header is: "
         "a hundred bytes at least";
  std::ofstream(folder.path("empty.mdb"));
  EXPECT_EQ(number(folder.path("text.mdb")), fault_number::kNotADatabase);
  EXPECT_EQ(number(folder.path("empty.mdb")), fault_number::kNotADatabase);
  EXPECT_EQ(number(folder.path("missing.mdb")), fault_number::kPathNotFound);
  EXPECT_EQ(number(folder.path()), fault_number::kPathNotFound);
}

TEST_F(ImageOfFile, is_read_only_unless_it_is_a_private_copy) {
  Database db;
  db.OpenImage(ReadImage(path), Database::Use::kRead);
  EXPECT_THROW(db.Execute("DELETE FROM filler"), Fault);
  db.OpenImage(ReadImage(path), Database::Use::kPrivateCopy);
  const auto before = Everything(folder);
  {
    WriteBatch batch(db);
    db.Execute("DELETE FROM filler");
    db.Execute("INSERT INTO filler SELECT hex(zeroblob(1000))");
    batch.Commit();
  }
  EXPECT_EQ(db.Single("SELECT COUNT(*) FROM filler"), Value(std::int64_t{1}));
  EXPECT_EQ(Everything(folder), before);
}

}  // namespace
}  // namespace merlu::test
