#include "session/folders.h"

#include <gtest/gtest.h>

#include "support/test_run.h"

namespace merlu::test {
namespace {

class OwnFiles : public testing::Test {
 protected:
  OwnFiles() {
    run.program_folder = run.folder.path("program");
    run.data_folder = run.folder.path("user/data");
    fs::create_directory(run.program_folder);
  }
  TestRun run;
};

TEST_F(OwnFiles, lie_beside_a_program_that_was_not_installed) {
  EXPECT_EQ(OwnFilesFolder(run.s), run.program_folder + "/");
  EXPECT_FALSE(fs::exists(run.data_folder));
}

TEST_F(OwnFiles, of_an_installation_lie_with_the_user_s_data_even_where_the_installation_could_be_written) {
  run.installed = true;
  EXPECT_EQ(OwnFilesFolder(run.s), run.data_folder + "/");
  EXPECT_TRUE(fs::is_directory(run.data_folder));
}

TEST_F(OwnFiles, lie_with_the_user_s_data_when_the_program_s_folder_is_not_there) {
  run.program_folder = run.folder.path("elsewhere");
  EXPECT_EQ(OwnFilesFolder(run.s), run.data_folder + "/");
}

}  // namespace
}  // namespace merlu::test
