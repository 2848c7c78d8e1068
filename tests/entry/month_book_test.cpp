// The month workbook: what it is filled with, and what one that comes back changes.
#include "entry/month_book.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "exchange/csv.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Two flares and a structure, three months.
class MonthWorkbook : public testing::Test {
 protected:
  MonthWorkbook() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Keep({{"txtFLA_HrsOperated", "700"}, {"txtFLA_VolFlared", "12"}});
    run.GoTo("FLA", "F1", Mode::kDesc);
    run.Keep({{"cmbFLA_HasContFlarePilot", "Yes"}});
    run.AddMonth();
    run.GoTo("FLA", "F1", Mode::kActv, 2);
    run.Keep({{"txtFLA_HrsOperated", "720"}});
    run.TakeBoxes();
  }
  MonthBook Make(int month = 2) { return MakeMonthBook(run.s, month); }
  static BookSheet& SheetOf(MonthBook& book, const std::string& code) {
    for (BookSheet& sheet : book.sheets)
      if (sheet.code == code) return sheet;
    throw std::runtime_error("no sheet " + code);
  }
  static std::size_t ColumnOf(const BookSheet& sheet, const std::string& name) {
    for (std::size_t i = 0; i < sheet.columns.size(); ++i)
      if (sheet.columns[i].name == name) return i;
    throw std::runtime_error("no column " + name);
  }
  // What the user types into the first flare's row, or another's.
  void Type(MonthBook& book, const std::string& name, const std::string& text, std::size_t row = 0) {
    BookSheet& sheet = SheetOf(book, "FLA");
    sheet.rows[row].cells[ColumnOf(sheet, name)].text = text;
  }
  std::vector<BookChange> Plan(const MonthBook& book) {
    WriteMonthBook(book, run.folder.path("m.xlsx"));
    return PlanMonthBook(run.s, ReadMonthBook(run.folder.path("m.xlsx")), grid);
  }
  std::vector<BookChange> Plan(const std::vector<ReadSheet>& sheets) { return PlanMonthBook(run.s, sheets, grid); }
  // A sheet that holds one field of a record.
  ReadSheet One(const std::string& text, ForeignCell::Kind kind = ForeignCell::Kind::kText, bool merged = false) {
    ReadSheet sheet{"FLA", "12345", 2017, 2, {}};
    sheet.records.push_back({run.Key("FLA", "F1", 2), "GI, 43, A", "F1", {}});
    sheet.records[0].fields.push_back({"txtFLA_HrsOperated", text, kind, merged});
    return sheet;
  }
  // "control old>new what" of what is not as it was.
  static std::vector<std::string> Told(const std::vector<BookChange>& changes) {
    std::vector<std::string> told;
    for (const BookChange& c : changes)
      if (c.what != "same") told.push_back(c.control + " " + c.old_text + ">" + c.new_text + " " + c.what);
    return told;
  }
  static const BookChange& Only(const std::vector<BookChange>& changes) {
    if (changes.size() != 1) throw std::runtime_error("not one change");
    return changes.front();
  }

  TestRun run;
  MonthGrid grid{run.s};
};

using Texts = std::vector<std::string>;

TEST_F(MonthWorkbook, holds_the_month_and_the_one_before) {
  MonthBook book = Make();
  EXPECT_EQ(book.operator_number, "12345");
  ASSERT_EQ(book.sheets.size(), 2U);
  EXPECT_EQ(book.sheets[0].title, "Structures");
  const BookSheet& flares = SheetOf(book, "FLA");
  EXPECT_EQ(flares.title, "Combustion Flare");
  ASSERT_EQ(flares.rows.size(), 2U);
  EXPECT_EQ(flares.rows[0].structure, "GI, 43, A");
  EXPECT_EQ(flares.rows[0].equipment, "F1");
  const BookCell& hours = flares.rows[0].cells[ColumnOf(flares, "txtFLA_HrsOperated")];
  EXPECT_EQ(hours.text, "720");
  EXPECT_EQ(hours.was, "700");
  EXPECT_FALSE(hours.locked);
  EXPECT_EQ(flares.columns[ColumnOf(flares, "txtFLA_HrsOperated")].hint, "0 to 744");
  EXPECT_EQ(flares.columns[ColumnOf(flares, "cmbFLA_PilotIncludedInVolume")].items, (Texts{"Yes", "No"}));
}

