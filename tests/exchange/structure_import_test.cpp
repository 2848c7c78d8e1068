// Taking structures over from another inventory.
#include "exchange/structure_import.h"

#include <gtest/gtest.h>

#include "exchange/import_file.h"
#include "inventory.h"
#include "session/types.h"
#include "store/files.h"
#include "store/image.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// The rows of a table with what identifies them in place of their keys, without the operator's number.
Rows Identified(Database& db, const std::string& table, const std::string& condition = "1") {
  std::string columns, joins;
  for (const Values& column : db.Query("SELECT name FROM pragma_table_info(?)", {table}).rows) {
    const std::string name = NullToEmpty(column[0]);
    const bool key = name == "PD_ID_AK" || name == "SA_ID_AK" || name == "ED_ID_AK" || name == "EA_ID_AK";
    if (!key && name != "RIMA_CO_NUM") columns += ",t.\"" + name + "\"";
  }
  if (table.starts_with("EA_") && table != "EA_EQUIP_ACTV")
    joins = " JOIN EA_EQUIP_ACTV a USING (EA_ID_AK) JOIN ED_EQUIP_DESC e ON e.ED_ID_AK=a.ED_ID_AK";
  else if (table.starts_with("E") && table != "ED_EQUIP_DESC")
    joins = " JOIN ED_EQUIP_DESC e ON e.ED_ID_AK=t.ED_ID_AK";
  std::string who = "p.CMPLX_ID_NUM,p.STRUCT_NUM";
  if (!joins.empty()) who += ",e.ED_EQUIP_TYP,e.ED_MERLU_EQUIP_ID";
  if (joins.find(" a ") != std::string::npos) who += ",a.EA_MO";
  if (table != "PD_PLATFORM_DESC")
    joins += " JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=" + std::string(joins.empty() ? "t" : "e") + ".PD_ID_AK";
  const std::string from = table == "PD_PLATFORM_DESC" ? "PD_PLATFORM_DESC t JOIN PD_PLATFORM_DESC p USING (PD_ID_AK)"
                                                       : table + " t" + joins;
  return db.Query("SELECT " + who + columns + " FROM " + from + " WHERE " + condition + " ORDER BY " + who +
                  (table == "PA_PLATFORM_ACTV" ? ",t.PA_MO"
                   : table == "EA_EQUIP_ACTV"  ? ",t.EA_MO"
                                               : "") +
                  (table == "ED_EQUIP_DESC" ? ",t.ED_EQUIP_TYP,t.ED_MERLU_EQUIP_ID" : ""));
}

InventoryPlan Plan(int structures, int equipment, int months, const char* operator_number = "12345") {
  InventoryPlan plan;
  plan.structures = structures;
  plan.equipment = equipment;
  plan.months = months;
  plan.operator_number = operator_number;
  plan.fault_share = 0.3;
  return plan;
}

class Import : public testing::Test {
 protected:
  Import() {
    run.program_folder = run.folder.path();
    run.data_folder = run.folder.path();
  }
  // The working inventory, and another one of another operator, whose structures have other names.
  void Make(const InventoryPlan& working, const InventoryPlan& other) {
    MakeInventory(TemplatePath(), run.folder.path("inventory.mdb"), working);
    MakeInventory(TemplatePath(), Other(), other);
    Raw(Other(), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X' || CMPLX_ID_NUM"});
    run.Start(run.folder.path("inventory.mdb"));
    run.TakeBoxes();
  }
  std::string Other() { return run.folder.path("other.mdb"); }
  void In(const std::function<void()>& work) {
    run.dialogs.push_back([&](Form&) { work(); });
    run.Click("mnuEStructB");
  }
  void Load() {
    run.Set("txtImportFilename", Other());
    run.Click("cmdLoad");
  }
  Texts ImportRows(const std::vector<int>& rows) {
    Texts boxes;
    In([&] {
      Load();
      run.Pick("lvwStructures", rows);
      run.Click("cmdImport");
      boxes = run.TakeBoxes();
    });
    return boxes;
  }
  std::int64_t Staged() {
    std::int64_t rows = 0;
    for (const std::string& table : ImportTables()) rows += run.Count("H_" + table);
    return rows;
  }
  void ExpectSound() {
    EXPECT_EQ(NullToEmpty(run.Sql("PRAGMA integrity_check")), "ok");
    EXPECT_TRUE(IsNull(run.Sql("PRAGMA foreign_key_check")));
    EXPECT_EQ(Staged(), 0);
    for (const std::string& table : ImportTables())
      for (const char* key : {"PD_ID_AK", "SA_ID_AK", "ED_ID_AK", "EA_ID_AK"})
        for (const std::string& column : run.s.At(table).columns())
          if (column == key) {
            EXPECT_EQ(run.Count(table + " WHERE " + key + "<=0"), 0) << table;
          }
    EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), run.Count("PD_PLATFORM_DESC") * run.s.last_month);
    EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_YR<>2017"), 0);
  }

  TestRun run;
};

