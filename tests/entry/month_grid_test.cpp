// The month grid: what its cells take and say, and that a save leaves what End Edit & Save on each sheet would have.
#include "entry/month_grid.h"

#include <gtest/gtest.h>

#include <random>

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
  EXPECT_EQ(grid.Cell(1, 0).text, "2017/02");
  EXPECT_EQ(grid.Cell(1, hours).text, "700");
  EXPECT_EQ(grid.Cell(1, hours).was, "744");
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

TEST_F(Grid, saves_nothing_when_another_program_has_changed_a_record) {
  grid.SetCell(0, hours, "700");
  grid.SetCell(1, hours, "701");
  run.s.db.Execute("UPDATE EA_FLA SET VOL_FLARED=99 WHERE EA_ID_AK=(SELECT MAX(EA_ID_AK) FROM EA_FLA)");
  const GridSaved saved = grid.Save();
  EXPECT_EQ(saved.records, 0);
  EXPECT_EQ(saved.refused, "GI, 43, A · F2: another program has changed or deleted this record");
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR=700"), 0);
  EXPECT_EQ(grid.ChangedRecords(), 2);
  EXPECT_EQ(grid.Cell(0, hours).text, "700");
  EXPECT_FALSE(grid.Cell(1, 0).finding.empty());
}

// ---- the law: as record by record ----

class GridSave : public testing::TestWithParam<const SheetSpec*> {};

// Two structures with two records of the type each, two months, random figures, findings with comments.
void Prepare(TestRun& run, const SheetSpec* sheet, unsigned seed) {
  run.StartWithStructure();
  run.AddStructure("1002");
  for (const char* complex : {"1001", "1002"})
    for (const char* id : {"X1", "X2"}) {
      run.Select(run.Key("", "", 0, complex));
      run.AddEquipment(sheet == nullptr ? "FLA" : sheet->type, id);
    }
  run.SelectRoot();
  run.AddMonth();
  run.TakeBoxes();
  std::mt19937 random{seed};
  if (sheet != nullptr)
    for (const FieldSpec& field : sheet->fields) {
      if (field.mode == In::kActv || field.column.empty() || field.stored == Stored::kDestination) continue;
      const Values keys = [&] {
        Values all;
        for (const Values& row : run.s.db.Query("SELECT ED_ID_AK FROM ED_" + sheet->type).rows) all.push_back(row[0]);
        return all;
      }();
      for (const Value& key : keys) {
        Value value;
        if (field.stored == Stored::kYesNo) value = random() % 2 == 0;
        if (field.stored == Stored::kNumber) value = double(random() % 100);
        if (!field.items.empty() && field.stored != Stored::kYesNo) {
          const Item& item = field.items[random() % field.items.size()];
          value = field.stored == Stored::kCode ? item.code : item.text;
        }
        run.s.db.Execute("UPDATE ED_" + sheet->type + " SET [" + field.column + "]=? WHERE ED_ID_AK=?", {value, key});
      }
    }
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=50,THRU_OIL=50,TOT_FUEL_USE_NG=50,TOT_FUEL_USE_DIE=50");
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  for (const std::string& key : run.TreeKeys()) {
    if (CountCharacters(key) != 12) continue;  // a month
    run.Select(key);
    run.Click("cmdQC");
  }
  run.s.db.Execute("UPDATE QC SET Comments='known' WHERE rowid%2=0");
  run.SelectRoot();
  run.TakeBoxes();
}

Texts Dump(TestRun& run) {
  Texts all;
  for (const Values& table :
       run.s.db
           .Query("SELECT name FROM main.sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite%' ORDER BY name")
           .rows) {
    const std::string name = NullToEmpty(table[0]);
    for (const Values& row : run.s.db.Query("SELECT * FROM main.[" + name + "] ORDER BY rowid").rows) {
      std::string text = name;
      for (const Value& value : row) text += "|" + (IsNull(value) ? "-" : NullToEmpty(value));
      all.push_back(text);
    }
  }
  return all;
}