TEST_F(MonthWorkbook, that_comes_back_as_it_went_changes_nothing) {
  run.Keep({{"txtFLA_Comments", "=1+1, two\r\nlines with _x0041_ and \" <&> "}});
  const std::vector<BookChange> changes = Plan(Make());
  EXPECT_EQ(Told(changes), Texts{});
  EXPECT_GE(changes.size(), 5U);
  EXPECT_EQ(grid.ChangedRecords(), 0);
}

TEST_F(MonthWorkbook, is_stored_as_the_grid_stores_it) {
  MonthBook book = Make();
  Type(book, "txtFLA_HrsOperated", "1,740");
  Type(book, "cmbFLA_PilotIncludedInVolume", "yes");
  Type(book, "txtFLA_VolFlared", "=12*31", 1);
  EXPECT_EQ(Told(Plan(book)), (Texts{"txtFLA_HrsOperated 720>1740 changed", "cmbFLA_PilotIncludedInVolume >Yes set",
                                     "txtFLA_VolFlared >372 set"}));
  const GridSaved saved = grid.Save();
  EXPECT_EQ(saved.records, 2);
  EXPECT_EQ(run.Sql("SELECT OP_HR FROM EA_FLA t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK WHERE a.EA_MO=2 AND "
                    "OP_HR IS NOT NULL"),
            Value(1740.0));
  EXPECT_NE(run.Finding("Hours Operated, excl. upsets", "[Month]=2 AND EquipID='F1'"), "");
  EXPECT_EQ(ToInteger(run.Sql("SELECT COUNT(*) FROM EA_FLA WHERE VOL_FLARED=372")), 1);
}

TEST_F(MonthWorkbook, leaves_alone_what_is_left_empty) {
  MonthBook book = Make();
  Type(book, "txtFLA_HrsOperated", "");
  Type(book, "txtFLA_VolFlared", "  ");
  EXPECT_EQ(Told(Plan(book)), Texts{});
  EXPECT_EQ(grid.ChangedRecords(), 0);
}

TEST_F(MonthWorkbook, tells_cell_by_cell_what_cannot_be_taken) {
  EXPECT_EQ(Only(Plan({One("many")})).what, "not a number");
  EXPECT_EQ(Only(Plan({One("12,5")})).what, "not a number") << "it would be stored as 12";
  EXPECT_EQ(Only(Plan({One("42795", ForeignCell::Kind::kDate)})).what, "not a number");
  EXPECT_EQ(Only(Plan({One("", ForeignCell::Kind::kFormula)})).what, "formula without its value");
  EXPECT_EQ(Only(Plan({One("5", ForeignCell::Kind::kNumber, true)})).what, "merged with other cells");
  ReadSheet sheet = One("Perhaps");
  sheet.records[0].fields[0].name = "cmbFLA_PilotIncludedInVolume";
  EXPECT_EQ(Only(Plan({sheet})).what, "no such choice");
  sheet.records[0].fields[0].name = "txtNone";
  EXPECT_EQ(Only(Plan({sheet})).what, "outside the grid");
  EXPECT_EQ(Only(Plan({sheet})).place, "2017/02 · GI, 43, A · Combustion Flare: F1");
  EXPECT_EQ(grid.ChangedRecords(), 0);
}

