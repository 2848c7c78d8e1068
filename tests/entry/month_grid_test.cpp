// The month grid: what its cells accept and show, paste and copy, and refused saves.
#include "entry/month_grid.h"

#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

int ColumnOf(const MonthGrid& grid, const std::string& name) {
  return grid.FindColumn(name);
}

// ---- cells ----

class Grid : public testing::Test {
 protected:
  void SetUp() override {
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.SelectRoot();
    run.AddMonth();
    run.s.db.Execute("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=1 WHERE ED_ID_AK=(SELECT MIN(ED_ID_AK) FROM ED_FLA)");
    run.s.db.Execute(
        "UPDATE EA_FLA SET OP_HR=744,VOL_FLARED=12.5 WHERE EA_ID_AK IN (SELECT EA_ID_AK FROM EA_EQUIP_ACTV "
        "WHERE EA_MO=1)");
    run.SelectRoot();
    run.ChangeTo(Mode::kActv);
    run.SelectRoot();
    grid.ShowMonth(&TARNE_FLA(), 2);
    hours = ColumnOf(grid, "txtFLA_HrsOperated");
    volume = ColumnOf(grid, "txtFLA_VolFlared");
    pilot = ColumnOf(grid, "cmbFLA_PilotIncludedInVolume");
  }
  TestRun run;
  MonthGrid grid{run.s};
  int hours = -1, volume = -1, pilot = -1;
};

TEST_F(Grid, has_a_row_a_record_and_the_fields_of_the_sheet) {
  ASSERT_EQ(grid.RowCount(), 2);
  EXPECT_EQ(grid.RowKey(0), run.Key("FLA", "F1", 2));
  Texts captions;
  for (const GridColumn& column : grid.Columns()) captions.push_back(column.caption);
  EXPECT_EQ(captions, (Texts{"Structure", "Equipment", "Hours Operated (hrs), including upsets",
                             "Volume Flared (Mscf), including upsets", "Pilot Feed Rate Included in Volume Flared?",
                             "No Emissions to Report", "Comments"}));
  EXPECT_EQ(grid.Cell(0, 0).text, "GI, 43, A");
  EXPECT_EQ(grid.Cell(1, 1).text, "F2");
  EXPECT_TRUE(grid.Cell(1, 1).locked);
  EXPECT_EQ(grid.Cell(0, hours).was, "744");
  EXPECT_FALSE(grid.Cell(0, pilot).locked);
  EXPECT_TRUE(grid.Cell(1, pilot).locked) << "without a pilot";
}

TEST_F(Grid, judges_a_cell_as_it_is_left_and_stores_nothing) {
  grid.SetCell(0, hours, "=12*100");
  EXPECT_EQ(grid.Cell(0, hours).text, "1200");
  EXPECT_EQ(grid.Cell(0, hours).finding, "Value not in expected range (0 to 744)");
  EXPECT_EQ(grid.Cell(0, hours).back, Back::kFlag);
  grid.SetCell(0, volume, "12,5");
  EXPECT_EQ(grid.Cell(0, volume).hint, "Will be saved as 12");
  grid.SetCell(1, hours, "=12*");
  EXPECT_EQ(grid.Cell(1, hours).text, "=12*");
  EXPECT_EQ(grid.Cell(1, hours).hint, "Not a number: will be saved blank");
  EXPECT_EQ(grid.ChangedRecords(), 2);
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=1200"), 0);
  grid.SetCell(1, hours, "");
  EXPECT_EQ(grid.ChangedRecords(), 1);
}

TEST_F(Grid, keeps_what_was_typed_in_another_month_or_view) {
  grid.SetCell(0, hours, "700");
  grid.ShowMonth(&TARNE_FLA(), 1);
  EXPECT_EQ(grid.Cell(0, hours).text, "744");
  grid.ShowRecord(&TARNE_FLA(), ToInteger(run.Sql("SELECT MIN(ED_ID_AK) FROM ED_FLA")));
  ASSERT_EQ(grid.RowCount(), 2);
  EXPECT_EQ(grid.Columns()[0].caption, "Month");
  EXPECT_EQ(grid.Cell(1, 0).text, "2017/02");
  EXPECT_EQ(grid.Cell(1, 1).text, "700");
  EXPECT_EQ(grid.Cell(1, 1).was, "744");
}