void TypeAtRandom(MonthGrid& grid, std::mt19937& random) {
  const Texts kTexts = {"", "5", "40", "744", "745", "99999999", "12,5", "abc", "-1", "0"};
  const auto columns = static_cast<int>(grid.Columns().size());
  for (int turn = 0; turn < 3; ++turn)
    for (int row = 0; row < grid.RowCount(); ++row)
      for (int column = 2; column < columns; ++column) {
        const GridColumn& head = grid.Columns()[static_cast<std::size_t>(column)];
        if (random() % 3 != 0 || grid.Cell(row, column).locked) continue;
        const Texts& texts = head.items.empty() ? kTexts : head.items;
        std::string text = texts[random() % texts.size()];
        if (head.name.find("_Status") != std::string::npos && random() % 4 != 0) text = "off";
        grid.SetCell(row, column, text);
      }
}

using Typed = std::vector<std::pair<std::string, std::map<std::string, std::string>>>;  // by key: control and text

void SaveOneByOne(TestRun& run, const Typed& records) {
  for (const auto& [key, cells] : records) {
    run.Select(key);
    run.Click("cmdEdit");
    for (const auto& [control, text] : cells) {
      Control& at = run.At(control);
      if (at.kind == Kind::kCheck)
        run.Check(control, text == "on");
      else
        run.Set(control, text);
    }
    run.Click("cmdSaveExit");
  }
}

TEST_P(GridSave, leaves_what_end_edit_and_save_would_leave_record_by_record) {
  const SheetSpec* sheet = GetParam();
  for (unsigned seed = 1; seed <= 3; ++seed) {
    SCOPED_TRACE(seed);
    TestRun by_grid, by_record;
    Prepare(by_grid, sheet, seed);
    Prepare(by_record, sheet, seed);
    ASSERT_EQ(Dump(by_grid), Dump(by_record));
    std::mt19937 random{seed * 77};
    MonthGrid grid(by_grid.s);
    grid.ShowMonth(sheet, 2);
    const auto columns = static_cast<int>(grid.Columns().size());
    std::vector<Texts> before;
    for (int row = 0; row < grid.RowCount(); ++row) {
      before.emplace_back();
      for (int column = 0; column < columns; ++column) before.back().push_back(grid.Cell(row, column).text);
    }
    TypeAtRandom(grid, random);
    Typed records;
    for (int row = 0; row < grid.RowCount(); ++row) {
      std::map<std::string, std::string> cells;
      for (int column = 2; column < columns; ++column) {
        const std::string text = grid.Cell(row, column).text;
        if (text != before[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)])
          cells[grid.Columns()[static_cast<std::size_t>(column)].name] = text;
      }
      if (!cells.empty()) records.emplace_back(grid.RowKey(row), cells);
    }
    const GridSaved saved = grid.Save();
    EXPECT_EQ(saved.refused, "");
    EXPECT_EQ(saved.records, static_cast<int>(records.size()));
    // a destination that falls back to the local one is told; nothing else is
    for (const std::string& box : by_grid.TakeBoxes()) EXPECT_TRUE(box.find("No ") == 0) << box;
    SaveOneByOne(by_record, records);
    EXPECT_EQ(Dump(by_grid), Dump(by_record));
  }
}

std::vector<const SheetSpec*> SheetsWithMonths() {
  std::vector<const SheetSpec*> sheets = {nullptr};
  for (const SheetSpec* sheet : AllSheets())
    if (sheet->has_activity) sheets.push_back(sheet);
  return sheets;
}

INSTANTIATE_TEST_SUITE_P(, GridSave, testing::ValuesIn(SheetsWithMonths()), [](const auto& info) {
  return info.param == nullptr ? std::string("STRUCTURE") : info.param->type;
});

}  // namespace
}  // namespace merlu::test