TEST_F(Import, lists_the_structures_of_the_file_from_the_root_of_the_description_tree) {
  Make(Plan(2, 4, 2), Plan(3, 4, 2));
  run.dialogs.push_back([&](Form& form) {
    EXPECT_EQ(form.name(), "frmImportStructure");
    EXPECT_EQ(form.caption, "Import MERLU-2017 Structure Data");
    EXPECT_EQ(run.At("cmdBrowse").caption, "Select File");
    EXPECT_EQ(run.At("cmdLoad").caption, "Load List");
    EXPECT_EQ(run.At("cmdImport").caption, "Import Selected Structures");
    EXPECT_EQ(run.s.mode, Mode::kDesc);
    EXPECT_EQ(run.s.tree.selected, 0);
    EXPECT_FALSE(run.s.tree.nodes.front().expanded);
    Load();
    EXPECT_EQ(run.At("lvwStructures").rows.size(), 3u);
    EXPECT_TRUE(run.s.exchange.IsOpen());
  });
  run.Click("mnuEStructB");
  EXPECT_FALSE(run.s.exchange.IsOpen()) << "closing the dialog closes the file";
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Import, takes_over_the_chosen_structures_and_nothing_of_the_others) {
  Make(Plan(2, 32, 3), Plan(4, 64, 3, "99999"));
  const auto before = run.Count("EA_EQUIP_ACTV");
  EXPECT_EQ(ImportRows({1, 3}), Texts{"Done."});
  ExpectSound();
  Database other;
  other.OpenPrivateCopy(Other());
  const std::string chosen = "p.PD_ID_AK IN (2,4)", mine = "p.CMPLX_ID_NUM LIKE 'X%'";
  for (const std::string& table : ImportTables()) {
    const Rows theirs = Identified(other, table, chosen), ours = Identified(run.s.db, table, mine);
    EXPECT_EQ(ours.rows, theirs.rows) << table;
    EXPECT_FALSE(ours.rows.empty()) << table;
  }
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 4);
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC WHERE RIMA_CO_NUM='12345'"), 4) << "the operator's own";
  EXPECT_EQ(
      run.Count("EA_EQUIP_ACTV"),
      before + ToInteger(other.Single("SELECT COUNT(*) FROM EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC e USING (ED_ID_AK) "
                                      "WHERE e.PD_ID_AK IN (2,4)")));
  for (const EquipmentType& type : EquipmentTypes()) {
    const std::string code(type.code);
    EXPECT_EQ(run.Count("ED_" + code + " WHERE ED_ID_AK NOT IN (SELECT ED_ID_AK FROM ED_EQUIP_DESC)"), 0) << code;
    if (!type.has_activity) continue;
    EXPECT_EQ(run.Count("EA_" + code), run.Count("EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='" + code + "'")) << code;
  }
}

