// The program itself, started from a shell: its words and what it leaves behind.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include "support/test_run.h"

namespace merlu::test {
namespace {

class StartedProgram : public testing::Test {
 protected:
  StartedProgram() {
    for (const char* name : {"temporary", "home"}) fs::create_directory(folder.path(name));
  }
  // The exit status of `merlu WORDS` in the folder; what it says is in `said`.
  int Play(const std::string& words) {
    const std::string command = "cd '" + folder.path() + "' && unset XDG_RUNTIME_DIR && " + limit +
                                "HOME=home TMPDIR=temporary timeout 60 '" + MERLU_BUILD_FOLDER "/merlu' " + words +
                                " > said 2>&1 < /dev/null";
    const int status = std::system(command.c_str());
    said = Text("said");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Text(const std::string& name) const {
    std::ifstream in(folder.path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  TemporaryFolder folder;
  std::string said, limit;
};

TEST_F(StartedProgram, takes_no_other_file_for_the_settings) {
  TestRun run;
  run.Start();
  fs::copy_file(run.s.path, folder.path("inventory.mdb"));
  std::ofstream(folder.path("play")) << "start other.mdb\n";
  const std::string before = Text("inventory.mdb");
  EXPECT_EQ(Play("script --settings inventory.mdb play"), 2);
  EXPECT_EQ(said, "merlu: inventory.mdb is no file of settings\n");
  EXPECT_EQ(Play("--settings inventory.mdb"), 2);
  EXPECT_EQ(said, "merlu: inventory.mdb is no file of settings\n");
  EXPECT_TRUE(Text("inventory.mdb") == before);
  std::ofstream(folder.path("settings.ini")) << "[Options]\nDBloc=other.mdb\n";
  std::ofstream(folder.path("play")) << "forms\n";
  EXPECT_EQ(Play("script --settings settings.ini play"), 0) << said;
  EXPECT_EQ(Play("script --settings new.ini play"), 0) << said;
  std::ofstream(folder.path("edited.ini")) << "\xEF\xBB\xBF# mine\r\n; too\r\n\r\n[Options]\r\nDBloc=other.mdb\r\n";
  EXPECT_EQ(Play("script --settings edited.ini play"), 0) << said;
  EXPECT_EQ(Play("script --settings play play"), 2) << said;
}

TEST_F(StartedProgram, takes_no_blank_name_of_a_script_or_of_settings) {
  EXPECT_EQ(Play("script ''"), 2) << said;
  EXPECT_EQ(Play("script --settings ''"), 2) << said;
}

TEST_F(StartedProgram, leaves_no_temporary_folder) {
  std::ofstream(folder.path("play")) << "forms\n";
  EXPECT_EQ(Play("script --settings settings.ini play"), 0) << said;
  EXPECT_TRUE(fs::is_empty(folder.path("temporary"))) << fs::directory_iterator(folder.path("temporary"))->path();
}

TEST_F(StartedProgram, tells_a_file_that_is_larger_than_the_user_may_write) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Close();
  fs::copy_file(run.s.path, folder.path("inventory.mdb"));
  const std::string before = Text("inventory.mdb");
  limit = "ulimit -f 100 && ";
  EXPECT_EQ(Play("export inventory.mdb --inventory -o out.mdb"), 3) << said;
  EXPECT_NE(said.find("merlu export: inventory.mdb: "), std::string::npos) << said;
  EXPECT_FALSE(fs::exists(folder.path("out.mdb")));
  EXPECT_TRUE(Text("inventory.mdb") == before);
}

TEST_F(StartedProgram, tells_help_that_could_not_be_written) {
  for (const char* words : {"--help", "--version", "catalogue", "script --help", "catalogue --help", "check --help"}) {
    const std::string command = "'" MERLU_BUILD_FOLDER "/merlu' " + std::string(words) + " > /dev/full 2> /dev/null";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 3) << words;
  }
}

}  // namespace
}  // namespace merlu::test
