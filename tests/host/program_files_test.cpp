#include "host/program_files.h"

#include <gtest/gtest.h>

#include "support/test_run.h"

namespace merlu::test {
namespace {

class ProgramFilesOf : public testing::Test {
 protected:
  ProgramFilesOf() {
    fs::create_directories(folder.path("bin"));
    fs::create_directories(folder.path("share/merlu"));
  }
  TemporaryFolder folder;
};

TEST_F(ProgramFilesOf, a_build_lie_beside_the_program) {
  CopyTemplate(folder, "bin/mr.dbt");
  CopyTemplate(folder, "share/merlu/mr.dbt");
  const ProgramFolders found = FindProgramFiles(folder.path("bin"));
  EXPECT_EQ(found.folder, folder.path("bin"));
  EXPECT_FALSE(found.installed);
}

TEST_F(ProgramFilesOf, an_installation_lie_in_its_share_folder) {
  CopyTemplate(folder, "share/merlu/mr.dbt");
  const ProgramFolders found = FindProgramFiles(folder.path("bin"));
  EXPECT_EQ(found.folder, folder.path("share/merlu"));
  EXPECT_TRUE(found.installed);
}

TEST_F(ProgramFilesOf, a_program_without_any_are_missed_beside_it) {
  const ProgramFolders found = FindProgramFiles(folder.path("bin"));
  EXPECT_EQ(found.folder, folder.path("bin"));
  EXPECT_FALSE(found.installed);
}

TEST(ProgramFiles, of_this_build_hold_the_template) {
  const ProgramFolders found = ProgramFiles();
  EXPECT_TRUE(fs::exists(found.folder + "/mr.dbt"));
  EXPECT_FALSE(found.installed);
}

}  // namespace
}  // namespace merlu::test