TEST_F(Import, gives_every_row_the_next_free_keys_in_the_order_of_the_file) {
  Make(Plan(2, 32, 2), Plan(2, 32, 2));
  const std::int64_t p = ToInteger(run.Sql("SELECT MAX(PD_ID_AK)+1 FROM PD_PLATFORM_DESC"));
  const std::int64_t sa = ToInteger(run.Sql("SELECT MAX(SA_ID_AK)+1 FROM PA_PLATFORM_ACTV"));
  const std::int64_t ed = ToInteger(run.Sql("SELECT MAX(ED_ID_AK)+1 FROM ED_EQUIP_DESC"));
  const std::int64_t ea = ToInteger(run.Sql("SELECT MAX(EA_ID_AK)+1 FROM EA_EQUIP_ACTV"));
  EXPECT_EQ(ImportRows({0, 1}), Texts{"Done."});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC WHERE PD_ID_AK IN (" + std::to_string(p) + "," + std::to_string(p + 1) + ")"),
            2);
  const auto expect_run = [&](const char* column, const char* table, std::int64_t first, std::int64_t count) {
    const std::string from = std::string(" FROM ") + table + " WHERE " + column + ">=" + std::to_string(first);
    EXPECT_EQ(ToInteger(run.Sql(std::string("SELECT MIN(") + column + ")" + from)), first) << table;
    EXPECT_EQ(ToInteger(run.Sql(std::string("SELECT MAX(") + column + ")" + from)), first + count - 1) << table;
    EXPECT_EQ(ToInteger(run.Sql("SELECT COUNT(*)" + from)), count) << table;
  };
  expect_run("SA_ID_AK", "PA_PLATFORM_ACTV", sa, 4);
  expect_run("ED_ID_AK", "ED_EQUIP_DESC", ed, 32);
  expect_run("EA_ID_AK", "EA_EQUIP_ACTV", ea, ToInteger(RawValue(Other(), "SELECT COUNT(*) FROM EA_EQUIP_ACTV")));
  EXPECT_EQ(
      NullToEmpty(run.Sql("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE ED_ID_AK=" + std::to_string(ed + 4))),
      NullToEmpty(RawValue(Other(), "SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC ORDER BY ED_ID_AK LIMIT 1 OFFSET 4")));
}

TEST_F(Import, gives_keys_by_the_order_of_the_list_whatever_the_order_of_picking) {
  Make(Plan(1, 2, 1), Plan(3, 4, 1));
  EXPECT_EQ(ImportRows({2, 0}), Texts{"Done."});
  const Rows rows = run.s.db.Query(
      "SELECT CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM LIKE 'X%' ORDER BY PD_ID_AK");
  Database other;
  other.OpenPrivateCopy(Other());
  EXPECT_EQ(
      rows.rows,
      other.Query("SELECT CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC WHERE PD_ID_AK<>2 ORDER BY PD_ID_AK").rows);
}

TEST_F(Import, from_another_year_is_refused_before_anything_is_staged) {
  Make(Plan(1, 2, 1), Plan(1, 2, 1));
  Raw(Other(), {"UPDATE SYS_CONFIG SET sys_yr=2016"});
  run.s.db.Execute("INSERT INTO H_PD_PLATFORM_DESC (PD_ID_AK) VALUES (7)");
  EXPECT_EQ(ImportRows({0}), Texts{"Inventory Year of Import File (2016) does not match your database (2017)."});
  EXPECT_EQ(Staged(), 0) << "what an earlier import left is gone";
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(Import, of_a_structure_that_exists_is_cancelled_for_all) {
  Make(Plan(1, 2, 1), Plan(3, 4, 1));
  Raw(Other(), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='x10001', STRUCT_NUM='1' WHERE PD_ID_AK=2"});
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X10001', STRUCT_NUM='1'");
  EXPECT_EQ(ImportRows({0, 1, 2}), Texts{"RIMA Structure ID already exists in database - import cancelled."});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(Staged(), 0);
}

TEST_F(Import, of_a_structure_that_exists_with_a_letter_beyond_ascii_in_the_other_case_is_cancelled) {
  Make(Plan(1, 2, 1), Plan(2, 4, 1));
  Raw(Other(), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='gi-é1', STRUCT_NUM='ä' WHERE PD_ID_AK=2"});
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='GI-É1', STRUCT_NUM='Ä'");
  EXPECT_EQ(ImportRows({1}), Texts{"RIMA Structure ID already exists in database - import cancelled."});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(ImportRows({0}), Texts{"Done."});
  ExpectSound();
}

TEST_F(Import, a_second_time_is_cancelled) {
  Make(Plan(1, 2, 1), Plan(1, 2, 1));
  EXPECT_EQ(ImportRows({0}), Texts{"Done."});
  EXPECT_EQ(ImportRows({0}), Texts{"RIMA Structure ID already exists in database - import cancelled."});
}

TEST_F(Import, of_the_working_database_itself_is_cancelled) {
  Make(Plan(1, 2, 1), Plan(1, 2, 1));
  In([&] {
    run.Set("txtImportFilename", run.s.path);
    run.Click("cmdLoad");
    run.Pick("lvwStructures", 0);
    run.Click("cmdImport");
    EXPECT_EQ(run.TakeBoxes(), Texts{"RIMA Structure ID already exists in database - import cancelled."});
  });
}

TEST_F(Import, adds_the_months_that_the_inventory_lacks_with_one_message) {
  Make(Plan(2, 32, 2), Plan(1, 16, 5));
  const std::int64_t last_structure_month = ToInteger(run.Sql("SELECT MAX(SA_ID_AK) FROM PA_PLATFORM_ACTV"));
  EXPECT_EQ(ImportRows({0}), (Texts{"5 months in import file. Adding months to inventory", "Done."}));
  ExpectSound();
  EXPECT_EQ(run.s.last_month, 5);
  EXPECT_EQ(ToInteger(run.Sql("SELECT SYS_MAX_MO FROM SYS_CONFIG")), 5);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 3 * 5);
  // the months that were added come first, each with the key that a month leaves out; then the imported ones
  const std::int64_t first_imported = ToInteger(run.Sql(
      "SELECT MIN(SA_ID_AK) FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=(SELECT MAX(PD_ID_AK) FROM PD_PLATFORM_DESC)"));
  EXPECT_EQ(first_imported, last_structure_month + 3 * 3 + 1);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE SA_ID_AK>=" + std::to_string(first_imported)), 5);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC e USING (ED_ID_AK) WHERE e.PD_ID_AK=3"),
            run.Count("EA_EQUIP_ACTV WHERE EA_ID_AK>=(SELECT MIN(EA_ID_AK) FROM EA_EQUIP_ACTV JOIN ED_EQUIP_DESC "
                      "USING (ED_ID_AK) WHERE PD_ID_AK=3)"))
      << "no two runs of keys mix";
}

