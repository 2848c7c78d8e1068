#include "store/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class Files : public testing::Test {
 protected:
  void Write(const std::string& name, const std::string& text) { std::ofstream(folder.path(name)) << text; }
  std::string Read(const std::string& name) {
    std::stringstream text;
    text << std::ifstream(folder.path(name)).rdbuf();
    return text.str();
  }
  template <typename Work>
  static int FaultOf(Work&& work) {
    try {
      work();
      return 0;
    } catch (const Fault& fault) {
      return fault.number;
    }
  }
  TemporaryFolder folder;
};

TEST_F(Files, keep_the_wanted_name_while_it_is_free) {
  EXPECT_EQ(NextFreeFileName(folder.path("MERLU.mdb")), folder.path("MERLU.mdb"));
}

TEST_F(Files, get_the_first_number_that_is_free_right_behind_their_name) {
  Write("MERLU.mdb", "");
  EXPECT_EQ(NextFreeFileName(folder.path("MERLU.mdb")), folder.path("MERLU1.mdb"));
  Write("MERLU1.mdb", "");
  Write("MERLU3.mdb", "");
  EXPECT_EQ(NextFreeFileName(folder.path("MERLU.mdb")), folder.path("MERLU2.mdb"));
}

TEST_F(Files, are_numbered_by_their_own_name_and_not_by_a_point_in_their_folder_s) {
  fs::create_directory(folder.path("v1.2"));
  Write("v1.2/a.b.mdb", "");
  EXPECT_EQ(NextFreeFileName(folder.path("v1.2/a.b.mdb")), folder.path("v1.2/a.b1.mdb"));
}

TEST_F(Files, make_way_for_a_folder_of_the_same_name) {
  fs::create_directory(folder.path("MERLU.mdb"));
  EXPECT_EQ(NextFreeFileName(folder.path("MERLU.mdb")), folder.path("MERLU1.mdb"));
}

TEST_F(Files, are_copied_byte_for_byte_into_folders_that_are_there) {
  Write("from.mdb", "content");
  EXPECT_THROW(CopyDatabase(folder.path("from.mdb"), folder.path("a/b/to.mdb")), Fault);
  EXPECT_FALSE(FileExists(folder.path("a")));
  MakeFolder(folder.path("a/b"));
  CopyDatabase(folder.path("from.mdb"), folder.path("a/b/to.mdb"));
  EXPECT_EQ(Read("a/b/to.mdb"), "content");
  EXPECT_EQ(Read("from.mdb"), "content");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("a/b")), {}), 1);
}

TEST_F(Files, that_are_copied_from_a_read_only_file_can_be_written) {
  Write("mr.dbt", "content");
  fs::permissions(folder.path("mr.dbt"), fs::perms::owner_read | fs::perms::group_read);
  CopyDatabase(folder.path("mr.dbt"), folder.path("merlu.mdb"));
  EXPECT_NE(fs::status(folder.path("merlu.mdb")).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_EQ(fs::status(folder.path("mr.dbt")).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(Files, that_are_missing_cannot_be_copied) {
  EXPECT_EQ(FaultOf([&] { CopyDatabase(folder.path("none"), folder.path("to")); }), 53);
  EXPECT_EQ(FaultOf([&] { CopyDatabase(folder.path(), folder.path("to")); }), 53);
  EXPECT_FALSE(FileExists(folder.path("to")));
}

TEST_F(Files, that_cannot_be_made_leave_nothing_behind) {
  Write("from.mdb", "content");
  Write("file", "");
  EXPECT_EQ(FaultOf([&] { CopyDatabase(folder.path("from.mdb"), folder.path("file/to.mdb")); }), 76);
  EXPECT_EQ(Read("file"), "");
  fs::create_directories(folder.path("to.mdb/full"));
  EXPECT_EQ(FaultOf([&] { CopyDatabase(folder.path("from.mdb"), folder.path("to.mdb")); }), 57);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 3);
}

TEST_F(Files, have_a_separator_between_them_and_their_folder_once) {
  EXPECT_EQ(WithSeparator("/data"), "/data/");
  EXPECT_EQ(WithSeparator("/data/"), "/data/");
}

TEST_F(Files, can_be_made_in_a_folder_of_one_s_own_and_not_in_one_that_is_not_there) {
  EXPECT_TRUE(CanWriteFolder(folder.path()));
  EXPECT_FALSE(CanWriteFolder(folder.path("none")));
}

TEST_F(Files, cannot_be_made_in_a_folder_of_the_system_whoever_asks) {
  ASSERT_TRUE(fs::exists("/proc/self"));
  EXPECT_FALSE(CanWriteFolder("/proc"));
}

TEST_F(Files, without_the_loading_table_are_of_the_version_before) {
  const std::string path = CopyTemplate(folder);
  EXPECT_TRUE(IsCurrentDatabase(path));
  Raw(path, {"DROP TABLE EA_LOA"});
  EXPECT_FALSE(IsCurrentDatabase(path));
}

TEST_F(Files, that_cannot_be_opened_count_as_current) {
  Write("text.mdb", std::string(2000, 'x'));
  EXPECT_TRUE(IsCurrentDatabase(folder.path("text.mdb")));
  EXPECT_TRUE(IsCurrentDatabase(folder.path("none.mdb")));
  EXPECT_TRUE(IsCurrentDatabase(folder.path()));
  const std::string path = CopyTemplate(folder);
  fs::permissions(path, fs::perms::owner_read);
  EXPECT_TRUE(IsCurrentDatabase(path));
}

TEST_F(Files, are_told_what_their_file_system_has_left) {
  EXPECT_GT(FreeBytes(folder.path()), 0u);
  EXPECT_GT(FreeBytes("/"), 0u);
  EXPECT_EQ(FreeBytes(folder.path("missing")), 0u);
}

}  // namespace
}  // namespace merlu::test
