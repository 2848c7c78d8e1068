#include "shell/filename_rule.h"

#include <gtest/gtest.h>

#include <fstream>

#include "store/files.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kNone = "Please select filename";
constexpr const char* kNotValid = "Please specify a valid filename";
constexpr const char* kExists = "FileName already exists.  Do you wish to overwrite?";

class FileName : public testing::Test {
 protected:
  FileName() {
    run.program_folder = run.folder.path();
    run.data_folder = run.folder.path();
    run.s.path = run.folder.path("working.mdb");
    Write("working.mdb");
  }
  void Write(const std::string& name) { std::ofstream(run.folder.path(name)) << "kept"; }
  std::string Bytes(const std::string& name) {
    std::string text;
    std::ifstream(run.folder.path(name)) >> text;
    return text;
  }
  std::string New(const std::string& name) { return NewDatabaseFileName(run.s, run.folder.path(name)); }

  TestRun run;
};

TEST_F(FileName, is_asked_for_when_there_is_none) {
  for (const char* typed : {"", "   "}) {
    EXPECT_EQ(DatabaseFileName(run.s, typed), "");
    EXPECT_EQ(run.TakeBoxes(), Texts{kNone}) << '"' << typed << '"';
  }
}

TEST_F(FileName, loses_the_quotes_around_it) {
  EXPECT_EQ(DatabaseFileName(run.s, "\"/a/b.mdb\""), "/a/b.mdb");
  EXPECT_EQ(DatabaseFileName(run.s, "\"/a/b.mdb"), "/a/b.mdb");
  EXPECT_EQ(DatabaseFileName(run.s, " /a/b.mdb\" "), "/a/b.mdb");
}

TEST_F(FileName, gets_the_extension_that_it_lacks) {
  EXPECT_EQ(DatabaseFileName(run.s, "/a/b"), "/a/b.mdb");
  EXPECT_EQ(DatabaseFileName(run.s, "/a/b.MDB"), "/a/b.MDB");
  EXPECT_EQ(DatabaseFileName(run.s, "/a/b.txt"), "/a/b.txt.mdb");
  EXPECT_EQ(DatabaseFileName(run.s, "b"), "b.mdb");
}

TEST_F(FileName, that_is_only_a_folder_is_refused) {
  for (const char* typed : {"/tmp/.mdb", "/tmp/", "C:\\data\\.mdb", "C:\\data\\", ".mdb", "\"\"", "/tmp/.MDB"}) {
    EXPECT_EQ(DatabaseFileName(run.s, typed), "") << typed;
    EXPECT_EQ(run.TakeBoxes(), Texts{kNotValid}) << typed;
  }
}

TEST_F(FileName, that_is_a_folder_with_the_extension_is_refused) {
  fs::create_directory(run.folder.path("folder.mdb"));
  EXPECT_EQ(New("folder"), "");
  EXPECT_EQ(run.TakeBoxes(), Texts{kNotValid});
  EXPECT_TRUE(fs::is_directory(run.folder.path("folder.mdb")));
}

TEST_F(FileName, of_a_new_file_asks_nothing) {
  EXPECT_EQ(New("new"), run.folder.path("new.mdb"));
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(FileName, of_a_file_that_exists_is_taken_after_a_yes_and_the_file_stays_until_there_is_a_new_one) {
  Write("old.mdb");
  run.answers = {Button::kYes};
  EXPECT_EQ(New("old"), run.folder.path("old.mdb"));
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, kExists);
  EXPECT_EQ(run.boxes[0].buttons, (std::vector<Button>{Button::kYes, Button::kNo}));
  EXPECT_EQ(Bytes("old.mdb"), "kept");
}

TEST_F(FileName, of_a_file_that_exists_leaves_it_untouched_after_a_no) {
  Write("old.mdb");
  run.answers = {Button::kNo};
  EXPECT_EQ(New("old"), "");
  EXPECT_EQ(run.TakeBoxes(), Texts{kExists});
  EXPECT_EQ(Bytes("old.mdb"), "kept");
}

TEST_F(FileName, never_is_the_working_database_under_whatever_name) {
  fs::create_symlink(run.folder.path("working.mdb"), run.folder.path("link.mdb"));
  for (const char* name : {"working", "working.mdb", "./working", "link"}) {
    run.answers = {Button::kYes};
    EXPECT_EQ(New(name), "") << name;
    ASSERT_EQ(run.boxes.size(), 1u) << name;
    EXPECT_NE(run.TakeBoxes()[0].find("database that you are working with"), std::string::npos) << name;
    EXPECT_EQ(Bytes("working.mdb"), "kept");
  }
}

TEST_F(FileName, never_is_what_belongs_to_the_working_database) {
  for (const char* name : {"working.mdb.history"}) {
    fs::create_symlink(run.folder.path(name), run.folder.path("link.mdb"));
    EXPECT_EQ(New("link.mdb"), "") << name;
    ASSERT_EQ(run.boxes.size(), 1u) << name;
    EXPECT_NE(run.TakeBoxes()[0].find("The program needs this file for itself"), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace merlu::test