TEST_F(Import, that_fails_after_it_has_added_months_leaves_the_month_that_was_current) {
  Make(Plan(1, 2, 2), Plan(1, 2, 5));
  run.s.PD_ID_AK = 1;
  run.s.SA_ID_AK = 2;
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE INSERT ON PD_PLATFORM_DESC BEGIN SELECT RAISE(ABORT,'no'); END");
  run.s.exchange.OpenPrivateCopy(Other());
  std::vector<StructureName> all;
  for (const ListedStructure& structure : ListStructures(run.s.exchange)) all.push_back(structure.name);
  EXPECT_THROW(ImportStructures(run.s, run.s.exchange, all, merlu::Import::kDo), Fault);
  EXPECT_EQ(run.s.last_month, 2);
  EXPECT_EQ(run.s.PD_ID_AK, 1);
  EXPECT_EQ(run.s.SA_ID_AK, 2);
}

TEST_F(Import, fills_the_further_months_of_a_longer_inventory_with_empty_rows) {
  Make(Plan(1, 16, 4), Plan(2, 32, 2));
  EXPECT_EQ(ImportRows({0, 1}), Texts{"Done."});
  ExpectSound();
  EXPECT_EQ(run.s.last_month, 4);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE PD_ID_AK IN (2,3) AND PA_MO IN (3,4)"), 4);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE PD_ID_AK IN (2,3) AND PA_MO IN (3,4) AND status IS NULL AND PA_YR=2017"),
            4);
  const std::string added =
      "EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC e USING (ED_ID_AK) WHERE e.PD_ID_AK IN (2,3) AND EA_MO>2";
  EXPECT_EQ(run.Count(added), 32 * 2) << "fugitives too";
  EXPECT_EQ(run.Count(added + " AND EA_EQUIP_TYP=ED_EQUIP_TYP AND EA_STATUS IS NULL AND EA_YR=2017"), 32 * 2);
  EXPECT_EQ(
      run.Count(added + " AND EA_EQUIP_TYP='FLA' AND EA_ID_AK IN (SELECT EA_ID_AK FROM EA_FLA WHERE OP_HR IS NULL)"),
      4);
  // the first structure's further months have consecutive keys, then the second's
  const Rows rows = run.s.db.Query(
      "SELECT PD_ID_AK,PA_MO FROM PA_PLATFORM_ACTV WHERE PD_ID_AK IN (2,3) AND PA_MO>2 ORDER BY SA_ID_AK");
  const auto row = [](int structure, int month) { return Values{std::int64_t{structure}, std::int64_t{month}}; };
  EXPECT_EQ(rows.rows, (std::vector<Values>{row(2, 3), row(2, 4), row(3, 3), row(3, 4)}));
}

