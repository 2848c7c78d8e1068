// Files that come from strangers.
#include "exchange/import_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/fault.h"
#include "inventory.h"
#include "store/files.h"
#include "store/image.h"
#include "support/pauses.h"
#include "support/tampered.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

class ForeignFile : public testing::Test {
 protected:
  ForeignFile() {
    run.program_folder = run.folder.path();
    run.Start();
    InventoryPlan plan;
    plan.structures = 2;
    plan.equipment = 32;
    plan.months = 2;
    MakeInventory(TemplatePath(), path(), plan);
  }
  std::string path() { return run.folder.path("foreign.mdb"); }
  // The box that loading the list shows, and that nothing else happened.
  Texts Loaded() {
    Texts boxes;
    const auto changes = run.s.db.ChangeCount();
    run.dialogs.push_back([&](Form&) {
      run.Set("txtImportFilename", path());
      run.Click("cmdLoad");
      boxes = run.TakeBoxes();
      EXPECT_EQ(run.At("lvwStructures").rows.size(), boxes.empty() ? 2u : 0u);
      EXPECT_EQ(run.s.exchange.IsOpen(), boxes.empty());
    });
    run.Click("mnuEStructB");
    EXPECT_EQ(run.s.db.ChangeCount(), changes);
    return boxes;
  }

  TestRun run;
};

TEST_F(ForeignFile, that_is_sound_is_accepted) {
  EXPECT_EQ(Loaded(), Texts{});
}

TEST_F(ForeignFile, that_the_program_has_worked_on_is_accepted) {
  Raw(path(), {"CREATE TABLE QC_XREF (StructID TEXT, EquipID TEXT)"});
  EXPECT_EQ(Loaded(), Texts{});
}

TEST_F(ForeignFile, is_never_written) {
  fs::permissions(path(), fs::perms::owner_read);
  EXPECT_EQ(Loaded(), Texts{});
  Database file;
  file.OpenPrivateCopy(path());
  EXPECT_THROW(file.Execute("DELETE FROM QC"), Fault);
}

// ---- files that are no database ----

struct Bytes {
  const char* name;
  std::string content;
};

class NoDatabase : public ForeignFile, public testing::WithParamInterface<Bytes> {};

TEST_P(NoDatabase, cannot_be_opened) {
  std::ofstream(path(), std::ios::binary) << GetParam().content;
  const Texts boxes = Loaded();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_TRUE(boxes[0] == "Failed to open Import database" || boxes[0] == "Invalid Import file!") << boxes[0];
}

INSTANTIATE_TEST_SUITE_P(files, NoDatabase,
                         testing::Values(Bytes{"empty", ""}, Bytes{"text", "A survey, by hand.\n"},
                                         Bytes{"zeros", std::string(100000, '\0')},
                                         Bytes{"only_a_header", std::string("SQLite format 3\0", 16)}),
                         [](const auto& info) { return info.param.name; });

TEST_F(ForeignFile, that_another_program_holds_cannot_be_opened) {
  Database other;
  other.Open(path());
  other.Execute("BEGIN EXCLUSIVE");
  const WithoutPauses without_pauses;
  EXPECT_EQ(Loaded(), Texts{"Failed to open Import database"});
}

TEST_F(ForeignFile, cut_short_anywhere_is_refused) {
  const auto size = FileSize(path());
  for (const std::uint64_t part : {2u, 3u, 5u, 9u}) {
    const auto cut = size - size / part;
    fs::resize_file(path(), cut / 4096 * 4096 + (part == 3 ? 100 : 0));
    EXPECT_EQ(Loaded().size(), 1u) << part;
  }
}

TEST_F(ForeignFile, with_damaged_pages_is_refused_or_read_whole) {
  std::ifstream in(path(), std::ios::binary);
  const std::string sound((std::istreambuf_iterator<char>(in)), {});
  std::uint32_t seed = 7;
  const auto next = [&seed] { return seed = seed * 1664525u + 1013904223u, seed >> 8; };
  int refused = 0;
  for (int round = 0; round < 60; ++round) {
    std::string damaged = sound;
    for (int i = 0; i < 200; ++i) damaged[100 + next() % (damaged.size() - 100)] = static_cast<char>(next());
    std::ofstream(path(), std::ios::binary) << damaged;
    Database file;
    try {
      file.OpenPrivateCopy(path());
      CheckImportFile(file, ReadImportLayout(run.s.db));
    } catch (const Fault&) {
      ++refused;
    }
  }
  EXPECT_GT(refused, 50);
}

