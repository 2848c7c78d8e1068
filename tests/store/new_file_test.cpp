// Files under user-chosen names: written completely, never over the program's own.
#include "store/new_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "store/files.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class NewFile : public testing::Test {
 protected:
  NewFile() {
    fs::create_directory(At("data"));
    own = {At("data/work.mdb"), At("notes")};
    Put(own.inventory, "inventory");
  }
  std::string At(const std::string& name) { return folder.path(name); }
  static void Put(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
  static std::string Get(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
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
  int Refusal(const std::string& name) {
    return FaultOf([&] { TargetPath(own, name); });
  }
  int Write(const std::string& name, const std::string& text) {
    return FaultOf([&] { WriteNewFile(own, name, [&](const std::string& path) { Put(path, text); }); });
  }
  std::vector<std::string> Names(const std::string& of) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(of)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  // The path under which a child process was writing when it was killed.
  std::string KilledWhileWriting(const std::string& name, bool with_journal = false) {
    const pid_t child = fork();
    if (child == 0) {
      WriteNewFile(own, name, [&](const std::string& path) {
        if (with_journal) Put(path + "-journal", "half");
        std::ofstream(At("told")) << path;
        ::kill(::getpid(), SIGKILL);
      });
      _exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    const std::string path = Get(At("told"));
    fs::remove(At("told"));
    return path;
  }

  TemporaryFolder folder;
  OwnFiles own;
};

using Texts = std::vector<std::string>;

// ---- names ----

TEST_F(NewFile, is_never_the_inventory_under_any_name_or_link) {
  fs::create_symlink(own.inventory, At("link.pdf"));
  fs::create_symlink("link.pdf", At("link of a link.pdf"));
  fs::create_hard_link(own.inventory, At("hard.pdf"));
  fs::create_directory_symlink(At("data"), At("other way"));
  for (const char* name : {"data/work.mdb", "data/../data/./work.mdb", "link.pdf", "link of a link.pdf", "hard.pdf",
                           "other way/work.mdb"}) {
    EXPECT_EQ(Refusal(At(name)), fault_number::kBadFileName) << name;
    EXPECT_EQ(Write(At(name), "new"), fault_number::kBadFileName) << name;
  }
  EXPECT_EQ(Get(own.inventory), "inventory");
}

TEST_F(NewFile, is_never_the_inventory_that_is_itself_known_by_a_link) {
  fs::create_symlink(own.inventory, At("known.mdb"));
  const std::string real = own.inventory;
  own.inventory = At("known.mdb");
  for (const std::string& name : {At("known.mdb"), real, real + ".history", At("known.mdb.history"), real + "-journal"})
    EXPECT_EQ(Refusal(name), fault_number::kBadFileName) << name;
}

TEST_F(NewFile, is_never_what_belongs_to_the_inventory) {
  for (const char* rest : {"-journal", "-wal", "-shm", "-mj1A2B3C4D", ".history", ".history-journal", ".history-wal",
                           ".HISTORY", "-Journal"})
    EXPECT_EQ(Refusal(own.inventory + rest), fault_number::kBadFileName) << rest;
  EXPECT_EQ(Refusal(At("data/WORK.MDB-journal")), fault_number::kBadFileName);
  Put(own.inventory + ".history", "companion");
  fs::create_hard_link(own.inventory + ".history", At("report.pdf"));
  EXPECT_EQ(Refusal(At("report.pdf")), fault_number::kBadFileName);
  EXPECT_EQ(Refusal(At("data/.merlu-0123456789abcdef.tmp")), fault_number::kBadFileName);
}

TEST_F(NewFile, may_have_any_other_name) {
  for (const char* name : {"data/work.mdb.pdf", "data/work", "work.mdb", "work.mdb-journal", "data/my work.mdb",
                           "data/.merlu-report.tmp", "data/work.mdb.historyX"})
    EXPECT_EQ(Refusal(At(name)), 0) << name;
  own.inventory.clear();
  EXPECT_EQ(Refusal(At("data/work.mdb")), 0);
}

TEST_F(NewFile, is_never_a_folder_or_a_device_and_needs_a_folder_to_lie_in) {
  EXPECT_EQ(Refusal(At("data")), fault_number::kBadFileName);
  EXPECT_EQ(Refusal("/dev/null"), fault_number::kBadFileName);
  ::mkfifo(At("pipe").c_str(), 0600);
  EXPECT_EQ(Refusal(At("pipe")), fault_number::kBadFileName);
  EXPECT_EQ(Refusal(At("none/a.pdf")), fault_number::kNoSuchFolder);
  fs::create_symlink(At("circle"), At("circle"));
  EXPECT_EQ(Refusal(At("circle")), fault_number::kBadFileName);
}

TEST_F(NewFile, takes_no_file_s_place_that_may_not_be_written) {
  Put(At("kept.pdf"), "kept");
  fs::permissions(At("kept.pdf"), fs::perms::owner_read);
  EXPECT_EQ(Write(At("kept.pdf"), "new"), fault_number::kFileAccess);
  EXPECT_EQ(Get(At("kept.pdf")), "kept");
}

// ---- writing ----

TEST_F(NewFile, takes_its_name_when_it_is_whole) {
  Put(At("a.pdf"), "old");
  EXPECT_EQ(FaultOf([&] {
              WriteNewFile(own, At("a.pdf"), [&](const std::string& path) {
                EXPECT_EQ(fs::path(path).parent_path(), fs::path(At("a.pdf")).parent_path());
                EXPECT_EQ(FileSize(path), 0u);
                Put(path, "new");
                EXPECT_EQ(Get(At("a.pdf")), "old");
              });
            }),
            0);
  EXPECT_EQ(Get(At("a.pdf")), "new");
  EXPECT_EQ(Names(At("")), (Texts{"a.pdf", "data"})) << "nothing else is left";
}

TEST_F(NewFile, goes_where_a_link_leads_also_to_a_file_that_is_not_there_yet) {
  fs::create_directory(At("far"));
  Put(At("far/there.pdf"), "old");
  fs::create_symlink("far/there.pdf", At("link.pdf"));
  fs::create_symlink(At("far/not yet.pdf"), At("loose.pdf"));
  EXPECT_EQ(Write(At("link.pdf"), "new"), 0);
  EXPECT_EQ(Write(At("loose.pdf"), "new too"), 0);
  EXPECT_TRUE(fs::is_symlink(At("link.pdf")));
  EXPECT_TRUE(fs::is_symlink(At("loose.pdf")));
  EXPECT_EQ(Get(At("far/there.pdf")), "new");
  EXPECT_EQ(Get(At("far/not yet.pdf")), "new too");
}

TEST_F(NewFile, that_fails_leaves_what_was_there_and_nothing_else) {
  Put(At("a.pdf"), "old");
  const auto fail = [](const std::string& path) {
    Put(path, "half");
    Put(path + "-journal", "half");
    throw Fault(fault_number::kDiskFull, "test", "full");
  };
  EXPECT_EQ(FaultOf([&] { WriteNewFile(own, At("a.pdf"), fail); }), fault_number::kDiskFull);
  EXPECT_EQ(FaultOf([&] { WriteNewFile(own, At("b.pdf"), fail); }), fault_number::kDiskFull);
  EXPECT_EQ(Get(At("a.pdf")), "old");
  EXPECT_EQ(Names(At("")), (Texts{"a.pdf", "data"}));
}

TEST_F(NewFile, that_fails_is_named_as_it_was_asked_for) {
  try {
    WriteNewFile(own, At("a.pdf"), [](const std::string& path) { FailFile(path, ENOSPC); });
    FAIL() << "nothing failed";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, fault_number::kDiskFull);
    EXPECT_EQ(fault.description, "Cannot write the file " + At("a.pdf") + ": No space left on device.");
  }
}

TEST_F(NewFile, may_have_as_long_a_name_as_the_disk_takes) {
  for (const std::size_t length : {251u, 255u}) {
    const std::string name = std::string(length - 4, 'n') + ".mdb";
    EXPECT_EQ(Write(At(name), "new"), 0) << length;
    EXPECT_EQ(Get(At(name)), "new");
  }
}

TEST_F(NewFile, keeps_the_permissions_of_the_file_whose_place_it_takes) {
  Put(At("a.pdf"), "old");
  fs::permissions(At("a.pdf"), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(Write(At("a.pdf"), "new"), 0);
  EXPECT_EQ(fs::status(At("a.pdf")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(Write(At("b.pdf"), "new"), 0);
  Put(At("c.pdf"), "made without further ado");
  EXPECT_EQ(fs::status(At("b.pdf")).permissions(), fs::status(At("c.pdf")).permissions());
}

TEST_F(NewFile, is_made_beside_another_of_the_same_name_that_is_being_made) {
  EXPECT_EQ(FaultOf([&] {
              WriteNewFile(own, At("a.pdf"), [&](const std::string& outer) {
                WriteNewFile(own, At("a.pdf"), [&](const std::string& inner) {
                  EXPECT_NE(inner, outer);
                  Put(inner, "first");
                });
                EXPECT_EQ(Get(At("a.pdf")), "first");
                Put(outer, "second");
              });
            }),
            0);
  EXPECT_EQ(Get(At("a.pdf")), "second");
}

TEST_F(NewFile, that_needs_a_free_name_never_takes_another_s) {
  const auto put = [](const std::string& path) { Put(path, "new"); };
  EXPECT_EQ(FaultOf([&] { MakeFile(own, At("a.mdb"), put); }), 0);
  EXPECT_EQ(Get(At("a.mdb")), "new");
  Put(At("a.mdb"), "old");
  EXPECT_NE(FaultOf([&] { MakeFile(own, At("a.mdb"), put); }), 0);
  EXPECT_EQ(Get(At("a.mdb")), "old");
  EXPECT_EQ(Names(At("")), (Texts{"a.mdb", "data"}));
}

TEST_F(NewFile, needs_no_place_for_notes) {
  for (const char* notes : {"", "/proc/none"}) {
    own.notes = notes;
    EXPECT_EQ(Write(At("a.pdf"), notes), 0);
    EXPECT_EQ(Get(At("a.pdf")), notes);
  }
}

// ---- what a kill leaves ----

TEST_F(NewFile, of_a_killed_program_is_gone_after_the_next_start) {
  Put(At("data/a.pdf"), "old");
  const std::string left = KilledWhileWriting(At("data/a.pdf"), true);
  EXPECT_TRUE(FileExists(left));
  EXPECT_TRUE(FileExists(left + "-journal"));
  EXPECT_EQ(Get(At("data/a.pdf")), "old");
  RemoveUnfinishedFiles(own.notes);
  EXPECT_EQ(Names(At("data")), (Texts{"a.pdf", "work.mdb"}));
  EXPECT_FALSE(FileExists(own.notes));
}

TEST_F(NewFile, of_a_running_program_stays_at_another_s_start) {
  EXPECT_EQ(FaultOf([&] {
              WriteNewFile(own, At("a.pdf"), [&](const std::string& path) {
                Put(path, "new");
                RemoveUnfinishedFiles(own.notes);
                EXPECT_TRUE(FileExists(path));
              });
            }),
            0);
  EXPECT_EQ(Get(At("a.pdf")), "new");
}

TEST_F(NewFile, on_a_disk_that_is_away_is_remembered_until_it_is_back) {
  const std::string left = KilledWhileWriting(At("data/a.pdf"));
  fs::rename(At("data"), At("away"));
  RemoveUnfinishedFiles(own.notes);
  fs::rename(At("away"), At("data"));
  EXPECT_TRUE(FileExists(left));
  RemoveUnfinishedFiles(own.notes);
  EXPECT_FALSE(FileExists(left));
}

TEST_F(NewFile, is_all_that_a_note_can_remove) {
  Put(At("precious.mdb"), "kept");
  fs::create_directory(own.notes);
  Put(own.notes + "/forged.note", At("precious.mdb"));
  Put(own.notes + "/empty.note", "");
  Put(own.notes + "/readme.txt", "kept");
  RemoveUnfinishedFiles(own.notes);
  EXPECT_EQ(Get(At("precious.mdb")), "kept");
  EXPECT_EQ(Names(own.notes), (Texts{"readme.txt"}));
}

}  // namespace
}  // namespace merlu::test
