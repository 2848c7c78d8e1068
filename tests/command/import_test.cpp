#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "command/commands.h"
#include "history/backups.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Two inventories of one operator and year, with a structure each.
class ImportCommand : public testing::Test {
 protected:
  ImportCommand() {
    here.StartWithStructure();
    CloseDatabase(here.s);
    there.Start();
    there.AddStructure("2002", "1", "B");
    there.AddEquipment("FLA", "F1");
    CloseDatabase(there.s);
  }
  Status Play(std::vector<std::string> options) {
    std::ostringstream out_stream, err_stream;
    Console console{out_stream, err_stream};
    options.insert(options.begin(), {here.s.path, "--from", there.s.path});
    const Status status = RunCommand(*FindCommand("import"), options, console);
    out = out_stream.str();
    err = err_stream.str();
    return status;
  }
  std::int64_t Structures() { return ToInteger(RawValue(here.s.path, "SELECT COUNT(*) FROM PD_PLATFORM_DESC")); }

  TestRun here, there;
  std::string out, err;
};

TEST_F(ImportCommand, tells_what_would_happen_and_changes_nothing) {
  std::ifstream in(here.s.path, std::ios::binary);
  const std::string before((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(Play({"--dry-run"}), Status::kWell) << err;
  EXPECT_EQ(out,
            "{\"structure\":\"2002/1\",\"action\":\"add\",\"equipment\":1,\"months_here\":[],\"months_there\":[]}\n");
  std::ifstream again(here.s.path, std::ios::binary);
  EXPECT_EQ(std::string((std::istreambuf_iterator<char>(again)), std::istreambuf_iterator<char>()), before);
}

TEST_F(ImportCommand, takes_the_structures_over_after_a_backup) {
  EXPECT_EQ(Play({"--structures", "2002/1"}), Status::kWell) << err;
  EXPECT_EQ(out, "2002/1: add\n");
  EXPECT_EQ(Structures(), 2);
  bool backed_up = false;
  for (const Backup& backup : Backups(here.s.path)) backed_up = backed_up || backup.why == backup_reason::kImport;
  EXPECT_TRUE(backed_up);
  EXPECT_EQ(RawValue(here.s.path + ".history", "SELECT place FROM step WHERE what='Import'"),
            Value(std::string("Operator: 12345")));
}

TEST_F(ImportCommand, takes_a_structure_once_that_is_named_twice) {
  EXPECT_EQ(Play({"--structures", "2002/1,2002/1", "--dry-run"}), Status::kWell) << err;
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1) << out;
  EXPECT_EQ(Play({"--structures", "2002/1, 2002/1"}), Status::kWell) << err;
  EXPECT_EQ(out, "2002/1: add\n");
  EXPECT_EQ(Structures(), 2);
}

TEST_F(ImportCommand, refuses_what_is_there_already_and_what_the_other_file_lacks) {
  EXPECT_EQ(Play({}), Status::kWell) << err;
  EXPECT_EQ(Play({}), Status::kSomething);
  EXPECT_EQ(Structures(), 2);
  EXPECT_EQ(Play({"--structures", "9999/1"}), Status::kSomething);
  EXPECT_NE(err.find("It has no structure 9999/1."), std::string::npos) << err;
}

TEST_F(ImportCommand, names_the_file_that_cannot_be_read) {
  const std::string good = there.s.path, bad = here.folder.path("bad.mdb");
  const auto refused = [&](const std::string& file, const std::string& from) {
    std::ostringstream out_stream, err_stream;
    Console console{out_stream, err_stream};
    EXPECT_EQ(RunCommand(*FindCommand("import"), {file, "--from", from}, console), Status::kFile);
    return err_stream.str();
  };
  std::ofstream(bad) << "no inventory";
  EXPECT_TRUE(refused(here.s.path, bad).starts_with("merlu import: " + bad + ": ")) << refused(here.s.path, bad);
  EXPECT_TRUE(refused(bad, good).starts_with("merlu import: " + bad + ": ")) << refused(bad, good);
  EXPECT_EQ(Structures(), 1);
}

}  // namespace
}  // namespace merlu::test