TEST_F(Grid, pastes_by_a_plan_when_a_cell_is_refused_or_replaced) {
  std::vector<PastePlan> plan;
  bool yes = false;
  grid.approve = [&](const std::vector<PastePlan>& asked) {
    plan = asked;
    return yes;
  };
  grid.Paste(0, hours, CellsOf("1,200\t1 200\n700\n"));
  EXPECT_TRUE(plan.empty());
  EXPECT_EQ(grid.Cell(0, hours).text, "1200");
  EXPECT_EQ(grid.Cell(0, volume).text, "1200");
  EXPECT_EQ(grid.Cell(1, hours).text, "700");
  grid.Paste(0, hours, CellsOf("5\t\tYES\tx\tshort\tout\nabc\t1200\tyes\n9"));
  Texts what;
  for (const PastePlan& cell : plan) what.push_back(cell.what);
  EXPECT_EQ(what, (Texts{"changed", "set", "no such choice", "set", "outside the grid", "not a number", "set", "locked",
                         "outside the grid"}));
  EXPECT_EQ(grid.Cell(0, hours).text, "1200");
  yes = true;
  grid.Paste(0, hours, CellsOf("5\t\tYES\nabc\t3"));
  EXPECT_EQ(grid.Cell(0, hours).text, "5");
  EXPECT_EQ(grid.Cell(0, volume).text, "1200");
  EXPECT_EQ(grid.Cell(0, pilot).text, "Yes");
  EXPECT_EQ(grid.Cell(1, hours).text, "700");
  EXPECT_EQ(grid.Cell(1, volume).text, "3");
}

TEST_F(Grid, copies_the_month_before_into_blank_cells_and_confirms) {
  grid.SetCell(0, volume, "3");
  EXPECT_EQ(grid.CopyBefore({0}), 1);
  EXPECT_EQ(grid.Cell(0, hours).text, "744");
  EXPECT_TRUE(grid.Cell(0, hours).copied);
  EXPECT_FALSE(grid.Cell(0, volume).copied);
  EXPECT_EQ(grid.Cell(1, hours).text, "");
  EXPECT_EQ(grid.CopyBefore({}), 2);
  grid.SetCell(1, volume, "4");
  EXPECT_FALSE(grid.Cell(1, volume).copied);
  const GridSaved saved = grid.Save();
  EXPECT_EQ(saved.records, 2);
  EXPECT_EQ(saved.refused, "");
  grid.ShowMonth(&TARNE_FLA(), 2);
  EXPECT_TRUE(grid.Cell(0, hours).copied);
  EXPECT_FALSE(grid.Cell(1, volume).copied);
  EXPECT_EQ(grid.Confirm({}), 2);
  grid.ShowMonth(&TARNE_FLA(), 2);
  EXPECT_FALSE(grid.Cell(0, hours).copied);
}

TEST_F(Grid, counts_the_findings_of_the_records_that_it_saves_and_of_no_other) {
  grid.ShowMonth(&StructureSheet(), 2);
  grid.SetCell(0, ColumnOf(grid, "txtSTRUCTURE_ProdOil"), "6000000");
  const std::int64_t own = 7;  // one out of range, six blank
  EXPECT_EQ(grid.Save().findings, own);
  EXPECT_EQ(ToInteger(run.Sql("SELECT COUNT(*) FROM QC WHERE Level='STRUCTURE'")), own);
  EXPECT_GT(ToInteger(run.Sql("SELECT COUNT(*) FROM QC WHERE Level='EQUIPMENT'")), 0) << "the run reached them";
}

TEST_F(Grid, leaves_no_finding_that_its_structure_raised_before_the_equipment_was_stored) {
  run.ChangeTo(Mode::kDesc);
  for (int number = 3; number <= 21; ++number) {
    run.Select(run.Key());
    run.AddEquipment("FLA", "F" + std::to_string(number));
  }
  run.ChangeTo(Mode::kActv);
  grid.ShowMonth(&StructureSheet(), 2);
  grid.SetCell(0, ColumnOf(grid, "txtSTRUCTURE_ProdOil"), "60");
  grid.ShowMonth(&TARNE_FLA(), 2);
  for (int row = 1; row < grid.RowCount(); ++row) {
    grid.SetCell(row, hours, "100");
    grid.SetCell(row, volume, "12.5");
  }
  EXPECT_EQ(grid.Save().records, 21);
  EXPECT_GT(run.Count("QC WHERE EquipID='F1'"), 0) << "not typed: blank";
  EXPECT_EQ(run.Count("QC WHERE EquipType='FLA' AND EquipID<>'F1'"), 0);
}