TEST_F(MonthWorkbook, of_another_month_or_inventory_is_refused) {
  ReadSheet sheet = One("5");
  sheet.month = 3;
  EXPECT_EQ(Only(Plan({sheet})).what, "another month") << "the inventory has no third month";
  sheet = One("5");
  sheet.year = 2016;
  EXPECT_EQ(Only(Plan({sheet})).what, "another month");
  sheet = One("5");
  sheet.records[0].key = run.Key("FLA", "F1", 1);
  EXPECT_EQ(Only(Plan({sheet})).what, "another month") << "a row of another month's sheet";
  sheet = One("5");
  sheet.operator_number = "54321";
  EXPECT_EQ(Only(Plan({sheet})).what, "no such record");
  sheet = One("5");
  sheet.code = "FUG";
  EXPECT_EQ(Only(Plan({sheet})).what, "no such record");
  sheet = One("5");
  sheet.records[0].key = run.Key("FLA", "F9", 2);
  EXPECT_EQ(Only(Plan({sheet})).what, "no such record");
  ReadSheet other = One("6");
  other.month = 1;
  other.records[0].key = run.Key("FLA", "F1", 1);
  const auto changes = Plan({One("5"), other});
  ASSERT_EQ(changes.size(), 2U);
  EXPECT_EQ(changes[0].what, "changed");
  EXPECT_EQ(changes[1].what, "another month") << "the workbook has one month";
}

TEST_F(MonthWorkbook, takes_a_record_once) {
  ReadSheet sheet = One("5");
  sheet.records.push_back(sheet.records[0]);
  sheet.records[1].fields[0].text = "6";
  const auto changes = Plan({sheet});
  ASSERT_EQ(changes.size(), 2U);
  EXPECT_EQ(changes[0].what, "changed");
  EXPECT_EQ(changes[1].what, "twice in the workbook");
}

TEST_F(MonthWorkbook, says_nothing_to_what_is_inactive_unless_it_becomes_active) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE EA_MO=2");
  EXPECT_EQ(Only(Plan({One("5")})).what, "inactive");
  ReadSheet sheet = One("5");
  sheet.records[0].fields.push_back({"chkFLA_Status", "off"});
  EXPECT_EQ(Told(Plan({sheet})), (Texts{"txtFLA_HrsOperated 720>5 changed", "chkFLA_Status on>off changed"}));
  MonthGrid fresh(run.s);
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  EXPECT_EQ(Only(PlanMonthBook(run.s, {One("5")}, fresh)).what, "inactive");
  EXPECT_EQ(fresh.ChangedRecords(), 0);
}

TEST_F(MonthWorkbook, comes_back_as_one_sheet_of_text_too) {
  MonthBook book = Make();
  WriteMonthBook(book, run.folder.path("m.xlsx"));
  std::string text;
  for (const ForeignSheet& sheet : ReadForeignWorkbook(run.folder.path("m.xlsx"))) {
    if (sheet.name != "Combustion Flare") continue;
    std::map<int, Texts> rows;
    for (const ForeignCell& cell : sheet.cells) {
      rows[cell.row].resize(static_cast<std::size_t>(cell.column) + 1);
      rows[cell.row].back() = cell.text == "720" ? "721" : cell.text;
    }
    for (const auto& [row, cells] : rows) text += CsvLine(cells);
  }
  std::ofstream(run.folder.path("m.csv"), std::ios::binary) << text;
  EXPECT_EQ(Told(PlanMonthBook(run.s, ReadMonthBook(run.folder.path("m.csv")), grid)),
            Texts{"txtFLA_HrsOperated 720>721 changed"});
  // as a spreadsheet saves it in a locale with a decimal comma
  run.Keep({{"txtFLA_HrsOperated", "287.002"}});
  MonthGrid fresh(run.s);
  const auto replace = [&](const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
      text.replace(at, from.size(), to);
  };
  replace(",", ";");
  replace("721", "287,002");
  std::ofstream(run.folder.path("m.csv"), std::ios::binary) << "\xEF\xBB\xBF" << text;
  EXPECT_EQ(Told(PlanMonthBook(run.s, ReadMonthBook(run.folder.path("m.csv")), fresh)), Texts{});
  replace("287,002", "12,5");
  std::ofstream(run.folder.path("m.csv"), std::ios::binary) << text;
  EXPECT_EQ(Told(PlanMonthBook(run.s, ReadMonthBook(run.folder.path("m.csv")), fresh)),
            Texts{"txtFLA_HrsOperated 287.002>12.5 changed"});
  std::ofstream(run.folder.path("other.csv"), std::ios::binary) << "a,b\n1,2\n";
  EXPECT_THROW(ReadMonthBook(run.folder.path("other.csv")), Fault);
}

}  // namespace
}  // namespace merlu::test