// ---- databases with something that does not belong there ----

class HostileDatabase : public ForeignFile, public testing::WithParamInterface<Tampering> {};

TEST_P(HostileDatabase, is_refused_before_anything_is_staged) {
  Raw(path(), GetParam().statements);
  EXPECT_EQ(Loaded(), Texts{"Invalid Import file!"});
}

TEST_F(ForeignFile, with_a_value_larger_than_any_that_is_read_is_refused) {
  Raw(path(), {"UPDATE PA_PLATFORM_ACTV SET COMNT_TXT=hex(zeroblob(32100000)) WHERE SA_ID_AK=1"});
  EXPECT_EQ(Loaded(), Texts{"Invalid Import file!"});
}

TEST_F(ForeignFile, is_taken_whatever_it_holds_beside_the_tables_that_are_read) {
  Raw(path(), {"DROP TABLE H_EA_FLA", "DROP TABLE listPRE", "CREATE TABLE listPRE (Model TEXT, Mfr TEXT)",
               "CREATE TABLE further (b TEXT, a TEXT AS (b))", "CREATE VIEW more AS SELECT 1", "DROP VIEW Structures"});
  EXPECT_EQ(Loaded(), Texts{});
}

TEST_F(ForeignFile, is_taken_with_its_columns_in_another_order) {
  Raw(path(), {"ALTER TABLE EA_FLA DROP COLUMN OP_HR", "ALTER TABLE EA_FLA ADD COLUMN OP_HR DOUBLE"});
  EXPECT_EQ(Loaded(), Texts{});
}

INSTANTIATE_TEST_SUITE_P(files, HostileDatabase, testing::ValuesIn(ForeignTamperings()),
                         [](const auto& info) { return info.param.name; });

TEST_F(ForeignFile, is_imported_as_it_was_listed_whatever_becomes_of_it_or_its_name) {
  for (const bool in_place : {true, false}) {
    Raw(path(), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='C" + std::to_string(in_place) + "'||PD_ID_AK"});
    const std::int64_t before = run.Count("PD_PLATFORM_DESC");
    run.dialogs.push_back([&](Form&) {
      run.Set("txtImportFilename", path());
      run.Click("cmdLoad");
      if (!in_place) fs::remove(path());
      if (!in_place) CopyTemplate(run.folder, fs::path(path()).filename().string());
      Raw(path(), {"UPDATE SYS_CONFIG SET sys_yr=1999", "UPDATE PD_PLATFORM_DESC SET Name='other'"});
      run.Pick("lvwStructures", 0);
      run.Click("cmdImport");
      EXPECT_EQ(run.TakeBoxes().back(), "Done.");
    });
    run.Click("mnuEStructB");
    EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), before + 1);
    EXPECT_EQ(run.Count("PD_PLATFORM_DESC WHERE Name='other'"), 0);
    EXPECT_EQ(run.Count("H_PD_PLATFORM_DESC"), 0);
    if (in_place) Raw(path(), {"UPDATE SYS_CONFIG SET sys_yr=2017", "UPDATE PD_PLATFORM_DESC SET Name='A'"});
  }
}

TEST_F(ForeignFile, with_rows_that_belong_to_nothing_leaves_them_behind) {
  Raw(path(), {"PRAGMA foreign_keys=OFF", "INSERT INTO EA_FLA (EA_ID_AK) VALUES (900001)",
               "INSERT INTO ED_FLA (ED_ID_AK) VALUES (900001)",
               "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO,EA_YR) VALUES (900002,900003,1,2017)"});
  run.dialogs.push_back([&](Form&) {
    run.Set("txtImportFilename", path());
    run.Click("cmdLoad");
    run.Pick("lvwStructures", std::vector<int>{0, 1});
    run.Click("cmdImport");
    EXPECT_EQ(run.TakeBoxes(), (Texts{"2 months in import file. Adding months to inventory", "Done."}));
  });
  run.Click("mnuEStructB");
  EXPECT_TRUE(IsNull(run.Sql("PRAGMA foreign_key_check")));
  EXPECT_EQ(run.Count("EA_FLA"), ToInteger(RawValue(path(), "SELECT COUNT(*)-1 FROM EA_FLA")));
  EXPECT_EQ(run.Count("ED_FLA"), ToInteger(RawValue(path(), "SELECT COUNT(*)-1 FROM ED_FLA")));
}

}  // namespace
}  // namespace merlu::test
