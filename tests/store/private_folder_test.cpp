#include "store/private_folder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <optional>

#include "store/new_file.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class PrivateFolders : public testing::Test {
 protected:
  PrivateFolders() : before_(fs::temp_directory_path().string()) { ::setenv("TMPDIR", place.path().c_str(), 1); }
  ~PrivateFolders() override { ::setenv("TMPDIR", before_.c_str(), 1); }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(place.path())) names.push_back(entry.path().filename().string());
    return names;
  }
  // Another program, which has a private folder until its end.
  class Other {
   public:
    Other() {
      int ready[2];
      if (pipe(ready) != 0) throw std::runtime_error("no pipe");
      child_ = fork();
      if (child_ == 0) {
        const PrivateFolder folder;
        std::ofstream(folder.File("inventory.mdb")) << "rows";
        if (write(ready[1], "x", 1) != 1) _exit(1);
        for (;;) pause();
      }
      char letter = 0;
      if (read(ready[0], &letter, 1) != 1) throw std::runtime_error("no private folder");
      close(ready[0]), close(ready[1]);
    }
    ~Other() { Kill(); }
    void Kill() {
      if (child_ <= 0) return;
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
      child_ = 0;
    }

   private:
    pid_t child_ = 0;
  };

  TemporaryFolder place, elsewhere;

 private:
  std::string before_;
};

TEST_F(PrivateFolders, go_with_all_that_is_in_them) {
  {
    const PrivateFolder folder;
    std::ofstream(folder.File("inventory.mdb")) << "rows";
    ASSERT_EQ(Names().size(), 1U);
    EXPECT_TRUE(IsUnfinishedName(Names().front()));
    EXPECT_EQ(fs::status(place.path(Names().front())).permissions() & fs::perms::all, fs::perms::owner_all);
  }
  EXPECT_TRUE(Names().empty());
}

TEST_F(PrivateFolders, of_killed_programs_are_removed_and_those_of_running_ones_are_not) {
  Other killed, running;
  ASSERT_EQ(Names().size(), 2U);
  RemoveAbandonedFolders();
  EXPECT_EQ(Names().size(), 2U);
  killed.Kill();
  RemoveAbandonedFolders();
  EXPECT_EQ(Names().size(), 1U);
  running.Kill();
  RemoveUnfinishedFiles(place.path("no notes"));
  EXPECT_TRUE(Names().empty());
}

TEST_F(PrivateFolders, are_told_from_files_links_and_other_folders) {
  std::ofstream(elsewhere.path("theirs")) << "kept";
  fs::create_directory(place.path(".merlu-notes"));
  std::ofstream(place.path(".merlu-0123456789abcdef.tmp")) << "a file";
  fs::create_directory_symlink(elsewhere.path(), place.path(".merlu-0123456789abcde0.tmp"));
  RemoveAbandonedFolders();
  EXPECT_EQ(Names().size(), 3U);
  EXPECT_TRUE(fs::exists(elsewhere.path("theirs")));
}

TEST_F(PrivateFolders, cannot_be_made_where_no_folder_can_be_made) {
  ::setenv("TMPDIR", place.path("gone").c_str(), 1);
  EXPECT_THROW(PrivateFolder(), std::exception);
}

}  // namespace
}  // namespace merlu::test