TEST_F(Grid, saves_nothing_when_another_program_has_changed_a_record) {
  grid.SetCell(0, hours, "700");
  grid.SetCell(1, hours, "701");
  run.s.db.Execute("UPDATE EA_FLA SET VOL_FLARED=99 WHERE EA_ID_AK=(SELECT MAX(EA_ID_AK) FROM EA_FLA)");
  const GridSaved saved = grid.Save();
  EXPECT_EQ(saved.records, 0);
  EXPECT_EQ(saved.refused,
            "2017/02 · GI, 43, A · Combustion Flare: F2: another program has changed this record; save again to store "
            "what is typed");
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700"), 0);
  EXPECT_EQ(grid.ChangedRecords(), 2);
  EXPECT_EQ(grid.Cell(0, hours).text, "700");
  EXPECT_TRUE(grid.Cell(0, 0).finding.empty());
  EXPECT_FALSE(grid.Cell(1, 0).finding.empty());
  EXPECT_EQ(grid.Cell(1, volume).text, "99") << "what is stored now";
  EXPECT_EQ(grid.Cell(1, hours).text, "701");
  EXPECT_EQ(grid.Save().records, 2);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=701 AND VOL_FLARED=99"), 1);
}

TEST_F(Grid, notices_what_a_program_on_a_connection_of_its_own_has_changed) {
  grid.SetCell(0, hours, "700");
  Raw(run.s.path, {"UPDATE EA_FLA SET VOL_FLARED=98 WHERE EA_ID_AK IN (SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE "
                   "EA_MO=2)"});
  EXPECT_EQ(grid.Save().records, 0);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700"), 0);
  EXPECT_EQ(grid.Save().records, 1);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700 AND VOL_FLARED=98"), 1);
}

TEST_F(Grid, leaves_a_deleted_record_out_once_that_was_said) {
  grid.SetCell(0, hours, "700");
  grid.SetCell(1, hours, "701");
  run.s.db.Execute("DELETE FROM EA_EQUIP_ACTV WHERE EA_ID_AK=(SELECT MAX(EA_ID_AK) FROM EA_FLA)");
  const GridSaved saved = grid.Save();
  EXPECT_EQ(saved.records, 0);
  EXPECT_NE(saved.refused.find("Combustion Flare: F2: another program has deleted this record"), std::string::npos);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700"), 0);
  EXPECT_FALSE(grid.Cell(1, 0).finding.empty());
  EXPECT_EQ(grid.Save().records, 1);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700"), 1);
}

TEST_F(Grid, a_fault_in_the_middle_of_a_save_leaves_the_store_and_the_cells) {
  grid.SetCell(0, hours, "700");
  grid.SetCell(1, hours, "701");
  run.s.db.Execute(
      "CREATE TEMP TRIGGER stops BEFORE UPDATE ON main.EA_FLA WHEN NEW.OP_HR=701 BEGIN SELECT RAISE(ABORT,'full'); "
      "END");
  const std::int64_t dated = run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL");
  const GridSaved saved = grid.Save();
  EXPECT_EQ(saved.records, 0);
  EXPECT_EQ(saved.refused, "2017/02 · GI, 43, A · Combustion Flare: F2: full");
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700"), 0);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), dated);
  EXPECT_EQ(grid.Cell(0, hours).text, "700");
  EXPECT_EQ(grid.Cell(1, hours).text, "701");
  EXPECT_FALSE(grid.Cell(1, 0).finding.empty());
  run.s.db.Execute("DROP TRIGGER stops");
  EXPECT_EQ(grid.Save().records, 2);
}

TEST_F(Grid, typing_a_copied_value_again_confirms_it) {
  grid.CopyBefore({0});
  grid.Save();
  grid.ShowMonth(&TARNE_FLA(), 2);
  ASSERT_TRUE(grid.Cell(0, hours).copied);
  grid.SetCell(0, hours, "744");
  EXPECT_FALSE(grid.Cell(0, hours).copied);
  EXPECT_EQ(grid.Save().records, 1);
  grid.ShowMonth(&TARNE_FLA(), 2);
  EXPECT_FALSE(grid.Cell(0, hours).copied);
  EXPECT_TRUE(grid.Cell(0, volume).copied);
}

TEST(GridColumns, of_all_types_have_captions_of_their_own) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  MonthGrid grid(run.s);
  std::vector<const SheetSpec*> sheets = AllSheets();
  sheets.push_back(&StructureSheet());
  for (const SheetSpec* sheet : sheets) {
    if (!sheet->has_activity) continue;
    grid.ShowMonth(sheet, 1);
    std::set<std::string> captions;
    for (const GridColumn& column : grid.Columns()) captions.insert(Lower(column.caption));
    EXPECT_EQ(captions.size(), grid.Columns().size()) << sheet->title;
  }
  grid.ShowMonth(&TARNE_NGT(), 1);
  Texts captions;
  for (const GridColumn& column : grid.Columns()) captions.push_back(column.caption);
  EXPECT_EQ(captions, (Texts{"Structure", "Equipment", "Hours Operated (hrs)", "Total Fuel Used (Mscf)",
                             "Diesel: Hours Operated (hrs)", "Diesel: Total Fuel Used (gal)", "No Emissions to Report",
                             "Comments"}));
}

}  // namespace
}  // namespace merlu::test
