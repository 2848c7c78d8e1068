#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "command/commands.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class ReadyCommand : public testing::Test {
 protected:
  ReadyCommand() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
  }
  Status Play(std::vector<std::string> options) {
    std::ostringstream out_stream, err_stream;
    Console console{out_stream, err_stream};
    options.insert(options.begin(), run.s.path);
    const Status status = RunCommand(*FindCommand("ready"), options, console);
    out = out_stream.str();
    err = err_stream.str();
    return status;
  }
  std::map<std::string, std::string> Folder() {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(run.folder.path())) {
      std::ifstream in(entry.path(), std::ios::binary);
      files[entry.path()] = entry.is_regular_file()
                                ? std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>())
                                : "";
    }
    return files;
  }

  TestRun run;
  std::string out, err;
};

TEST_F(ReadyCommand, tells_what_stops_a_year_and_touches_nothing) {
  const auto before = Folder();
  EXPECT_EQ(Play({}), Status::kSomething) << err;
  EXPECT_EQ(err, "");
  EXPECT_NE(out.find("stop: Months missing: 11\n"), std::string::npos) << out;
  EXPECT_NE(out.find("Not ready: "), std::string::npos) << out;
  EXPECT_EQ(Folder(), before);
}

TEST_F(ReadyCommand, answers_in_json_a_row_a_check_and_the_verdict) {
  EXPECT_EQ(Play({"--month", "1", "--format", "json"}), Status::kSomething);
  EXPECT_NE(out.find("{\"state\":\"stop\",\"check\":\"Findings without an explanation\",\"count\":"), std::string::npos)
      << out;
  EXPECT_NE(out.find("{\"ready\":false,\"stops\":"), std::string::npos) << out;
}

TEST_F(ReadyCommand, writes_the_report_too) {
  const auto before = Folder();
  const TemporaryFolder elsewhere;
  const std::string report = elsewhere.path("report.pdf");
  EXPECT_EQ(Play({"-o", report}), Status::kSomething) << err;
  EXPECT_NE(out.find("Not ready: "), std::string::npos) << out;
  std::ifstream in(report, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()).substr(0, 5), "%PDF-");
  EXPECT_EQ(Play({"-o", report}), Status::kFile);
  EXPECT_EQ(out, "");
  EXPECT_NE(err.find("--force"), std::string::npos) << err;
  EXPECT_EQ(Play({"-o", report, "--force"}), Status::kSomething);
  EXPECT_EQ(Folder(), before);
}

TEST_F(ReadyCommand, tells_a_month_that_the_file_lacks) {
  EXPECT_EQ(Play({"--month", "5"}), Status::kSomething);
  EXPECT_NE(err.find("It has no month 5."), std::string::npos) << err;
  EXPECT_EQ(out, "");
}

}  // namespace
}  // namespace merlu::test
