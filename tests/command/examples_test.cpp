// The examples of the command line, played with the program itself.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::string Text(const std::string& path) {
  std::ifstream in(path);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class CommandExample : public testing::Test {
 protected:
  // Two inventories: one with a finding in its month, one with nothing in it.
  CommandExample() {
    fs::create_directory(run.folder.path("inventories"));
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    CloseDatabase(run.s);
    fs::copy_file(run.s.path, File("bad.mdb"));
    fs::copy_file(run.s.path, File("good.mdb"));
    Raw(File("good.mdb"), {"PRAGMA foreign_keys=ON", "DELETE FROM ED_EQUIP_DESC",
                           "UPDATE PA_PLATFORM_ACTV SET status='I'", "UPDATE PD_PLATFORM_DESC SET status='I'"});
  }
  std::string File(const std::string& name) const { return run.folder.path("inventories/" + name); }
  // The exit status; the output is in `said`.
  int Play(const std::string& line) {
    const std::string command = "MERLU='" MERLU_BUILD_FOLDER "/merlu' '" MERLU_SOURCE_FOLDER "/examples/'" + line +
                                " > '" + run.folder.path("said") + "' 2>&1";
    const int status = std::system(command.c_str());
    said = Text(run.folder.path("said"));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TestRun run;
  std::string said;
};

TEST_F(CommandExample, checks_a_folder_every_night) {
  Raw(File("good.mdb"), {"PRAGMA foreign_keys=ON", "DELETE FROM PD_PLATFORM_DESC"});
  const std::string result = run.folder.path("result.csv");
  EXPECT_EQ(Play("nightly-check.sh '" + run.folder.path("inventories") + "' '" + result + "'"), 1) << said;
  EXPECT_NE(said.find("bad.mdb: "), std::string::npos) << said;
  EXPECT_EQ(said.find("good.mdb: "), std::string::npos) << said;
  EXPECT_EQ(Text(result).substr(0, 11), "file,place,");
  fs::remove(File("bad.mdb"));
  EXPECT_EQ(Play("nightly-check.sh '" + run.folder.path("inventories") + "' '" + result + "'"), 0) << said;
  EXPECT_EQ(said, "");
}

TEST_F(CommandExample, hands_a_month_in_when_nothing_is_open) {
  fs::create_directory(run.folder.path("out"));
  EXPECT_EQ(Play("hand-in.sh '" + File("bad.mdb") + "' 1 '" + run.folder.path("out") + "'"), 1) << said;
  EXPECT_FALSE(fs::exists(run.folder.path("out/survey.mdb")));
  EXPECT_EQ(Play("hand-in.sh '" + File("good.mdb") + "' 1 '" + run.folder.path("out") + "'"), 0) << said;
  EXPECT_EQ(ToInteger(RawValue(run.folder.path("out/survey.mdb"), "SELECT COUNT(*) FROM PA_PLATFORM_ACTV")), 1);
  EXPECT_EQ(Text(run.folder.path("out/summary.pdf")).substr(0, 5), "%PDF-");
}

}  // namespace
}  // namespace merlu::test