TEST_F(Import, into_an_inventory_without_structures_works) {
  MakeInventory(TemplatePath(), Other(), Plan(1, 16, 2));
  run.Start();
  run.TakeBoxes();
  EXPECT_EQ(ImportRows({0}), (Texts{"2 months in import file. Adding months to inventory", "Done."}));
  ExpectSound();
  EXPECT_EQ(ToInteger(run.Sql("SELECT PD_ID_AK FROM PD_PLATFORM_DESC")), 1);
  EXPECT_EQ(ToInteger(run.Sql("SELECT MIN(SA_ID_AK) FROM PA_PLATFORM_ACTV")), 1);
}

TEST_F(Import, of_a_file_without_months_gives_empty_months) {
  Make(Plan(1, 16, 3), Plan(1, 16, 1));
  Raw(Other(), {"PRAGMA foreign_keys=ON", "DELETE FROM EA_EQUIP_ACTV", "DELETE FROM PA_PLATFORM_ACTV",
                "UPDATE SYS_CONFIG SET SYS_MAX_MO=0"});
  EXPECT_EQ(ImportRows({0}), Texts{"Done."});
  ExpectSound();
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV JOIN ED_EQUIP_DESC USING (ED_ID_AK) WHERE PD_ID_AK=2"), 16 * 3);
}

TEST_F(Import, shows_the_new_structures_in_the_tree) {
  Make(Plan(1, 2, 1), Plan(1, 2, 1));
  const std::size_t before = [&] {
    run.ChangeTo(Mode::kDesc);
    return run.s.tree.nodes.size();
  }();
  ImportRows({0});
  EXPECT_EQ(run.s.tree.nodes.size(), before + 3);
  EXPECT_EQ(run.s.tree.selected, 0);
}

TEST_F(Import, needs_a_name_a_file_and_a_row) {
  Make(Plan(1, 2, 1), Plan(1, 2, 1));
  In([&] {
    run.Click("cmdLoad");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please select filename"});
    run.Set("txtImportFilename", run.folder.path("none.mdb"));
    run.Click("cmdLoad");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Failed to open Import database"});
    run.Click("cmdImport");
    EXPECT_EQ(run.TakeBoxes(), Texts{"No Structures selected for importing."});
    Load();
    run.Click("cmdImport");
    EXPECT_EQ(run.TakeBoxes(), Texts{"No Structures selected for importing."});
  });
}

TEST_F(Import, that_fails_tells_twice_and_leaves_nothing_behind) {
  Make(Plan(1, 16, 1), Plan(1, 16, 1));
  // a key that no new one may follow
  run.s.db.Execute("UPDATE ED_EQUIP_DESC SET ED_ID_AK=9223372036854775807 WHERE ED_ID_AK=1");
  const Texts boxes = ImportRows({0});
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[1], "Specified Import file may be wrong format.");
  EXPECT_EQ(boxes[0], "9 There is no free key left in the database.");
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(Staged(), 0);
  EXPECT_EQ(NullToEmpty(run.Sql("PRAGMA integrity_check")), "ok");
  run.s.db.Execute("UPDATE ED_EQUIP_DESC SET ED_ID_AK=1 WHERE ED_ID_AK=9223372036854775807");
  EXPECT_EQ(ImportRows({0}), Texts{"Done."});
  ExpectSound();
}

// A year of the largest inventory, out of one file and into another.
TEST_F(Import, of_a_full_inventory_brings_every_row_over) {
  Make(Plan(12, 120, 12), FullInventory());
  std::vector<int> all(300);
  for (int i = 0; i < 300; ++i) all[static_cast<std::size_t>(i)] = i;
  EXPECT_EQ(ImportRows(all), Texts{"Done."});
  ExpectSound();
  Database other;
  other.OpenPrivateCopy(Other());
  for (const std::string& table : ImportTables()) {
    const Rows theirs = Identified(other, table), ours = Identified(run.s.db, table, "p.CMPLX_ID_NUM LIKE 'X%'");
    EXPECT_EQ(ours.rows.size(), theirs.rows.size()) << table;
    EXPECT_TRUE(ours.rows == theirs.rows) << table;
  }
}

}  // namespace
}  // namespace merlu::test
