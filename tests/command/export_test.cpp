#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <thread>

#include "command/commands.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class ExportCommand : public testing::Test {
 protected:
  ExportCommand() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.AddStructure("1002", "1", "B");
    run.ChangeTo(Mode::kActv);
    run.SelectRoot();
    run.AddMonth();
    run.s.cursors.Close();
    run.s.companion.Close();
    run.s.db.Close();
  }
  Status Play(std::vector<std::string> options) {
    std::ostringstream out, err;
    Console console{out, err};
    options.insert(options.begin(), run.s.path);
    options.insert(options.end(), {"-o", target});
    const Status status = RunCommand(*FindCommand("export"), options, console);
    said = out.str() + err.str();
    return status;
  }
  std::int64_t Count(const std::string& sql) { return ToInteger(RawValue(target, "SELECT COUNT(*) FROM " + sql)); }

  TestRun run;
  TemporaryFolder elsewhere;
  std::string target = elsewhere.path("out.mdb"), said;
};

TEST_F(ExportCommand, writes_the_survey_of_a_month_and_keeps_it_as_the_hand_in) {
  EXPECT_EQ(Play({"--month", "2"}), Status::kWell) << said;
  EXPECT_EQ(said, "");
  EXPECT_EQ(Count("PA_PLATFORM_ACTV WHERE PA_MO<>2"), 0);
  EXPECT_EQ(Count("PA_PLATFORM_ACTV"), 2);
  EXPECT_EQ(RawValue(run.s.path + ".history", "SELECT COUNT(*) FROM hand_in WHERE year=2017 AND month=2"),
            Value(std::int64_t{1}));
}

TEST_F(ExportCommand, writes_the_whole_inventory) {
  EXPECT_EQ(Play({"--inventory"}), Status::kWell) << said;
  EXPECT_EQ(Count("PA_PLATFORM_ACTV"), 4);
}

TEST_F(ExportCommand, writes_the_structures_that_are_named) {
  EXPECT_EQ(Play({"--structures", "1001/1"}), Status::kWell) << said;
  EXPECT_EQ(Count("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(Count("ED_FLA"), 1);
}

TEST_F(ExportCommand, finds_a_structure_without_regard_to_case) {
  Raw(run.s.path, {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='10Ab' WHERE CMPLX_ID_NUM='1001'"});
  EXPECT_EQ(Play({"--structures", "10aB/1"}), Status::kWell) << said;
  EXPECT_EQ(Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(ExportCommand, finds_a_structure_without_regard_to_the_case_of_letters_beyond_ascii) {
  Raw(run.s.path, {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='\xC3\x89T1' WHERE CMPLX_ID_NUM='1001'"});
  EXPECT_EQ(Play({"--structures", "\xC3\xA9t1/1"}), Status::kWell) << said;
  EXPECT_EQ(Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(ExportCommand, writes_nothing_for_a_month_or_a_structure_that_the_file_lacks) {
  EXPECT_EQ(Play({"--month", "3"}), Status::kSomething);
  EXPECT_NE(said.find("It has no month 3."), std::string::npos) << said;
  EXPECT_EQ(Play({"--structures", "1001/1,9999/1"}), Status::kSomething);
  EXPECT_NE(said.find("It has no structure 9999/1."), std::string::npos) << said;
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(ExportCommand, lets_one_of_several_at_the_same_time_make_the_file) {
  std::vector<Status> ends(6, Status::kWell);
  std::vector<std::thread> threads;
  for (Status& end : ends)
    threads.emplace_back([&] {
      std::ostringstream out, err;
      Console console{out, err};
      end = RunCommand(*FindCommand("export"), {run.s.path, "--structures", "1001/1", "-o", target}, console);
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(std::count(ends.begin(), ends.end(), Status::kWell), 1);
  EXPECT_EQ(std::count(ends.begin(), ends.end(), Status::kFile), 5);
  EXPECT_EQ(Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(ExportCommand, never_writes_over_its_own_inventory) {
  target = run.s.path;
  EXPECT_EQ(Play({"--inventory", "--force"}), Status::kFile);
  target = run.s.path + ".history";
  EXPECT_EQ(Play({"--inventory", "--force"}), Status::kFile);
}

}  // namespace
}  // namespace merlu::test
