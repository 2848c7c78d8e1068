#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "command/commands.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// An inventory with a flare in its first month, closed.
class SummaryCommand : public testing::Test {
 protected:
  SummaryCommand() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.s.cursors.Close();
    run.s.db.Close();
  }
  Status Play(std::vector<std::string> options) {
    std::ostringstream out, err;
    Console console{out, err};
    options.insert(options.begin(), run.s.path);
    const Status status = RunCommand(*FindCommand("report"), options, console);
    said = err.str();
    EXPECT_EQ(out.str(), "");
    return status;
  }
  static std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  std::map<std::string, std::string> Folder() {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(run.folder.path()))
      if (entry.is_regular_file()) files[entry.path().filename().string()] = Bytes(entry.path().string());
    return files;
  }

  TestRun run;
  TemporaryFolder elsewhere;
  std::string said;
};

TEST_F(SummaryCommand, writes_the_pdf_and_leaves_the_inventory_untouched) {
  const auto before = Folder();
  EXPECT_EQ(Play({"-o", elsewhere.path("summary.pdf")}), Status::kWell) << said;
  EXPECT_EQ(Bytes(elsewhere.path("summary.pdf")).substr(0, 5), "%PDF-");
  EXPECT_EQ(Folder(), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(elsewhere.path()), fs::directory_iterator()), 1);
}

TEST_F(SummaryCommand, replaces_a_file_only_by_force) {
  std::ofstream(elsewhere.path("summary.pdf")) << "older";
  EXPECT_EQ(Play({"-o", elsewhere.path("summary.pdf")}), Status::kFile);
  EXPECT_NE(said.find("--force"), std::string::npos) << said;
  EXPECT_EQ(Bytes(elsewhere.path("summary.pdf")), "older");
  EXPECT_EQ(Play({"-o", elsewhere.path("summary.pdf"), "--force"}), Status::kWell);
  EXPECT_EQ(Bytes(elsewhere.path("summary.pdf")).substr(0, 5), "%PDF-");
}

TEST_F(SummaryCommand, never_goes_over_the_inventory) {
  const auto before = Folder();
  fs::create_symlink(run.s.path, elsewhere.path("link.pdf"));
  EXPECT_EQ(Play({"-o", run.s.path, "--force"}), Status::kFile);
  EXPECT_EQ(Play({"-o", elsewhere.path("link.pdf"), "--force"}), Status::kFile);
  EXPECT_EQ(Play({"-o", elsewhere.path(), "--force"}), Status::kFile);
  EXPECT_EQ(Folder(), before);
}

TEST_F(SummaryCommand, tells_what_it_cannot_read) {
  std::ofstream(run.s.path) << "no inventory";
  EXPECT_EQ(Play({"-o", elsewhere.path("summary.pdf")}), Status::kFile);
  EXPECT_FALSE(fs::exists(elsewhere.path("summary.pdf")));
  EXPECT_EQ(Play({}), Status::kWrongUsage);
}

}  // namespace
}  // namespace merlu::test
